// What follows from a scenario's model: how much each test tells and whether it pays, and the chances of the
// diseases for each pattern of findings.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace chances {

struct Tables {
    std::vector<QWidget*> ofTests;
    std::vector<QWidget*> ofPatterns;
    std::function<void(const std::string& scenario)> show;
};

Tables make();

}  // namespace chances
