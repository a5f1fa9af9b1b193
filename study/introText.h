// What in an introduction a note of it may not hold: an apostrophe, which breaks the question to the store
// when the note is removed, and bytes that are no text.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace introText {

enum class Kind { Apostrophe, NoText };

struct Spot {
    std::size_t at;  ///< byte of the text
    std::size_t length;
    Kind kind;
};

/// All such spots of a text in UTF-8, in its order.
std::vector<Spot> unfit(std::string_view intro);

}  // namespace introText
