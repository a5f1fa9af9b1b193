// Texts that somebody gave, as names of scenarios, subjects and files, on the pages of the window: shown as
// they are typed, whatever signs are in them, and never wider than there is room.
#pragma once

#include <QLabel>
#include <QString>
#include <string>

namespace givenText {

/// Makes the label show its text as it is and break it into lines; it asks for no width.
void tame(QLabel& label);

/// A title that holds a name. It takes the room that is left beside it.
QLabel* title();
void setTitle(QLabel& title, const std::string& name);

/// A text within a sentence: of a long one the beginning.
QString shortened(const QString& text);

}  // namespace givenText
