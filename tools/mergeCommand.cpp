#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "platform/progressLine.h"
#include "study/mergeStores.h"
#include "tools/commands.h"

namespace commands {

namespace {

struct Arguments {
    std::vector<std::string> files;
    std::string into;
    bool simulatedToo = false;
};

int run(const Arguments& arguments) {
    const auto [problems, notes] = mergeStores::merge(arguments.files, arguments.into, arguments.simulatedToo,
                                                      progressLine::begin("merging"));
    for (const std::string& note : notes) std::cout << note << '\n';
    for (const std::string& problem : problems) std::cerr << problem << '\n';
    return problems.empty() ? 0 : 1;
}

}  // namespace

Command merge(CLI::App& program) {
    const auto given = std::make_shared<Arguments>();
    CLI::App* app =
        program.add_subcommand("merge", "Adds the subjects of several stations' stores to one store.");
    app->add_option("FILE", given->files, "the stores to read; sessions may be at work on them")->required();
    app->add_option(
           "--into", given->into,
           "the store that grows, while nobody plays on it; a new one begins as a copy of the first FILE")
        ->required()
        ->option_text("STORE");
    app->add_flag("--simulated-too", given->simulatedToo,
                  "make stores of simulated subjects one with stores of people");
    app->footer(
        "Subjects whose rows stand there already, row for row, are left out. A subject with other rows than\n"
        "there, two subjects with the same identifiers, another configuration, or simulated\n"
        "subjects beside people refuse the whole.\n"
        "Exit status:\n"
        "  0    the stores were merged; what came from each is printed\n"
        "  1    nothing was changed; standard error says why, with files, subjects and tables");
    return {app, [given] { return run(*given); }};
}

}  // namespace commands
