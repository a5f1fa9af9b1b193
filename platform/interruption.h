// Ctrl-C, and the same wish from a batch system: long work ends at the next place where what is finished is
// whole.
#pragma once

namespace interruption {

/// From here on SIGINT and SIGTERM are noted and do not end the program.
void watch();

/// Whether one has come.
bool came();

}  // namespace interruption
