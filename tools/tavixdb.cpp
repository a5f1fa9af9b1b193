// tavixdb: the program of those who make a study and take its data out.
#include <iostream>
#include <vector>

#include "platform/privacy.h"
#include "tools/commands.h"

int main(int argc, char** argv) {
    privacy::begin();
    CLI::App app{"Makes store files for Tavix, shows how a study goes on, and takes its data out."};
    app.require_subcommand(1);
    app.set_help_all_flag("--help-all", "Print the help of every command and exit");
    const std::vector<commands::Command> all{
        commands::create(app), commands::tables(app), commands::update(app),
        commands::check(app),  commands::status(app), commands::exportData(app),
        commands::plain(app),  commands::merge(app),  commands::report(app),
    };
    app.footer("tavixdb COMMAND --help tells the arguments of a command.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : commands::wrongCall;
    }
    for (const commands::Command& command : all) {
        if (!command.app->parsed()) continue;
        try {
            return command.run();
        } catch (const std::exception& error) {
            std::cerr << error.what() << '\n';
            return 1;
        }
    }
    return 1;
}
