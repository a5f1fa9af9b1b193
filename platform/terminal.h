// The terminal at which a tool was started, if it was.
#pragma once

namespace terminal {

/// Whether standard output, or standard error, is a terminal and no file or pipe.
bool showsOutput();
bool showsErrors();

/// Lines of the terminal of standard output; 24 where nobody knows.
int lines();

}  // namespace terminal
