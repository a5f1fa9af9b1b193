#include "screens/optionsDialog.h"

#include "forms/frmLogin.h"
#include "forms/frmOptions.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "screens/keys.h"
#include "trial/course/modClock.h"

namespace optionsDialog {

namespace {

constexpr int timeDigits = 2;

void showLength() { setCaption(frmOptions.lblLength, numberText::whole(frmOptions.hsbLength.value)); }
void showRate() { setCaption(frmOptions.lblRate, numberText::whole(frmOptions.hsbRate.value)); }

/// One treatment and risk exclude each other.
void untickOther(const Control& clicked, Control& other) {
    if (isTicked(clicked) && isTicked(other)) setValue(other, 0);
}

/// Ticked, it ticks risk and then one treatment, whose own rule takes risk off again.
void treatmentsClicked() {
    FrmOptions& f = frmOptions;
    const bool on = isTicked(f.chkTreatments);
    for (Control* box : {&f.chkRisk, &f.chkOneTreatment}) {
        if (on) setEnabled(*box, true);
        setValue(*box, on ? 1 : 0);
        if (!on) setEnabled(*box, false);
    }
}

/// Two digits at most by typing, Enter starts, Backspace passes, all else is dropped.
bool keyInTime(const Control& box, int code) {
    if (code == keys::enter) {
        modClock::startOptions();
        return false;
    }
    if (code == keys::backspace) return true;
    if (code < '0' || code > '9') return false;
    return text::length(box.text) != timeDigits || box.selLength > 0;
}

}  // namespace

void wire() {
    FrmOptions& f = frmOptions;
    f.hsbLength.on.change = showLength;
    f.hsbRate.on.change = showRate;
    for (Control& box : f.txtTime) {
        box.on.key = [&box](int code) { return keyInTime(box, code); };
    }
    f.chkOneTreatment.on.click = [] { untickOther(frmOptions.chkOneTreatment, frmOptions.chkRisk); };
    f.chkRisk.on.click = [] { untickOther(frmOptions.chkRisk, frmOptions.chkOneTreatment); };
    f.chkTreatments.on.click = treatmentsClicked;
    f.cmdStart.on.click = modClock::startOptions;
}

void load() {
    if (frmOptions.isLoaded) return;
    frmOptions.isLoaded = true;
    showLength();
    showRate();
    setCaption(frmOptions.form, "Options - Scenario: " + frmLogin.cboType.text);
}

}  // namespace optionsDialog
