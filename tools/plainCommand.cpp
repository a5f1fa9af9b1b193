#include <memory>

#include "platform/progressLine.h"
#include "study/plainCopy.h"
#include "tools/commands.h"

namespace commands {

namespace {

struct Arguments {
    std::string file;
    std::string copy;
};

}  // namespace

Command plain(CLI::App& program) {
    const auto given = std::make_shared<Arguments>();
    CLI::App* app = program.add_subcommand(
        "plain", "Copies a store to an ordinary SQLite file without a password, for R, Python and the like.");
    app->add_option("FILE", given->file, "the store file; a session may be at work on it")->required();
    app->add_option("COPY", given->copy, "the file to make; an existing one is not replaced")->required();
    app->footer(
        "The copy holds all tables as they stood at one moment. Whoever has it can read it.\n"
        "Exit status:\n"
        "  0    the copy was made\n"
        "  1    no copy was made; standard error says why");
    return {app, [given] {
                plainCopy::write(given->file, given->copy, progressLine::begin("copying"));
                return 0;
            }};
}

}  // namespace commands
