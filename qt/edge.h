// The edge of a handler: no fault crosses a frame of the toolkit. It is reported and ends the program here.
#pragma once

#include <functional>

#include "platform/fault.h"

namespace edge {

/// How a fault is reported before the program ends with status 3; a box on the desktop.
void onFault(std::function<void(const Fault&)> report);

/// Runs what an event sets off.
void run(const std::function<void()>& handler);

}  // namespace edge
