// A press that changes nothing in sight is seen all the same: its button stays dark for a moment, whatever
// has come of it, and whether it was pressed by mouse or by key.
#pragma once

namespace pressEcho {

/// From now on, for the buttons whose look asks for it. Needs the windows built.
void begin();

}  // namespace pressEcho
