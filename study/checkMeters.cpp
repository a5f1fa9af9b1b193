#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "platform/numberText.h"
#include "study/checkRules.h"

namespace check {

namespace {

constexpr int wholeBelief = 100;

/// The meters of the dialog while it loads with all diseases at once: a change of one runs the yoking at
/// once, inside the assignment.
struct Meters {
    struct Meter {
        int value;
        int least = 1;
        int most = wholeBelief;
    };
    std::array<Meter, mostDiseases> meters{{{100}, {50}, {33}, {25}}};
    int count = 1;
    bool refused = false;

    Meter& at(int row) { return meters[static_cast<std::size_t>(row)]; }

    void set(int row, int value) {
        Meter& meter = at(row);
        refused = refused || value < meter.least || value > meter.most;
        if (refused || meter.value == value) return;
        meter.value = value;
        changed(row);
    }

    void changed(int row) {
        if (count < 2) return;
        int excess = at(row).value - wholeBelief;  // a row that comes up is not counted yet
        for (int k = 1; k < count; ++k) excess += at((row + k) % count).value;
        for (int k = 1; k < count && excess > 0 && !refused; ++k) {
            const int neighbour = (row + k) % count;
            const int belief = at(neighbour).value;
            if (k == count - 1 || belief > excess) return set(neighbour, belief - excess);
            excess = excess - belief + 1;
            set(neighbour, 1);
        }
    }

    void addRow(int row) {
        set(row + 1, 1);
        ++count;
        for (int r = 0; r < count; ++r) {
            at(r).most = wholeBelief + 1 - count;
            if (at(r).value > at(r).most) set(r, at(r).most);
        }
        changed(row);
    }
};

bool loadIsRefused(const std::vector<int>& starts) {
    Meters meters;
    const int last = static_cast<int>(starts.size()) - 1;
    for (int i = 0; i <= last; ++i) {
        meters.at(i).least = 0;
        meters.at(i).most = wholeBelief;
        meters.set(i, starts[static_cast<std::size_t>(i)]);
        if (i < last) meters.addRow(i);
    }
    return meters.refused;
}

std::vector<int> startsOf(const Study& study, const Scenario& scenario) {
    const bool toRates = study.sheet("tblAppDefault").isTrue(scenario.row, "InitToBaseRates");
    std::vector<int> starts(static_cast<std::size_t>(scenario.diseases), 0);
    for (int j = 0; toRates && j < scenario.diseases; ++j)
        starts[static_cast<std::size_t>(j)] = static_cast<int>(
            numberText::toNumber(study.sheet("tblBaseRates").text(scenario.rates, diseaseColumn(j))));
    return starts;
}

}  // namespace

void meters(Study& study) {
    const Sheet& options = study.sheet("tblAppDefault");
    for (const Scenario& scenario : study.scenarios) {
        const bool known = scenario.diseases > 0 && scenario.diseases <= mostDiseases &&
                           scenario.rates != noRow && !study.badRates.contains(scenario.rates);
        if (!options.isTrue(scenario.row, "YokeBeliefMeters") || !known) continue;
        const std::vector<int> starts = startsOf(study, scenario);
        if (options.isTrue(scenario.row, "DiagnoseAllDiseases") && loadIsRefused(starts)) {
            study.error(
                options, scenario.row, "YokeBeliefMeters",
                "With these base rates the yoked meters push one another out of their limits while the "
                "diagnosis loads: the program ends.");
        } else if (scenario.diseases > 2) {
            study.note(options, scenario.row, "YokeBeliefMeters",
                       fmt::format(
                           "With up to {} rows a move can ask more of the other meters than they hold: it is "
                           "undone, and the dialog says so.",
                           scenario.diseases));
        }
    }
}

}  // namespace check
