// Reading statements of a script, answered as CSV.
#pragma once

#include <string>

namespace sqlText {

/// A header and the rows of the statement, one a line. Throws Refused for a statement that fails.
std::string rows(const std::string& statement);

}  // namespace sqlText
