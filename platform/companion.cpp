#include "platform/companion.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace companion {

void endWithMaker() { ::prctl(PR_SET_PDEATHSIG, SIGTERM); }

bool isRunning(long process) { return ::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM; }

long ownNumber() { return ::getpid(); }

}  // namespace companion
