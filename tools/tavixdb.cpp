// tavixdb: the experimenter's tool for store files.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "tools/createStore.h"

namespace {

constexpr std::size_t mostProblems = 20;  // shown one by one; one wrong column complains about every row

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"Makes store files for Tavix."};
    app.require_subcommand(1);
    CLI::App* create = app.add_subcommand("create", "Makes a store file from a folder of CSV tables.");
    std::string tables;
    std::string file;
    bool force = false;
    const std::vector<const CLI::Option*> ofCreate{
        create->add_option("TABLES", tables, "folder of CSV files named after the tables")->required(),
        create->add_option("FILE", file, "the store file to make")->required(),
        create->add_flag("--force", force, "replace an existing file; its owner and permissions stay")};
    app.footer([&ofCreate] {
        return CLI::Formatter{}.make_group("Arguments of create", false, ofCreate) +
               "\nExit status:\n"
               "  0    the store was made; standard error notes what was left out\n"
               "  1    nothing was made or replaced; standard error says why, with file, line and column";
    });
    CLI11_PARSE(app, argc, argv);

    const auto [problems, notes] = createStore::create(tables, file, force);
    for (const std::string& note : notes) std::cerr << "note: " << note << '\n';
    const std::size_t shown = std::min(problems.size(), mostProblems);
    for (std::size_t i = 0; i < shown; ++i) std::cerr << problems[i] << '\n';
    if (shown < problems.size()) std::cerr << "and " << problems.size() - shown << " more\n";
    return problems.empty() ? 0 : 1;
}
