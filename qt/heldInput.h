// What a person does while an operation waits for the store. Timers go on, but a press or a key would begin a
// second operation in the midst of the first: two rows of one subject. So it is kept, and delivered in its
// order when the operation has returned. A box or dialog that comes up meanwhile takes its own input at once,
// and the main screen can be closed.
#pragma once

namespace heldInput {

/// Watches the desktop's input from now on.
void enforce();

/// Gives way to waiting events once, the person's input left aside.
void yield();

}  // namespace heldInput
