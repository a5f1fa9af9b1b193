// The figures of simulated subjects as plots: survival of patients, causes of end, scores.
#pragma once

#include <QScrollArea>
#include <QWidget>
#include <functional>
#include <vector>

#include "study/pilotFigures.h"

namespace pilotPlots {

struct Plots {
    QWidget* widget;
    std::function<void(const std::vector<pilotFigures::Outcome>&)> show;
};

/// `area` is the page on which they will stand.
Plots make(QScrollArea& area);

}  // namespace pilotPlots
