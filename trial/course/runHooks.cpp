#include "trial/course/runHooks.h"

#include "platform/fault.h"

RunHooks& runHooks() {
    static RunHooks hooks;
    return hooks;
}

void runHook(const RunHook& hook) {
    if (!hook.action) raiseFault(FaultNumber::InvalidCall, std::string("nothing is bound to ") + hook.name);
    hook.action();
}
