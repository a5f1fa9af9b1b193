// What a program that holds the rows of people does first: the files that it makes are nobody else's to read,
// and when it crashes, its memory is not left in one.
#pragma once

namespace privacy {

/// From here on files and folders are made without permissions for others than owner and group; what the
/// group gets stays the choice of whoever set up the account. A crash leaves no core file, and none to the
/// system's collector of crashes. Programs that are started from here inherit both. Whoever looks for a fault
/// lifts the limit from outside: prlimit --core=unlimited --pid N.
void begin();

}  // namespace privacy
