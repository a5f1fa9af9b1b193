// Lists of words as an order of words is stored: what was dealt comes back, blanks around a comma aside.
#include <algorithm>

#include "knowledge/termOrders.h"
#include "platform/text.h"
#include "tests/fuzz/frame.h"

void fuzz::tryInput(const std::string& input) {
    const List<std::string> terms = termOrders::parseTermList(input);
    const auto commas = static_cast<std::size_t>(std::ranges::count(input, ','));
    hold(terms.items.size() == commas + 1, "a list has an item more than it has commas");
    if (commas == 0) return hold(terms.items[0] == input, "a list of one item is taken as it stands");
    std::string plain;
    std::string airy;
    for (const std::string& term : terms.items) {
        hold(text::trim(term) == term && term.find(',') == std::string::npos, "an item is trimmed: " + term);
        plain += (plain.empty() && airy.empty() ? "" : ",") + term;
        airy += (airy.empty() ? " " : " ,  ") + term;
    }
    hold(termOrders::parseTermList(plain).items == terms.items, "what is joined comes back: " + plain);
    hold(termOrders::parseTermList(airy).items == terms.items, "blanks do not count: " + airy);
}
