#include "forms/lineBreaks.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/text.h"

namespace lineBreaks {

namespace {

constexpr const char* lineBreak = "\r\n";
constexpr int breakLength = 2;
/// What comes in as a break: the toolkit's text area takes each of them as one.
constexpr std::array<std::string_view, 5> breaks{lineBreak, "\r", "\n", "\u2028", "\u2029"};

std::string replaceAll(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
        text.replace(at, what.size(), by);
    }
    return text;
}

}  // namespace

std::string seen(const std::string& text) { return replaceAll(text, lineBreak, "\n"); }

std::string held(const std::string& given) {
    std::string result;
    for (std::string_view rest = given; !rest.empty();) {
        const auto* const found = std::find_if(breaks.begin(), breaks.end(),
                                               [&](std::string_view each) { return rest.starts_with(each); });
        result += found == breaks.end() ? rest.substr(0, 1) : lineBreak;
        rest.remove_prefix(found == breaks.end() ? 1 : found->size());
    }
    return result;
}

int seenPosition(const std::string& text, int position) {
    return text::length(seen(text::left(text, position + (isInside(text, position) ? 1 : 0))));
}

int heldPosition(const std::string& text, int seenPosition) {
    std::size_t at = 0;
    for (int i = 0; i < seenPosition && at < text.size(); ++i) {
        const bool isBreak = text.compare(at, breakLength, lineBreak) == 0;
        at += isBreak ? breakLength : text::byteOffset(std::string_view(text).substr(at), 1);
    }
    return text::length(std::string_view(text).substr(0, at));
}

int lengthBefore(const std::string& text, int position) {
    if (position <= 0) return 0;
    return position >= breakLength && isInside(text, position - 1) ? breakLength : 1;
}

bool isInside(const std::string& text, int position) {
    return position > 0 && text::mid(text, position - 1, breakLength) == lineBreak;
}

}  // namespace lineBreaks
