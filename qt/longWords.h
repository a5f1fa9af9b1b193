// How the lines of a text area break. A word that fits no line is broken too, but the toolkit looks for that
// place from the word's start for each line: the time grows with the square of the word's length, and one of
// a million characters holds the program for minutes.
#pragma once

#include <QPlainTextEdit>
#include <QString>

namespace longWords {

/// Breaks lines between words or, where one of the text's words has thousands of characters, anywhere: for a
/// text that stands in the area. It lays that out anew.
void setWrapping(QPlainTextEdit& area, const QString& text);

/// Puts the text into the area. Neither it nor the one that stood there before is laid out in a way that does
/// not suit it.
void setText(QPlainTextEdit& area, const QString& text);

}  // namespace longWords
