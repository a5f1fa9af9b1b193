#include "diagnosis/modHypotheses.h"

#include <algorithm>

#include "diagnosis/modBeliefs.h"
#include "forms/frmDiagnosis.h"
#include "forms/windows.h"
#include "state/TrialState.h"
#include "store/record/Options.h"

namespace modHypotheses {

using modBeliefs::beliefOf;
using modBeliefs::wholeBelief;
using modBeliefs::yokedMax;

namespace {

FrmDiagnosis& f = frmDiagnosis;

constexpr const char* addCaption = "Add Hypothesis";
constexpr const char* removeCaption = "Remove Hypothesis";

void showMeter(Int16 row, bool visible) {
    setVisible(f.lblBelief[row], visible);
    setVisible(f.lblBeliefMeter[row], visible);
    setVisible(f.hsbBelief[row], visible);
}

bool nameIsValid(Int16 row) {
    const Control& name = f.cboHypothesis[row];
    return findItem(name, name.text) >= 0;
}

// ---- Load

void loadOneByOne() {
    for (Int32 i = 0; i < f.savedNames.size(); ++i) {
        f.savedNames[i] = {};
        f.savedBeliefs[i] = 0;
    }
    saveHypotheses();
    const Int16 start = Options.YokeBeliefMeters ? wholeBelief : 1;
    f.savedBeliefs[0] = start;
    setValue(f.hsbBelief[0], start);
}

void loadAllDiseases() {
    const Int16 last = trialState.diseaseCount - 1;
    for (Int16 i = 0; i <= last; ++i) {
        setMin(f.hsbBelief[i], 0);
        setMax(f.hsbBelief[i], wholeBelief);
        const bool toRates = static_cast<bool>(Options.InitToBaseRates);
        setValue(f.hsbBelief[i],
                 toRates ? trialState.baseRates[trialState.settingIndex].percents[i] : Int16(0));
        setListIndex(f.cboHypothesis[i], 0);
        if (i == last) break;
        addOrRemove(i);
        setVisible(f.cmdAdd[i], false);
    }
    setEnabled(f.cboHypothesis[last], false);
    saveHypotheses();
}

void load() {
    f.isLoading = true;
    for (const Disease& disease : trialState.diseaseTerms) addItem(f.cboHypothesis[0], disease.term);
    f.DiagnosisCount = 1;
    f.savedNames.renew(trialState.diseaseCount);
    f.savedBeliefs.renew(trialState.diseaseCount);
    if (Options.DiagnoseAllDiseases) {
        loadAllDiseases();
    } else {
        loadOneByOne();
    }
    if (!Options.DoTreatments) setCaption(f.cmdDiagnose, "Finish Diagnosis");
    f.FirstTime = true;
    f.isLoading = false;
}

// ---- Adding and removing

void limitMeters(Int16 rows) {
    if (!Options.YokeBeliefMeters) return;
    for (Int16 r = 0; r < rows; ++r) setMax(f.hsbBelief[r], yokedMax());
}

void focusName(Int16 row) {
    if (!Options.DiagnoseAllDiseases) windows::setFocus(f.cboHypothesis[row]);
}

/// All diseases but those that the rows above have named.
void offerUnnamed(Int16 row) {
    Control& list = f.cboHypothesis[row];
    clearItems(list);
    for (const Disease& disease : trialState.diseaseTerms) addItem(list, disease.term);
    for (Int16 above = 0; above < row; ++above) {
        // The pass keeps its end and does not step back after a removal.
        const std::size_t end = list.items.size();
        for (std::size_t j = 0; j < end; ++j) {
            const bool named = j < list.items.size() && list.items[j] == f.cboHypothesis[above].text;
            if (named) removeItem(list, static_cast<int>(j));
        }
    }
}

void bringUpRow(Int16 added) {
    const Int16 row = added - 1;
    setCaption(f.cmdAdd[row], removeCaption);
    offerUnnamed(added);
    setEnabled(f.cboHypothesis[row], false);
    setValue(f.hsbBelief[added], 1);  // with the old count still: the row is not yoked yet
    setVisible(f.fraHypothesis[added], true);
    if (row > 0) setEnabled(f.cmdAdd[row - 1], false);
    if (added < trialState.diseaseCount - 1) setVisible(f.cmdAdd[added], true);
    ++f.DiagnosisCount;
    limitMeters(f.DiagnosisCount);
    modBeliefs::beliefChanged(row);
}

void addRow(Int16 row) {
    const Int16 added = row + 1;
    if (modBeliefs::changeAsWhole([added] { bringUpRow(added); })) {
        focusName(added);
    } else {
        setCaption(f.lblError, modBeliefs::stepTooLarge);
    }
}

void removeRow(Int16 row) {
    const Int16 removed = row + 1;
    setCaption(f.cmdAdd[row], addCaption);
    if (row > 0) setEnabled(f.cmdAdd[row - 1], true);
    setVisible(f.fraHypothesis[removed], false);
    showMeter(removed, false);
    if (removed < trialState.diseaseCount - 1) setVisible(f.cmdAdd[removed], false);
    --f.DiagnosisCount;
    limitMeters(f.DiagnosisCount + 1);  // the removed row's meter too
    setEnabled(f.cboHypothesis[row], true);
    focusName(row);
}

// ---- Validation and restoring

bool refuse(const char* reason) {
    setCaption(f.lblError, reason);
    return false;
}

bool anyJudgment() {
    Int16 total;
    for (Int16 i = 0; i < trialState.diseaseCount; ++i) total += beliefOf(i);
    return total != 0;
}

bool namesStand(Int16 last) {
    for (Int16 i = 0; i <= last; ++i) {
        if (!nameIsValid(i)) {
            windows::setFocus(f.cboHypothesis[i]);
            return refuse("Error: Invalid disease, please choose from selection");
        }
        for (Int16 k = 0; k < last; ++k) {
            if (k == i || f.cboHypothesis[i].text != f.cboHypothesis[k].text) continue;
            windows::setFocus(f.cboHypothesis[k]);
            return refuse("Error: Duplicate hypotheses, please choose from selection");
        }
    }
    return true;
}

/// Where nothing pushes, a meter must be able to hold its saved belief: with all diseases at once the last
/// row begins with a limit above the yoked one.
Int16 restoredMax(Int16 row) {
    return modBeliefs::areYoked() ? yokedMax() : std::max(yokedMax(), f.savedBeliefs[row]);
}

void restoreRow(Int16 row) {
    if (!Options.DiagnoseAllDiseases) {
        if (row > 0 && row < trialState.diseaseCount) {
            Control& button = f.cmdAdd[row - 1];
            setCaption(button, removeCaption);
            setEnabled(button, false);
            setVisible(button, true);
        }
        setVisible(f.fraHypothesis[row], true);
        setEnabled(f.cboHypothesis[row], row >= f.DiagnosisCount - 1);
        setText(f.cboHypothesis[row], f.savedNames[row]);
    }
    if (Options.YokeBeliefMeters) setMax(f.hsbBelief[row], restoredMax(row));
    setValue(f.hsbBelief[row], f.savedBeliefs[row]);
    checkHypothesisName(row);
}

void withdrawRow(Int16 row) {
    Control& button = f.cmdAdd[row - 1];
    setVisible(button, false);
    setCaption(button, addCaption);
    setEnabled(button, true);
    setVisible(f.fraHypothesis[row], false);
    setEnabled(f.cboHypothesis[row], true);
    showMeter(row, false);
}

void restoreRows() {
    f.DiagnosisCount = f.savedCount;
    const Int16 last = trialState.diseaseCount - 1;
    for (Int16 i = 0; i < f.DiagnosisCount; ++i) restoreRow(i);
    for (Int16 i = f.DiagnosisCount; i <= last; ++i) withdrawRow(i);
    if (f.DiagnosisCount <= last) {
        setEnabled(f.cmdAdd[f.DiagnosisCount - 1], true);
        setVisible(f.cmdAdd[f.DiagnosisCount - 1], true);
    }
    if (f.DiagnosisCount > 1) setEnabled(f.cmdAdd[f.DiagnosisCount - 2], true);
}

}  // namespace

void ensureLoaded() {
    if (f.isLoaded) return;
    f.isLoaded = true;
    load();
}

void checkHypothesisName(Int16 row) { showMeter(row, nameIsValid(row)); }

bool validateHypotheses(Int16 last) {
    if (f.isLoading) return true;
    if (Options.DiagnoseAllDiseases) {
        if (!anyJudgment()) return refuse("Error: No judgment given");
    } else if (!namesStand(last)) {
        return false;
    }
    setCaption(f.lblError, {});
    return true;
}

void saveHypotheses() {
    f.savedCount = f.DiagnosisCount;
    for (Int16 i = 0; i < trialState.diseaseCount; ++i) {
        const bool shown = f.fraHypothesis[i].visible;
        if (shown) f.savedNames[i] = f.cboHypothesis[i].text;
        f.savedBeliefs[i] = shown ? beliefOf(i) : Int16(0);
    }
}

void restoreHypotheses() {
    if (!modBeliefs::changeAsWhole(restoreRows)) modBeliefs::changeWithoutYoking(restoreRows);
}

void addOrRemove(Int16 row) {
    if (!validateHypotheses(row)) return;
    if (f.cmdAdd[row].caption == addCaption) {
        addRow(row);
    } else {
        removeRow(row);
    }
}

}  // namespace modHypotheses
