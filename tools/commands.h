// The subcommands of tavixdb, each in a file of its own: its arguments, and what it prints. What a command
// does stands in study/, where a window can use it too.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace commands {

struct Command {
    CLI::App* app;             ///< its arguments, with their help
    std::function<int()> run;  ///< the exit status
};

/// Makes a store file from a folder of CSV tables.
Command create(CLI::App& program);

/// Writes the configuration tables of a store as CSV files.
Command tables(CLI::App& program);

/// Replaces configuration tables in a store that holds results.
Command update(CLI::App& program);

/// Shows how far a study has come, once or again and again.
Command status(CLI::App& program);

/// Copies a store to an ordinary file without a password.
Command plain(CLI::App& program);

/// Adds the subjects of several stores to one.
Command merge(CLI::App& program);

}  // namespace commands
