// How the lines of a text area break. A word that fits no line is broken too, but the toolkit looks for that
// place from the word's start for each line: the time grows with the square of the word's length, and one of
// a million characters holds the program for minutes.
#pragma once

#include <QPlainTextEdit>
#include <QString>

namespace longWords {

/// Breaks lines between words or, where one of the text's words has thousands of characters, anywhere. To be
/// called before the area gets the text.
void setWrapping(QPlainTextEdit& area, const QString& text);

}  // namespace longWords
