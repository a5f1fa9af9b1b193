#include "stage/openBoxes.h"

#include "forms/windows.h"

namespace openBoxes {

namespace {

std::vector<OpenBox>& boxes() {
    static std::vector<OpenBox> stack;
    return stack;
}

}  // namespace

void open(const MessageBox& box) {
    boxes().push_back({box, std::nullopt});
    windows::openBox();
}

OpenBox* newest() { return boxes().empty() ? nullptr : &boxes().back(); }

void close() {
    boxes().pop_back();
    windows::closeBox();
}

std::vector<std::string> buttonsOf(const MessageBox& box) {
    if (box.buttons == Buttons::Ok) return {"OK"};
    return {"Yes", "No"};
}

std::optional<Answer> answerNamed(const std::string& name) {
    if (name == "OK") return Answer::Ok;
    if (name == "Yes") return Answer::Yes;
    if (name == "No") return Answer::No;
    return std::nullopt;
}

}  // namespace openBoxes
