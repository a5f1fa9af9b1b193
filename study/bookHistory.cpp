#include "study/bookHistory.h"

#include <utility>

namespace bookHistory {

namespace {

constexpr std::size_t mostSteps = 1000;

bool move(History& history, std::vector<Step>& from, std::vector<Step>& to) {
    if (from.empty()) return false;
    Step step = std::move(from.back());
    from.pop_back();
    std::swap(step.before, history.now);
    step.of.clear();
    to.push_back(std::move(step));
    return true;
}

}  // namespace

History begin(book::Book opened) {
    History history;
    history.saved = opened;
    history.now = std::move(opened);
    return history;
}

bool take(History& history, book::Book next, const std::string& what, const std::string& of) {
    if (book::same(history.now, next)) return false;
    const bool goesOn = !of.empty() && !history.past.empty() && history.past.back().of == of;
    if (!goesOn) history.past.push_back({history.now, what, of});
    if (history.past.size() > mostSteps) history.past.erase(history.past.begin());
    history.now = std::move(next);
    history.future.clear();
    return true;
}

void part(History& history) {
    if (!history.past.empty()) history.past.back().of.clear();
}

bool undo(History& history) { return move(history, history.past, history.future); }
bool redo(History& history) { return move(history, history.future, history.past); }

bool isChanged(const History& history) { return !book::same(history.now, history.saved); }

}  // namespace bookHistory
