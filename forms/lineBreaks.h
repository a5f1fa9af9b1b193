// Line breaks. A text holds one as carriage return and line feed; for whoever looks at the text, moves in it
// or erases from it, the two are one. Positions count characters.
#pragma once

#include <string>

namespace lineBreaks {

/// The text as it is seen, with a line feed for each break.
std::string seen(const std::string& text);
/// The text as it is held, from one with breaks of any kind: a carriage return, a line feed or both, and the
/// separators of lines and paragraphs, which come along with text from web pages.
std::string held(const std::string& given);

/// A position in the text as it is held, as one in the text as it is seen: the midst of a break counts as its
/// end.
int seenPosition(const std::string& text, int position);
/// The way back. `text` is the text as it is held; what lies behind its end is its end.
int heldPosition(const std::string& text, int seenPosition);

/// Length of what stands before a position: 2 for a break, 1 for any other character, 0 at the start.
int lengthBefore(const std::string& text, int position);

/// Whether the position lies between the two halves of a break.
bool isInside(const std::string& text, int position);

}  // namespace lineBreaks
