// Message boxes on show in a scripted program, the newest on top.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/host.h"

namespace openBoxes {

struct OpenBox {
    MessageBox box;
    std::optional<Answer> answer;
};

void open(const MessageBox& box);
/// The box on top, or none.
OpenBox* newest();
/// Takes the box on top away.
void close();

/// Names of its buttons as a script gives them.
std::vector<std::string> buttonsOf(const MessageBox& box);
std::optional<Answer> answerNamed(const std::string& name);

}  // namespace openBoxes
