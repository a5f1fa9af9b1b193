// How often the main screen is painted: what changes several times between two pictures of a screen is
// painted once.
#pragma once

#include <QWidget>

namespace paintPace {

/// Paints the window at most once in 16 milliseconds. What changes after a longer rest is painted at once.
void limit(QWidget& window);

}  // namespace paintPace
