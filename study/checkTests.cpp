#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/numberText.h"
#include "study/checkRules.h"

namespace check {

namespace {

constexpr int dialMinutes = 12 * 60;

/// Who uses a list of lengths.
struct Use {
    std::vector<const Scenario*> scenarios = {};
    int tests = 0;       ///< of the scenario with most
    double planned = 0;  ///< minutes of the shortest scenario
    const Scenario* shortest = nullptr;
};

Use useOf(const Study& study, std::string_view name) {
    const Sheet& options = study.sheet("tblAppDefault");
    Use use;
    for (const Scenario& scenario : study.scenarios) {
        if (!sameName(options.text(scenario.row, "TestLengthSetting"), name)) continue;
        use.scenarios.push_back(&scenario);
        use.tests = std::max(use.tests, std::min(static_cast<int>(scenario.symptoms.size()), mostSymptoms));
        const double planned = 60 * numberText::toNumber(options.text(scenario.row, "Time")) *
                               numberText::toNumber(options.text(scenario.row, "SimRate"));
        if (use.shortest == nullptr || planned < use.planned) {
            use.planned = planned;
            use.shortest = &scenario;
        }
    }
    return use;
}

void judgeLength(Study& study, int row, const Use& use, bool isRead) {
    const Sheet& tests = study.sheet("tblTests");
    if (tests.isEmpty(row, "Length")) {
        study.add(isRead ? Grade::Error : Grade::Warning, tests, row, "Length",
                  isRead ? "The value is empty: the program ends when it reads it." : "The value is empty.");
        return;
    }
    const std::string text = tests.text(row, "Length");
    const double length = numberText::toNumber(text);
    const double rounded = std::nearbyint(length);
    if (isRead && !(std::fabs(rounded) + 59 <= std::numeric_limits<std::int16_t>::max())) {
        study.error(
            tests, row, "Length",
            fmt::format("{} minutes overflow 16 bits: the program ends when the test is issued.", text));
        return;
    }
    if (!numberText::isNumeric(text) || rounded != length)
        study.warn(tests, row, "Length",
                   fmt::format("\"{}\" is no whole number of minutes: the test takes {}.", text, rounded));
    if (length < 0) study.warn(tests, row, "Length", "A test below 0 is back at the next minute.");
    if (length >= dialMinutes) {
        study.warn(
            tests, row, "Length",
            fmt::format("{} minutes are twelve hours or more: on the dial of the clock the result can come "
                        "twelve hours early.",
                        text));
    } else if (isRead && use.planned > 0 && length >= use.planned) {
        study.note(tests, row, "Length",
                   fmt::format("{} minutes cannot come due within the {} of \"{}\".", text, use.planned,
                               use.shortest->name));
    }
}

/// A test without a row of its own keeps the length that the screen begins with.
void judgeNumber(Study& study, const std::string& name, const Use& use, int there) {
    const Sheet& tests = study.sheet("tblTests");
    if (there >= use.tests || hasApostrophe(name)) return;
    const std::string effect = "the others take 30 minutes.";
    if (there == 0 && use.scenarios.size() == 1) {
        study.warn(study.sheet("tblAppDefault"), use.scenarios.front()->row, "TestLengthSetting",
                   fmt::format("tblTests has no lengths \"{}\": all tests take 30 minutes.", name));
    } else {
        study.warn(tests, noRow, there == 0 ? "SETTING" : "Length",
                   fmt::format("\"{}\" has {} lengths for {} tests: {}", name, there, use.tests, effect));
    }
}

}  // namespace

void testLengths(Study& study) {
    const Sheet& tests = study.sheet("tblTests");
    const Sheet& options = study.sheet("tblAppDefault");
    if (!tests.there || !tests.has("SETTING") || !tests.has("Length") || !options.has("TestLengthSetting"))
        return;
    std::map<std::string, int> seen;
    for (int row = 0; row < tests.size(); ++row) {
        const std::string name = tests.text(row, "SETTING");
        const Use use = useOf(study, name);
        if (use.scenarios.empty()) continue;
        judgeLength(study, row, use, seen[use.scenarios.front()->name]++ < use.tests);
    }
    std::set<const Scenario*> judged;
    for (const Scenario& scenario : study.scenarios) {
        const std::string name = options.text(scenario.row, "TestLengthSetting");
        const Use use = useOf(study, name);
        if (use.scenarios.empty() || !judged.insert(use.scenarios.front()).second) continue;
        judgeNumber(study, name, use, seen[use.scenarios.front()->name]);
    }
}

}  // namespace check
