// Introductions as an editor saves them: bytes of some encoding become a text, what a note of it may not hold
// is found, and the text falls apart into characters and comes together again.
#include "study/introText.h"

#include <string_view>

#include "platform/text.h"
#include "tests/fuzz/frame.h"

namespace {

void holdSpots(const std::string& intro) {
    std::string rest;
    std::size_t from = 0;
    for (const introText::Spot& spot : introText::unfit(intro)) {
        fuzz::hold(spot.at >= from && spot.at + spot.length <= intro.size(), "spots stand in order");
        const std::string_view held = std::string_view(intro).substr(spot.at, spot.length);
        const bool apostrophe = spot.kind == introText::Kind::Apostrophe;
        fuzz::hold(apostrophe ? held == "'" : held == std::string_view("\0", 1) || held == "\uFFFD",
                   "a spot is of its kind");
        rest.append(intro, from, spot.at - from);
        from = spot.at + spot.length;
    }
    rest.append(intro, from);
    fuzz::hold(introText::unfit(rest).empty(), "without its spots a text is fit");
}

void holdCharacters(const std::string& intro) {
    const int length = std::min(text::length(intro), 100);
    std::string whole;
    for (int i = 0; i < length; ++i) {
        const std::string character = text::mid(intro, i, 1);
        whole += character;
        fuzz::hold(text::fromCode(text::codeOf(character)) == character, "a code gives its character");
        const std::string folded = text::folded(character);
        for (const std::string& spelling : text::spellings(character))
            fuzz::hold(text::folded(spelling) == folded, "\"" + spelling + "\" folds as it is said to");
    }
    fuzz::hold(text::left(intro, length) == whole, "a text is its characters");
    fuzz::hold(text::folded(text::folded(intro)) == text::folded(intro), "what is folded stays");
}

}  // namespace

void fuzz::tryInput(const std::string& input) {
    const std::string intro = text::fromFileBytes(input);
    hold(text::isUtf8(intro), "what is read from a file is UTF-8");
    if (text::isUtf8(input)) hold(input.ends_with(intro), "what is UTF-8 is left alone");
    hold(text::fromFileBytes(intro) == intro, "what was read is read the same way");
    holdSpots(intro);
    holdCharacters(intro);
}
