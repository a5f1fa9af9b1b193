#include "screens/mainScreen.h"

#include "forms/frmTavix.h"
#include "knowledge/modTests.h"
#include "state/TrialState.h"
#include "trial/course/modClock.h"
#include "trial/course/modHealth.h"

namespace mainScreen {

void clockTick() {
    setCaption(frmTavix.lblClock, modClock::tickClock());
    modHealth::plotHealthHour();
    modTests::checkTests();
}

void healthTick() {
    modHealth::updateHealth();
    modHealth::showHealth();
}

void showSign(Control& sign, const char* value) {
    if (sign.caption.empty()) setCaption(sign, value);
}

void turnAnswer() {
    Control& answer = frmTavix.lblDAnswer;
    const bool hidden = answer.caption == "Show Disease";
    setCaption(answer, hidden ? trialState.diseaseTerms[trialState.diseaseIndex].term : "Show Disease");
}

}  // namespace mainScreen
