// The one way into the store. Every operation, down to a single event of the subject, opens the file, works
// on one record set and closes the file again, so what the subject did is on the disk at once. Lock
// conflicts and open failures are handled here and nowhere else.
#pragma once

#include <string>

#include "store/layer/database.h"
#include "store/layer/recordSet.h"

/// Opens a table by its name, or a whole SELECT statement. Returns a record set or ends the program: a lock
/// is retried with a pause that grows, any other failure asks "Retry?". `status` says in that box what the
/// caller was about. `readOnly` gives a snapshot. The file stays open for as long as the set lives: a caller
/// that has a box to show lets the set go first.
RecordSet openTable(const std::string& source, bool readOnly, const std::string& status);
