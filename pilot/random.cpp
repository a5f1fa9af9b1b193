// random: a subject who understands nothing of the task and is busy all the same. Each act is drawn evenly
// among the kinds that the screen offers now, and what it is done to evenly among what there is. It is the
// chance level of a scenario: whatever a policy that thinks gains, it gains over this one.
#include <algorithm>

#include "pilot/policies.h"

namespace policies {

namespace {

constexpr int longestPause = 10'000;  // milliseconds

template <class T>
T oneOf(Chance& chance, const std::vector<T>& list) {
    return list[static_cast<std::size_t>(chance::below(chance, static_cast<int>(list.size())))];
}

/// A part of the diseases, none twice, with beliefs that add up to 100 at most.
std::vector<Belief> anyBeliefs(Chance& chance, std::vector<std::string> diseases) {
    const int rows = 1 + chance::below(chance, static_cast<int>(diseases.size()));
    std::vector<Belief> beliefs;
    int left = 100;
    for (int i = 0; i < rows; ++i) {
        const int place = chance::below(chance, static_cast<int>(diseases.size()));
        const int percent = chance::below(chance, left + 1);
        beliefs.push_back({diseases[static_cast<std::size_t>(place)], percent});
        diseases.erase(diseases.begin() + place);
        left -= percent;
    }
    if (left == 100) beliefs.front().percent = 100;  // none is no judgment
    return beliefs;
}

/// A word of the introduction.
std::string anyWord(Chance& chance, const std::string& text) {
    std::vector<std::string> words;
    std::size_t begin = 0;
    while ((begin = text.find_first_not_of(" \r\n", begin)) != std::string::npos) {
        const std::size_t end = std::min(text.find_first_of(" \r\n", begin), text.size());
        words.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return words.empty() ? std::string() : oneOf(chance, words);
}

Act anyAct(Chance& chance, const Sight& sight, const std::vector<std::string>& diseases) {
    if (sight.mustDiagnose) return act::diagnose(anyBeliefs(chance, diseases));
    std::vector<int> tests;
    for (std::size_t i = 0; i < sight.tests.size(); ++i) {
        if (sight.tests[i].canIssue) tests.push_back(static_cast<int>(i));
    }
    std::vector<Act::Kind> kinds{Act::Kind::Wait};
    const std::string word = anyWord(chance, sight.introduction);
    if (!word.empty()) kinds.push_back(Act::Kind::Note);
    if (!tests.empty()) kinds.push_back(Act::Kind::Issue);
    if (sight.canDiagnose) kinds.push_back(Act::Kind::Diagnose);
    if (sight.canPrescribe && !sight.treatments.empty()) kinds.push_back(Act::Kind::Prescribe);
    switch (oneOf(chance, kinds)) {
        case Act::Kind::Note: return act::note(word);
        case Act::Kind::Issue: return act::issue(oneOf(chance, tests));
        case Act::Kind::Diagnose: return act::diagnose(anyBeliefs(chance, diseases));
        case Act::Kind::Prescribe:
            return act::prescribe(chance::below(chance, static_cast<int>(sight.treatments.size())));
        case Act::Kind::Wait: break;
    }
    return act::wait(chance::below(chance, longestPause));
}

}  // namespace

Mind random(const Briefing& briefing) {
    return [chance = briefing.chance, diseases = briefing.task.diseases](const Sight& sight) mutable {
        return anyAct(chance, sight, diseases);
    };
}

}  // namespace policies
