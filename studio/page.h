// A page of the window: its widget, and what the window asks of it.
#pragma once

#include <QWidget>
#include <functional>

#include "study/finding.h"

struct Page {
    QWidget* widget;
    /// Shows the study as it is now; cheap where nothing has changed.
    std::function<void()> refresh;
    /// Brings the cell of a finding into view and gives it the focus; false where it is not on this page.
    std::function<bool(const check::Finding&)> show;
};
