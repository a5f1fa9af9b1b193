// All forms bound to what they run.
#pragma once

namespace wiring {

/// Designs all forms and binds their handlers. A program calls it once, before anything else of the run.
void wireForms();

}  // namespace wiring
