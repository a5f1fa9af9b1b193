// Whether the desktop asks for dark windows.
#pragma once

namespace desktopTheme {

/// By the desktop's setting where it offers one, otherwise by the colours that the toolkit was given.
bool isDark();

}  // namespace desktopTheme
