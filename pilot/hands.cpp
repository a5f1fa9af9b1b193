#include "pilot/hands.h"

#include <algorithm>

#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "forms/windows.h"
#include "platform/text.h"
#include "stage/virtualTime.h"

namespace hands {

namespace {

FrmDiagnosis& f = frmDiagnosis;

constexpr int readingTime = 30;  // milliseconds a character, about 400 words a minute
constexpr int wholeBelief = 100;

void pass(int milliseconds) {
    virtualTime::pass(milliseconds, [] { return false; });
}

void slide(Hands& hands, Control& meter, int percent) {
    if (meter.value == percent) return;
    hesitate(hands);
    person::slide(meter, percent);
}

const Belief* find(const std::vector<Belief>& beliefs, const std::string& disease) {
    const auto found = std::ranges::find(beliefs, disease, &Belief::disease);
    return found == beliefs.end() ? nullptr : &*found;
}

int rows() { return f.DiagnosisCount.toInt(); }

bool isNamed(int row) { return findItem(f.cboHypothesis[row], f.cboHypothesis[row].text) >= 0; }

/// Takes away or renames the last rows until the last one names a disease that is to stay.
void dropOthers(Hands& hands, const std::vector<Belief>& beliefs) {
    while (rows() > 1 && find(beliefs, f.cboHypothesis[rows() - 1].text) == nullptr) {
        const int before = rows();
        press(hands, f.cmdAdd[before - 2]);
        if (rows() == before) return;
    }
}

bool isRowOf(const std::string& disease, int count) {
    for (int row = 0; row < count; ++row) {
        if (f.cboHypothesis[row].text == disease) return true;
    }
    return false;
}

/// A row for each disease that has none, the first in the row that names no disease yet.
void nameRows(Hands& hands, const std::vector<Belief>& beliefs) {
    for (const Belief& belief : beliefs) {
        const int last = rows() - 1;
        const bool open = last == 0 && windows::isUsable(f.cboHypothesis[0]) &&
                          (!isNamed(0) || find(beliefs, f.cboHypothesis[0].text) == nullptr);
        if (isRowOf(belief.disease, open ? last : rows())) continue;
        if (!open) {
            if (last + 1 >= Elements<4>::count()) return;
            press(hands, f.cmdAdd[last]);
            if (rows() == last + 1) return;  // the meters leave no room
        }
        choose(hands, f.cboHypothesis[rows() - 1], belief.disease);
    }
}

/// What each meter is to show: what is believed, within its limits, and within 100 together if asked.
std::vector<int> wanted(const std::vector<Belief>& beliefs, bool within100) {
    std::vector<int> values;
    int sum = 0;
    for (int row = 0; row < rows(); ++row) {
        const Belief* belief = find(beliefs, f.cboHypothesis[row].text);
        const Control& meter = f.hsbBelief[row];
        const int percent = belief == nullptr ? meter.min.toInt() : belief->percent;
        values.push_back(std::clamp(percent, meter.min.toInt(), meter.max.toInt()));
        sum += values.back();
    }
    while (within100 && sum > wholeBelief) {
        --*std::ranges::max_element(values);
        --sum;
    }
    return values;
}

/// What goes down first: then nothing that goes up pushes another meter.
void moveMeters(Hands& hands, const std::vector<int>& values) {
    for (const bool up : {false, true}) {
        for (int row = 0; row < rows() && row < static_cast<int>(values.size()); ++row) {
            const int value = values[static_cast<std::size_t>(row)];
            if ((value > f.hsbBelief[row].value.toInt()) == up) slide(hands, f.hsbBelief[row], value);
        }
    }
}

/// The buttons wait for a meter to be touched: it goes one step away and back.
void touchMeter(Hands& hands) {
    Control& meter = f.hsbBelief[0];
    const int value = meter.value.toInt();
    slide(hands, meter, value > meter.min.toInt() ? value - 1 : value + 1);
    slide(hands, meter, value);
}

}  // namespace

void hesitate(Hands& hands) { pass(responseTimes::draw(hands.times, hands.chance)); }

void read(Hands& hands, const std::string& text) {
    pass(readingTime * text::length(text));
    hesitate(hands);
}

void press(Hands& hands, Control& control) {
    hesitate(hands);
    person::press(control);
}

void type(Hands& hands, Control& textBox, const std::string& text) {
    hesitate(hands);
    person::type(textBox, text);
}

void choose(Hands& hands, Control& list, const std::string& item) {
    hesitate(hands);
    person::choose(list, item);
}

void chooseLine(Hands& hands, Control& comboBox, int line) {
    hesitate(hands);
    person::chooseLine(comboBox, line);
}

void issue(Hands& hands, int test) {
    press(hands, frmTavix.optTest[test]);
    press(hands, frmTavix.cmdIssue);
}

void note(Hands& hands, const std::string& text) {
    const std::string& introduction = frmTavix.txtIntro.text;
    const std::size_t at = introduction.find(text);
    if (text.empty() || at == std::string::npos) throw Refused{"the introduction does not say " + text};
    hesitate(hands);
    person::mark(frmTavix.txtIntro, text::length(introduction.substr(0, at)), text::length(text));
    press(hands, frmTavix.cmdEvidence);
}

void prescribe(Hands& hands, int treatment) {
    chooseLine(hands, frmTavix.cboTreatment, treatment);
    press(hands, frmTavix.cmdPrescribe);
}

void stateBeliefs(Hands& hands, const std::vector<Belief>& beliefs, bool within100) {
    if (windows::isUsable(f.cboHypothesis[rows() - 1])) {
        dropOthers(hands, beliefs);
        nameRows(hands, beliefs);
    }
    moveMeters(hands, wanted(beliefs, within100));
    if (!f.cmdDiagnose.enabled) touchMeter(hands);
    press(hands, f.cmdDiagnose);
}

void stateLeast(Hands& hands, const std::string& disease) {
    const std::string named = isNamed(0) ? f.cboHypothesis[0].text : disease;
    stateBeliefs(hands, {{named, wholeBelief}}, true);
}

}  // namespace hands
