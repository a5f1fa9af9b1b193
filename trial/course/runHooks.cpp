#include "trial/course/runHooks.h"

RunHooks& runHooks() {
    static RunHooks hooks;
    return hooks;
}

void runHook(const std::function<void()>& hook) {
    if (hook) hook();
}
