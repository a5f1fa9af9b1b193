#include "knowledge/modTreatments.h"

#include <string>

#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "knowledge/modDisease.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/randomSource.h"
#include "platform/text.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/record/Options.h"
#include "store/record/modAppRecord.h"
#include "trial/course/endings.h"
#include "trial/course/modHealth.h"

namespace modTreatments {

using text::blanks;

namespace {

constexpr int nameWidth = 18;
constexpr int termWidth = 11;
constexpr int chanceMargin = 4;  // blanks on either side of a chance under an 11-character head

std::string dotted(const std::string& name) {
    const int rest = nameWidth - text::length(name);
    return rest > 0 ? name + std::string(static_cast<std::size_t>(rest), '.') : name;
}

/// A percent behind a point: 40 gives .40, and 100 gives .100.
std::string pointText(Int16 percent) { return "." + numberText::padded(percent, 2); }

std::string headerLine() {
    std::string line = dotted({}) + blanks(2);
    for (Int16 j = 0; j <= trialState.treatmentMaxDisease; ++j) {
        const std::string& term = trialState.diseaseTerms[j].term;
        line += term + blanks(termWidth - text::length(term));
        if (Options.Risk) line += blanks(2) + text::left(term, 2) + "-";
    }
    return line;
}

std::string treatmentLine(const Treatment& treatment) {
    std::string line = dotted(treatment.type);
    if (!Options.ViewTreatmentDisease) return line;
    for (Int16 j = 0; j <= trialState.treatmentMaxDisease; ++j) {
        line += blanks(chanceMargin) + pointText(treatment.heal[j]) + blanks(chanceMargin);
        if (Options.Risk) line += blanks(2) + pointText(treatment.hurt[j]);
    }
    return line;
}

/// A draw against a chance in percent, reseeded like every draw.
bool hits(Int16 percent) {
    randomSource::reseed(host().milliseconds());
    return percent > randomSource::drawPercent();
}

void drawOutcome(const Treatment& treatment) {
    TrialState& s = trialState;
    // A miss leaves the signal as it is: the next health tick consumes it.
    if (hits(treatment.heal[s.diseaseIndex])) s.healPending = true;
    if (!Options.Risk) return;
    s.harmed = hits(treatment.hurt[s.diseaseIndex]);
    if (s.harmed) modHealth::hurtPatient();
}

void addTreatmentRow(const std::string& eventId, Int16 healPercent, Int16 hurtPercent) {
    RecordSet rows = openTable("dataTreatments", false, "Recording Treatments");
    rows.AddNew();
    rows.Fields("EventID") = eventId;
    rows.Fields("Number") = trialState.treatmentCount;
    rows.Fields("Treatment") = frmTavix.cboTreatment.text;
    rows.Fields("Help") = healPercent;
    if (trialState.healPending) rows.Fields("Heal") = 1;
    rows.Fields("Hurt") = hurtPercent;
    if (trialState.harmed) rows.Fields("Harm") = 1;
    rows.Update();
}

/// The one operation of the case knowledge that traps its own failures: the run goes on.
void recordTreatment(const std::string& eventId, Int16 healPercent, Int16 hurtPercent) {
    try {
        ++trialState.treatmentCount;
        addTreatmentRow(eventId, healPercent, hurtPercent);
    } catch (const Fault&) {
        tell("Please check database file", "Problems reading from treatment table");
    }
}

/// A scenario without treatments keeps the list that is there.
void readTreatments() {
    TrialState& s = trialState;
    RecordSet rows = openTable(std::string("SELECT * FROM [tblTreatments] ") +
                                   "WHERE [tblTreatments.Setting]='" + s.settingName + "'",
                               true, "Loading treatments");
    s.treatmentMaxDisease = s.tableDiseaseCount - 1;
    if (!rows.isEOF()) {
        s.treatmentTypeCount = rows.recordCount();
        s.treatments.renew(s.treatmentTypeCount);
        for (Treatment& treatment : s.treatments) {
            treatment.type = rows.Fields("Type").text();
            for (Int16 j = 1; j <= s.treatmentMaxDisease + 1; ++j) {
                treatment.heal.add(modDisease::readPercent(rows, j, "+"));
                treatment.hurt.add(modDisease::readPercent(rows, j, "-"));
            }
            rows.MoveNext();
        }
    }
}

}  // namespace

void loadTreatments() {
    readTreatments();
    clearItems(frmTavix.cboTreatment);
    for (const Treatment& treatment : trialState.treatments) addItem(frmTavix.cboTreatment, treatment.type);
}

void displayTreatments() {
    Control& help = frmTavix.lblHelpHeader;
    // Appended at every call and never taken off again: the caption grows with each patient.
    if (Options.Risk) setCaption(help, help.caption + "  \"+\" = chance to help,    \"-\" = chance of hurt");
    if (trialState.treatmentTypeCount < 1) return;
    const std::string header = headerLine();
    clearItems(frmTavix.lstTreatments);
    addItem(frmTavix.lstTreatments, header);
    for (const Treatment& treatment : trialState.treatments) {
        addItem(frmTavix.lstTreatments, treatmentLine(treatment));
    }
}

void chooseBestTreatment() {
    TrialState& s = trialState;
    Int16 best = -1;
    Int16 index = 0;
    for (Int16 i = 0; i < s.treatmentTypeCount; ++i) {
        const Int16 chance = s.treatments[i].heal[s.diseaseIndex];
        if (chance <= best) continue;
        best = chance;
        index = i;
    }
    s.patients[s.currentPatient].bestTreatment = index;
}

void takeSelectedTreatment() {
    const int line = firstSelected(frmTavix.lstTreatments);
    if (line < 0) return;
    const auto& names = frmTavix.cboTreatment.items;
    const auto treatment = static_cast<std::size_t>(line) - 1;
    setText(frmTavix.cboTreatment, treatment < names.size() ? names[treatment] : std::string());
}

void prescribe() {
    TrialState& s = trialState;
    const int index = findItem(frmTavix.cboTreatment, frmTavix.cboTreatment.text);
    if (index < 0) {
        tell("Please choose one of the given treatments");
        windows::setFocus(frmTavix.cboTreatment);
        return;
    }
    s.lastTreatmentIndex = index;
    const Treatment treatment = s.treatments[index];
    drawOutcome(treatment);
    const std::string eventId =
        modAppRecord::recordEvent("Prescribe", s.treatmentCount + 1, treatment.type, s.healPending);
    recordTreatment(eventId, treatment.heal[s.diseaseIndex], treatment.hurt[s.diseaseIndex]);
    if (!Options.OneTreatment) return;
    endings::endPatient(s.healPending ? EndCause::HelpfulTreatment : EndCause::UselessTreatment);
}

void prescribeSelected() {
    takeSelectedTreatment();
    prescribe();
}

}  // namespace modTreatments
