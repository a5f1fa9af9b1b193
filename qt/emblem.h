// The program's emblem, drawn: a trace of health on a round ground.
#pragma once

#include <QIcon>
#include <QPainter>

namespace emblem {

/// Fills `area` with the emblem.
void paint(QPainter& painter, const QRectF& area);

/// The icon of the program's windows.
QIcon icon();

}  // namespace emblem
