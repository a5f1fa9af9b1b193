// What the desktop's accessibility interface is told of option buttons. The toolkit calls a button an option
// only if it excludes its siblings by itself; ours leave that to the records and would be called tick boxes.
#pragma once

namespace radioSpeech {

/// From now on, for all option buttons.
void begin();

}  // namespace radioSpeech
