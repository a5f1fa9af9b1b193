// The dial of a scenario's clock: where it starts, where it is planned to end, and where the time limit
// really falls.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

namespace clockFace {

struct Face {
    QWidget* widget;
    std::function<void(const std::string& scenario)> show;
};

Face make();

}  // namespace clockFace
