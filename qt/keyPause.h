// Keys and what comes up by itself: a person who is typing has not seen it yet. A window or button for which
// a pause has begun takes keys only after half a second in which no key was down; every key before that is
// dropped and begins the half second anew. The pointer counts at once. It is a rule of the desktop's own
// keys: what is sent to a widget directly is none of them.
#pragma once

#include <QKeyEvent>
#include <QWidget>

namespace keyPause {

/// Watches the desktop's keys from now on.
void enforce();

/// The pause of a window, or of a button for as long as it has the focus, begins now.
void begin(QWidget& widget);

/// The buttons that are on show pause once more: nothing stands before them from now on.
void beginAgain();

/// No pause any more: the person has asked for this window.
void end(QWidget& widget);

/// Whether a key press comes of a key that has been down for a while. The toolkit calls some of these presses
/// new when it is busy.
bool isHeldDown(const QKeyEvent& press);

}  // namespace keyPause
