// A program that runs for this one alone: it is asked to end when this one ends, in whatever way.
#pragma once

namespace companion {

/// For the new process, before its program begins: from now on it gets SIGTERM when the one that made it
/// ends.
void endWithMaker();

/// Whether a process of that number runs.
bool isRunning(long process);

/// The number of this one.
long ownNumber();

}  // namespace companion
