// The figures of simulated subjects as plots: survival of patients, causes of end, scores.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "study/pilotFigures.h"

namespace pilotPlots {

struct Plots {
    QWidget* widget;
    std::function<void(const std::vector<pilotFigures::Outcome>&)> show;
};

Plots make();

}  // namespace pilotPlots
