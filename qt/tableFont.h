// Fonts of the fixed-width tables: as large as designed, and small enough for their longest line.
#pragma once

#include <QFont>

#include "forms/control.h"

namespace tableFont {

/// The font at which the control's text fits into `width` pixels. The tables of the tests page share one
/// size, and their header steps by 15 characters where the rows step by 18: it is set larger by as much, so
/// that the words stand over their columns.
QFont of(const Control& control, int width);

}  // namespace tableFont
