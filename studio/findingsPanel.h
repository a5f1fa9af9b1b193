// What `check` finds in the study, as it is typed: a line each, with a remedy to press where there is one.
#pragma once

#include <QWidget>
#include <functional>

#include "study/finding.h"

namespace findingsPanel {

struct Panel {
    QWidget* widget;
    std::function<void()> refresh;
};

/// `go` brings the cell of a finding into view.
Panel make(const std::function<void(const check::Finding&)>& go);

}  // namespace findingsPanel
