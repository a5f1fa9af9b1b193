#include "screens/optionsDialog.h"

#include "forms/frmLogin.h"
#include "forms/frmOptions.h"
#include "forms/keys.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "trial/course/modClock.h"

namespace optionsDialog {

namespace {

constexpr int timeDigits = 2;

void untickOther(const Control& clicked, Control& other) {
    if (isTicked(clicked) && isTicked(other)) setValue(other, 0);
}

}  // namespace

void showLength() { setCaption(frmOptions.lblLength, numberText::whole(frmOptions.hsbLength.value)); }
void showRate() { setCaption(frmOptions.lblRate, numberText::whole(frmOptions.hsbRate.value)); }

void oneTreatmentClicked() { untickOther(frmOptions.chkOneTreatment, frmOptions.chkRisk); }
void riskClicked() { untickOther(frmOptions.chkRisk, frmOptions.chkOneTreatment); }

void treatmentsClicked() {
    FrmOptions& f = frmOptions;
    const bool on = isTicked(f.chkTreatments);
    for (Control* box : {&f.chkRisk, &f.chkOneTreatment}) {
        if (on) setEnabled(*box, true);
        setValue(*box, on ? 1 : 0);
        if (!on) setEnabled(*box, false);
    }
}

bool keyInTime(const Control& box, int code) {
    if (code == keys::enter) {
        modClock::startOptions();
        return false;
    }
    if (code == keys::backspace) return true;
    if (code < '0' || code > '9') return false;
    return text::length(box.text) != timeDigits || box.selLength > 0;
}

void load() {
    if (frmOptions.isLoaded) return;
    frmOptions.isLoaded = true;
    showLength();
    showRate();
    setCaption(frmOptions.form, "Options - Scenario: " + frmLogin.cboType.text);
}

}  // namespace optionsDialog
