// Where the dataset of a study goes and what goes into it.
#pragma once

#include <QWidget>
#include <optional>

#include "study/exportDataset.h"

namespace exportDialog {

/// Asks, beginning with `offered`; nothing if the person gives up.
std::optional<exportDataset::Request> ask(QWidget* parent, const exportDataset::Request& offered);

}  // namespace exportDialog
