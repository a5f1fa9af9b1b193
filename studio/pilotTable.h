// The figures of simulated subjects in numbers: all that the plots show, a column for each policy.
#pragma once

#include <QTableWidget>
#include <vector>

#include "study/pilotFigures.h"

namespace pilotTable {

QTableWidget* make();

void show(QTableWidget& table, const std::vector<pilotFigures::Outcome>& outcomes);

}  // namespace pilotTable
