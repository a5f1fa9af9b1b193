#include "study/introText.h"

namespace introText {

namespace {

/// What stands for a byte that no encoding knows.
constexpr std::string_view replacement = "\uFFFD";

}  // namespace

std::vector<Spot> unfit(std::string_view intro) {
    std::vector<Spot> spots;
    for (std::size_t at = 0; at < intro.size(); ++at) {
        if (intro[at] == '\'')
            spots.push_back({at, 1, Kind::Apostrophe});
        else if (intro[at] == '\0')
            spots.push_back({at, 1, Kind::NoText});
        else if (intro.substr(at, replacement.size()) == replacement)
            spots.push_back({at, replacement.size(), Kind::NoText});
    }
    return spots;
}

}  // namespace introText
