// What the window adds to the look of the programs: tables, trees, sliders and sentences of help.
#pragma once

#include <QString>

namespace sheet {

/// The style sheet of the window, in the colours in use.
QString text();

}  // namespace sheet
