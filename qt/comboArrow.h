// The arrow of a combo box, which the style sheet leaves bare: drawn sharp at every scale.
#pragma once

#include <QComboBox>

namespace comboArrow {

/// Where the text stands; the arrow has what is right of it.
QRect fieldOf(const QComboBox& box);

/// Puts an arrow on the box, which keeps its place when the box changes its size.
void add(QComboBox* box);

}  // namespace comboArrow
