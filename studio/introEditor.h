// The introduction of a person, written in the window: it goes into a file of Patients/ with each key, and
// what a note of it may not hold is marked.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

namespace introEditor {

struct Editor {
    QWidget* widget;
    QWidget* field;  ///< takes the focus
    std::function<void()> refresh;
};

/// `person` is the row of tblPatients that is shown, if any.
Editor make(const std::function<std::optional<int>()>& person);

}  // namespace introEditor
