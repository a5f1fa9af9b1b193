// Looks a whole study through before its first subject: the program itself takes the tables as they are, and
// what does not fit ends a session or spoils it. The rules stand by table in the files check*.cpp.
#pragma once

#include <string>
#include <vector>

#include "study/checkStudy.h"

namespace check {

/// The folder above `data/` in which a store stands, or the folder of the store if that has the patients;
/// empty for a store that stands elsewhere.
std::string folderOf(const std::string& file);

/// Reads the store and the files in `folder`/Patients. An empty folder leaves those files out, with a note.
/// Findings stand in the order of tables and rows. Throws std::runtime_error for a file that cannot be read.
std::vector<Finding> look(const std::string& file, const std::string& folder);

/// The same for a study that is in memory.
std::vector<Finding> look(Study study);

/// "error", "warning" or "note".
const char* wordFor(Grade grade);

/// A line for people: grade, table, row, column, text.
std::string lineOf(const Finding& finding);

/// All findings for programs, as one JSON object.
std::string jsonOf(const std::vector<Finding>& findings);

}  // namespace check
