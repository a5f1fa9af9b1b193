// A toolkit application without a display, on the screen that all tests share, in the light look.
#pragma once

namespace offscreen {

/// Begins the application; the second call does nothing. It is never ended, so that windows may outlive the
/// tests.
void begin();

}  // namespace offscreen
