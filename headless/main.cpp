// tavix-headless: the whole program without a screen, played by a script in virtual time. The same seed,
// clock and script give the same output and the same rows.
#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>

#include "headless/commands.h"
#include "headless/player.h"
#include "platform/files.h"
#include "platform/privacy.h"

int main(int argc, char** argv) {
    privacy::begin();
    CLI::App app{"Plays Tavix without a screen, by a script and in virtual time."};
    scriptedHost::Start options{files::folderOfProgram(), "2026-01-05 09:30:00"};
    std::uint64_t seed = 1;
    std::string scriptFile;
    app.add_option("--folder", options.folder, "the program's folder, with data and Patients in it");
    app.add_option("--seed", seed, "first state of the random source");
    app.add_option("--now", options.now, "date and time at the start");
    app.add_option("SCRIPT", scriptFile, "the script; without it standard input is read");
    app.footer("Commands of a script:\n" + commands::help() +
               "\n"
               "A script has a command a line; # begins a comment, an argument with blanks stands in double\n"
               "quotes. CONTROL is frmTavix.cmdIssue, or frmTavix.optTest(0) where there are several.\n"
               "\n"
               "Exit status:\n"
               "  0    played to the end\n"
               "  1    a line could not be carried out, or an expectation failed; standard error names it\n"
               "  3    the program ended by a run-time error, which stands on standard error");
    CLI11_PARSE(app, argc, argv);

    if (scriptFile.empty()) return player::playSession(player::linesOf(std::cin), options, seed);
    std::ifstream script(scriptFile);
    if (!script) {
        std::cerr << scriptFile << ": cannot be read\n";
        return 1;
    }
    return player::playSession(player::linesOf(script), options, seed);
}
