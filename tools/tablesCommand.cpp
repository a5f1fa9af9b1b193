#include <memory>

#include "study/writeTables.h"
#include "tools/commands.h"
#include "tools/told.h"

namespace commands {

namespace {

struct Arguments {
    std::string file;
    std::string folder;
    std::string moment;
    bool force = false;
};

int write(const Arguments& given) {
    const writeTables::Outcome outcome =
        writeTables::write(given.file, given.folder, given.force, given.moment);
    return told(outcome.problems, outcome.notes);
}

}  // namespace

Command tables(CLI::App& program) {
    const auto given = std::make_shared<Arguments>();
    CLI::App* app = program.add_subcommand(
        "tables",
        "Writes the configuration tables of a store as CSV files, which create and update take back.");
    app->add_option("FILE", given->file, "the store file; it is only read")->required();
    app->add_option("DIR", given->folder, "folder for the files; made if it is missing")->required();
    app->add_flag("--force", given->force, "write over files that are there");
    app->add_option("--at", given->moment,
                    "the tables that were in force at \"yyyy-mm-dd hh:mm:ss\", before later updates");
    app->footer(
        "Exit status:\n"
        "  0    the files were written; standard error notes what they cannot give back\n"
        "  1    nothing was written; standard error says why");
    return {app, [given] { return write(*given); }};
}

}  // namespace commands
