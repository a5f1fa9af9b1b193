// Single cells of a study on a page: a line, a tick box, a slider or a list to choose from, each bound to one
// cell. What is typed goes into the study with each key; what the column cannot hold is said beside it.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "study/book.h"

namespace fields {

/// The cell of the moment; nothing while there is none, and then the field is disabled.
using Where = std::function<std::optional<book::Place>()>;

struct Field {
    QWidget* widget;  ///< takes the focus
    Where where;
    std::function<void()> refresh;
};

struct Words {
    QString name;  ///< caption; also for screen readers
    QString help;  ///< a sentence
};

/// The words for a column: its caption, and the sentence that stands in the documents too.
Words wordsOf(const std::string& table, const std::string& column, const QString& caption);

Field line(const Where& where, const Words& words);
Field tick(const Where& where, const Words& words);
/// Whole numbers from `least` to `most`, with the value beside the slider.
Field slider(const Where& where, const Words& words, int least, int most);
/// One of these texts, or another that is typed.
Field choice(const Where& where, const Words& words, const std::function<QStringList()>& items);

struct Choice {
    QString value;  ///< as the cell holds it
    QString name;
};

/// One of these values, by its name; a value that has none is shown as it stands.
Field named(const Where& where, const Words& words, const std::vector<Choice>& choices);

/// A wheel that passes over a field scrolls the page and does not change the study.
void passWheelOn(QWidget* widget);

/// "Undo" and "Redo" are those of the study, not some of the editor's own.
void leaveUndoToStudy(QWidget& editor);

/// Where the message of a field that cannot be taken is shown.
void tellProblemsTo(std::function<void(const QString&)> told);
void tellProblem(const QString& text);

}  // namespace fields
