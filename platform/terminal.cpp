#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace terminal {

bool showsOutput() { return ::isatty(STDOUT_FILENO) == 1; }
bool showsErrors() { return ::isatty(STDERR_FILENO) == 1; }

int lines() {
    struct winsize size {};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 ? size.ws_row : 24;
}

}  // namespace terminal
