// One line of a script taken apart.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct CommandLine {
    std::string command;  ///< empty for a line that holds nothing but blanks or a comment
    std::vector<std::string> arguments;
    std::string written;              ///< the line, without its comment
    std::vector<std::size_t> starts;  ///< of the arguments in it
    bool unclosed = false;            ///< a double quote without its partner

    /// The last argument of a command that takes `count`: more words, unquoted, belong to it, as written. So
    /// a text at the end of a line needs no quotes.
    [[nodiscard]] std::string lastOf(std::size_t count) const;
};

/// Words are parted by blanks; double quotes keep blanks, with \" and \\ and \n inside (and \r); # outside
/// of quotes begins a comment.
CommandLine parseCommand(std::string_view line);
