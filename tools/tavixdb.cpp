// tavixdb: the experimenter's tool for store files.
#include <CLI/CLI.hpp>
#include <iostream>

#include "tools/createStore.h"

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
        create->add_flag("--force", force, "replace an existing file")};
    app.footer([&ofCreate] {
        return CLI::Formatter{}.make_group("Arguments of create", false, ofCreate) +
               "\nExit status:\n"
               "  0    the store was made\n"
               "  1    nothing was made or replaced; standard error says why, with file, line and column";
    });
    CLI11_PARSE(app, argc, argv);

    const std::vector<std::string> problems = createStore::create(tables, file, force);
    for (const std::string& problem : problems) std::cerr << problem << '\n';
    return problems.empty() ? 0 : 1;
}
