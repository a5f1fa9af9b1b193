#include <iostream>
#include <memory>

#include "study/updateStore.h"
#include "tools/commands.h"
#include "tools/told.h"

namespace commands {

namespace {

struct Arguments {
    std::string file;
    std::string folder;
    updateStore::Wish wish;
};

int replace(const Arguments& given) {
    const updateStore::Outcome outcome = updateStore::update(given.file, given.folder, given.wish);
    const int status = told(outcome.problems, outcome.notes);
    if (outcome.inUse) std::cerr << "--closed says that the program is closed on every station\n";
    if (status != 0) return status;
    for (const std::string& line : outcome.done) std::cout << line << '\n';
    if (given.wish.dryRun) std::cout << "nothing was changed (--dry-run)\n";
    for (const std::string& line : outcome.misfits) std::cerr << "stored words do not fit: " << line << '\n';
    return status;
}

}  // namespace

Command update(CLI::App& program) {
    const auto given = std::make_shared<Arguments>();
    CLI::App* app = program.add_subcommand(
        "update",
        "Replaces configuration tables in a store that holds results, and keeps the old ones in it.");
    app->add_option("FILE", given->file, "the store file")->required();
    app->add_option("DIR", given->folder, "folder of CSV files; a table without a file stays")->required();
    app->add_flag("--closed", given->wish.closed,
                  "the program is closed on every station: rows of the last half hour are no hindrance");
    app->add_flag("--dry-run", given->wish.dryRun, "say what would be done, and change nothing");
    app->footer(
        "Exit status:\n"
        "  0    done; standard error names subjects whose stored words do not fit the tables\n"
        "  1    nothing was changed; standard error says why");
    return {app, [given] { return replace(*given); }};
}

}  // namespace commands
