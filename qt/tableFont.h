// Fonts of lists: as large as designed, and small enough for their longest line.
#pragma once

#include <QFont>

#include "forms/control.h"

namespace tableFont {

/// The font at which the control's lines fit into `width` pixels.
QFont of(const Control& control, int width);

/// The font at which the items of a combo box and of the others in its array fit into `width` pixels: their
/// lists are parts of one, and one size serves all.
QFont ofChoices(const Control& control, int width);

}  // namespace tableFont
