#include "platform/privacy.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>

namespace privacy {

void begin() {
    ::umask(::umask(S_IRWXO) | S_IRWXO);
    rlimit core{};
    if (::getrlimit(RLIMIT_CORE, &core) != 0) return;
    // A limit of nothing would do for files only. One byte is the kernel's sign that a program which collects
    // crashes gets nothing either. To forbid looking into the process at all (PR_SET_DUMPABLE) would take the
    // desktop's settings from it: their service looks at who asks.
    core.rlim_cur = std::min<rlim_t>(core.rlim_max, 1);
    static_cast<void>(::setrlimit(RLIMIT_CORE, &core));
}

}  // namespace privacy
