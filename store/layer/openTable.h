// The one way into the store and out of it. Every operation, down to a single event of the subject, opens
// the file, works on one record set and closes the file again, so what the subject did is on the disk at
// once. Lock conflicts and open failures are handled here and nowhere else.
#pragma once

#include <string>

#include "store/layer/recordSet.h"

/// Opens a table by its name, or a whole SELECT statement. Returns a record set or ends the program: a lock
/// is retried with a pause that grows, any other failure asks "Retry?". `status` says in that box what the
/// caller was about. `readOnly` gives a snapshot.
RecordSet openTable(const std::string& source, bool readOnly, const std::string& status);

/// Closes the file. What has been updated is on the disk.
void closeDatabase();

namespace store {

/// The password of every store file, a constant of the program.
inline constexpr const char* password = "QrVt_*K*_m";

/// The program's folder and what follows it.
std::string path();

}  // namespace store
