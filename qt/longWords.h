// How the lines of a text area break. A word that fits no line is broken too, but the toolkit looks for that
// place from the word's start for each line: the time grows with the square of the word's length, and one of
// a million characters holds the program for minutes.
#pragma once

#include <QPlainTextEdit>

namespace longWords {

/// From now on the area breaks lines between words or, where one of its words has thousands of characters,
/// anywhere. That is settled with each change, however it comes, before anything is laid out.
void watch(QPlainTextEdit& area);

}  // namespace longWords
