// What `check` finds in a study: how bad it is, where it stands, and what it does to a session.
#pragma once

#include <string>

namespace check {

enum class Grade {
    Error,    ///< a session would end or misbehave
    Warning,  ///< legal, rarely meant
    Note,
};

struct Finding {
    Grade grade;
    std::string table;
    int row;             ///< from 1, as the table delivers its rows; 0 where it belongs to no row
    std::string column;  ///< empty where it belongs to no column
    std::string text;    ///< what is wrong, and what it does to a session

    bool operator==(const Finding&) const = default;
};

}  // namespace check
