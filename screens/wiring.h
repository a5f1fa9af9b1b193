// What a press of a button, a tick of a timer or a key runs: every event of every control that is handled
// is bound here, and so are the hooks of the run.
#pragma once

namespace wiring {

/// Puts the run back to its start and binds all forms. A program calls it before anything else of the run,
/// and fills `host()` after it.
void wireForms();

}  // namespace wiring
