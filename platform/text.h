// Texts are UTF-8. Lengths and positions count characters, not bytes, so that a limit of 99 characters
// means the same to a subject who writes accents.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace text {

/// Number of characters.
int length(std::string_view source);

/// The first `count` characters, or all of a shorter text. A negative count faults (Invalid procedure call).
std::string left(std::string_view source, int count);

/// From the 0-based character `start`, at most `count` characters.
std::string mid(std::string_view source, int start, int count = 0x7fffffff);

/// `count` blanks; a negative count faults (Invalid procedure call).
std::string blanks(int count);

/// Without the blanks at both ends; tabs and line breaks stay.
std::string trim(std::string_view source);

/// The form in which names and the store's texts compare: each letter, accented ones too, by Unicode's simple
/// case folding. The table comes with the program's libraries, so that every station folds alike.
std::string folded(std::string_view source);

/// Every character that folds as this one does, the character itself among them: k, K and the sign of kelvin.
std::vector<std::string> spellings(std::string_view character);

/// A character as text, and the code of the first character of a text that is not empty.
std::string fromCode(char32_t code);
char32_t codeOf(std::string_view character);

/// Whether the bytes are whole UTF-8 characters.
bool isUtf8(std::string_view bytes);

/// The bytes of a file as UTF-8: byte-order marks at the start go, and a file that is no UTF-8 is read as
/// Windows-1252, the other encoding in which editors and spreadsheets save. A byte that has no sign there
/// becomes the replacement character.
std::string fromFileBytes(std::string_view bytes);

/// The line end at or behind the byte offset `at`: where the line's text stops, and where the next line
/// begins. A carriage return, a line feed and both together are one line end each.
struct LineEnd {
    std::size_t end;
    std::size_t next;
};
LineEnd lineEnd(std::string_view source, std::size_t at);

/// Byte offset of the 0-based character `index`, or the size of a shorter text.
std::size_t byteOffset(std::string_view source, int index);

}  // namespace text
