// The subcommands of tavixdb, each in a file of its own: its arguments, and what it prints. What a command
// does stands in study/, where a window can use it too.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <vector>

#include "study/check.h"

namespace commands {

struct Command {
    CLI::App* app;             ///< its arguments, with their help
    std::function<int()> run;  ///< the exit status
};

/// The exit status of a call that cannot be understood.
constexpr int wrongCall = 3;

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

/// Looks a whole study through.
Command check(CLI::App& program);

/// What the look at a study found, a line each, on standard output.
void printFindings(const std::vector<check::Finding>& findings);

/// Writes a page with plots and tables of the results.
Command report(CLI::App& program);

/// Writes the results of a store as a dataset.
Command exportData(CLI::App& program);

}  // namespace commands
