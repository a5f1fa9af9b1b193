#include "diagnosis/modBeliefs.h"

#include <utility>

#include "forms/frmDiagnosis.h"
#include "forms/snapshot.h"
#include "platform/numberText.h"
#include "platform/onLeave.h"
#include "store/record/Options.h"

namespace modBeliefs {

namespace {

FrmDiagnosis& f = frmDiagnosis;

constexpr int leastSum = 90;  // sums from here to 100 are left alone

/// A change is under way: what its assignments set off belongs to it.
bool changing = false;
bool yoking = true;

struct Rows {
    std::vector<snapshot::Kept> controls;
    Int16 DiagnosisCount;
    bool FirstTime;
};

Rows takeRows() { return {snapshot::take(f.form), f.DiagnosisCount, f.FirstTime}; }

void putBack(const Rows& rows) {
    snapshot::putBack(rows.controls);
    f.DiagnosisCount = rows.DiagnosisCount;
    f.FirstTime = rows.FirstTime;
}

void runChange(const std::function<void()>& change) {
    changing = true;
    const OnLeave done([] { changing = false; });
    change();
}

/// The one place that catches what a meter refuses.
bool stands(const Rows& before, const std::function<void()>& change) {
    try {
        runChange(change);
        return true;
    } catch (const Fault& fault) {
        if (fault.number != static_cast<int>(FaultNumber::InvalidPropertyValue)) throw;
        putBack(before);
        return false;
    }
}

/// The rows before the move that has just given the meter its value.
Rows rowsBeforeMove(Control& meter) {
    const Int16 moved = std::exchange(meter.value, meter.valueBefore);
    Rows rows = takeRows();
    meter.value = moved;
    return rows;
}

bool tellsRefusal() { return f.lblError.caption == stepTooLarge || f.lblError.caption == cannotRescale; }

/// Takes what the rows hold above 100 from the neighbours of `row`, the next row first. When a neighbour is
/// set to 1 its own change takes the rest from the next row already, and then it is taken once more here:
/// large moves so end below 100.
void yoke(Int16 row, Int16 count) {
    const auto neighbour = [&](Int16 k) { return (row + k) % count; };
    Int16 excess = beliefOf(row) - wholeBelief;
    for (Int16 k = 1; k < count; ++k) excess += beliefOf(neighbour(k));
    if (excess <= 0) return;
    for (Int16 k = 1; k < count; ++k) {
        Control& meter = f.hsbBelief[neighbour(k)];
        const Int16 belief = meter.value;
        if (k == count - 1 || belief > excess) {
            setValue(meter, belief - excess);
            return;
        }
        excess = excess - belief + 1;
        setValue(meter, 1);
    }
}

std::string beliefText(Int16 belief) {
    return belief == wholeBelief ? "1.00" : "0." + numberText::padded(belief, 2);
}

}  // namespace

Int16 beliefOf(Int16 row) { return f.hsbBelief[row].value; }

Int16 yokedMax() { return Int16(wholeBelief) - f.DiagnosisCount + 1; }

bool areYoked() { return yoking && Options.YokeBeliefMeters; }

bool changeAsWhole(const std::function<void()>& change) {
    if (!f.isLoading) return stands(takeRows(), change);
    change();
    return true;
}

void changeWithoutYoking(const std::function<void()>& change) {
    yoking = false;
    const OnLeave done([] { yoking = true; });
    runChange(change);
}

void meterMoved(Int16 row) {
    if (changing || f.isLoading) {
        beliefChanged(row);
    } else if (!stands(rowsBeforeMove(f.hsbBelief[row]), [row] { beliefChanged(row); })) {
        setCaption(f.lblError, stepTooLarge);
    } else if (tellsRefusal()) {
        setCaption(f.lblError, {});
    }
}

void beliefChanged(Int16 row) {
    f.FirstTime = false;
    const Int16 count = f.DiagnosisCount;
    if (areYoked() && count >= 2 && count <= 4) yoke(row, count);
    setCaption(f.lblBelief[row], beliefText(beliefOf(row)));
    setEnabled(f.cmdCancel, true);
    setEnabled(f.cmdTests, true);
    setEnabled(f.cmdDiagnose, true);
}

bool normalizeBeliefs() {
    Int16 sum;
    for (Int16 i = 0; i < f.DiagnosisCount; ++i) sum += beliefOf(i);
    if (sum <= 0 || (sum >= leastSum && sum <= wholeBelief)) return true;
    return changeAsWhole([sum] {
        for (Int16 i = 0; i < f.DiagnosisCount; ++i) {
            const Int16 product = beliefOf(i) * wholeBelief;
            setValue(f.hsbBelief[i], floor16(product.toFloat() / sum.toFloat()));
        }
    });
}

}  // namespace modBeliefs
