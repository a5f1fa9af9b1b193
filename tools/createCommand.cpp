#include <iostream>
#include <memory>

#include "study/createStore.h"
#include "tools/commands.h"
#include "tools/told.h"

namespace commands {

namespace {

struct Arguments {
    std::string tables;
    std::string file;
    bool force = false;
};

int make(const Arguments& arguments) {
    const auto [problems, notes] = createStore::create(arguments.tables, arguments.file, arguments.force);
    const int status = told(problems, notes);
    if (status != 0) return status;
    try {
        printFindings(check::look(arguments.file, check::folderOf(arguments.file)));
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';  // the store has been made all the same
    }
    return 0;
}

}  // namespace

Command create(CLI::App& program) {
    const auto given = std::make_shared<Arguments>();
    CLI::App* app = program.add_subcommand("create", "Makes a store file from a folder of CSV tables.");
    app->add_option("TABLES", given->tables, "folder of CSV files named after the tables")->required();
    app->add_option("FILE", given->file, "the store file to make")->required();
    app->add_flag("--force", given->force, "replace an existing file; its owner and permissions stay");
    app->footer(
        "Exit status:\n"
        "  0    the store was made; standard error notes what was left out\n"
        "  1    nothing was made or replaced; standard error says why, with file, line and column\n"
        "  3    the call was wrong\n"
        "What tavixdb check finds in the new store is printed and does not change the status.");
    return {app, [given] { return make(*given); }};
}

}  // namespace commands
