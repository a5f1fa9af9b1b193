#include "tests/walkRules.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <vector>

#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/refused.h"
#include "forms/windows.h"
#include "headless/sqlText.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/onLeave.h"
#include "platform/text.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "store/record/modAppRecord.h"
#include "trial/course/runHooks.h"

namespace walkRules {

namespace {

const TrialState& s = trialState;
FrmTavix& t = frmTavix;
FrmDiagnosis& d = frmDiagnosis;

/// What the state does not keep, of the patient at hand but for the boxes and the end.
struct Seen {
    std::vector<MessageBox> standing;  ///< on show, the newest last
    bool wasAtRest = false;            ///< when the last act was asked for
    std::string answered;              ///< title and text of the box that was answered last
    std::string oddHealth;             ///< after a tick of health
    int refusedNotes = 0;
    int lostPrescriptions = 0;
    bool hundredNotes = false;   ///< the hundredth line has a prefix a character wider, which nobody expects
    bool caseRepeated = false;   ///< nobody was found in 50 tries: trial number and identifiers come again
    bool allDiseases = false;    ///< at the start of the trial
    bool limitAtTheEnd = false;  ///< the clock's tick that ended the patient brought a result too
    bool compared = false;
} seen;

bool ended() { return t.cmdNextPatient.visible; }

/// No handler is under way but one that waits in the dialog of the diagnosis.
bool atRest() {
    return !s.trialKey.empty() && seen.standing.empty() && !frmOptions.form.visible &&
           !frmLogin.form.visible && !frmNewSubject.form.visible;
}

bool stands(const char* text) {
    return std::ranges::any_of(seen.standing,
                               [&](const MessageBox& box) { return box.title == text || box.text == text; });
}

Answer showBox(const std::function<Answer(const MessageBox&)>& show, const MessageBox& box) {
    if (box.text.starts_with("Cannot add more than 100")) ++seen.refusedNotes;
    if (box.title == "Problems reading from treatment table") ++seen.lostPrescriptions;
    seen.standing.push_back(box);
    const OnLeave gone([] { seen.standing.pop_back(); });
    const Answer answer = show(box);
    seen.answered = box.title + box.text;
    return answer;
}

template <class Value, class Wanted>
std::string same(const Value& value, const Wanted& wanted) {
    return value == wanted ? std::string() : fmt::format("{}, wanted {}", value, wanted);
}

// ---- After each act

/// Empty if all three of them are as they must be.
std::string timers(bool on) {
    for (const Control* timer : {&t.tmrClock, &t.tmrHealth, &t.tmrHealthMonitor})
        if (timer->enabled != on) return fullName(*timer) + (on ? " is off" : " is on");
    return {};
}

/// From the options on, a new patient's clock runs before the patient is there.
std::string timeRests() {
    const bool nobodyYet = stands("All Patients Diagnosed") || stands("Could not retrieve patient info");
    return ended() && !nobodyYet ? timers(false) : std::string();
}

/// A dialog that was left by its cancel button leaves stopped time to the next commit.
std::string timeRuns() {
    const bool stopped = Options.TimeStopDiagnosis && windows::topModal() == &d.form;
    return ended() || (Options.TimeStopDiagnosis && !stopped) ? std::string() : timers(!stopped);
}

int count(bool (*holds)(const Test&)) { return static_cast<int>(std::ranges::count_if(s.tests, holds)); }
int testsUnderWay() {
    return count([](const Test& test) { return test.issued && !test.completed; });
}
int testsIssued() {
    return count([](const Test& test) { return test.issued; });
}

std::string storeIsClosed() {
    for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const std::string name = std::filesystem::read_symlink(file, gone).string();
        if (name.find("TavixData.mdb") != std::string::npos) return name + " is open";
    }
    return {};
}

/// The dialog that a second end of the last patient, under a box of nextPatient, has loaded and frozen for
/// the new one. It is left as the order of the steps has it.
bool dialogIsSpent() { return d.form.visible && !d.fraHypothesis[0].enabled && !ended(); }

std::string somethingCanBeDone() {
    if (dialogIsSpent()) return {};
    static const std::set<Kind> shows{Kind::Form, Kind::Frame, Kind::Label};
    const auto usable = [](const Control* c) {
        return !shows.contains(c->kind) && windows::refusal(*c).empty();
    };
    const bool can = !seen.standing.empty() || std::ranges::any_of(allControls(), usable);
    return can ? "" : "nothing takes input";
}

Int16 notesTaken() { return s.evidenceCount + s.noteSymptomCount - seen.refusedNotes; }

std::string eventsCounted() {
    const Int16 acts = notesTaken() + s.removeCount + s.testCount + s.diagnosisCount + s.treatmentCount;
    return same(s.eventCount.toInt(), acts.toInt());
}

std::string notesCounted() {
    const auto lines = static_cast<int>(t.lstSymptoms.items.size());
    if (notesTaken() - s.removeCount != lines || s.symptomNoteCount != lines)
        return fmt::format("{} lines", lines);
    for (int i = 0; i < lines && !seen.hundredNotes; ++i) {
        const std::string line = numberText::padded(i + 1, 2) + ") " + s.symptomNotes[i];
        if (t.lstSymptoms.items[static_cast<std::size_t>(i)] != line) return "another line than " + line;
    }
    return {};
}

std::string yokedSums() {
    if (!d.isLoaded || !Options.YokeBeliefMeters) return {};
    Int16 sum;
    for (Int16 i = 0; i < d.DiagnosisCount; ++i) sum += d.hsbBelief[i].value;
    return sum <= 100 ? "" : "the sum is " + std::to_string(sum.toInt());
}

std::string beliefsInRange() {
    static const std::set<std::string> design{"1.00", "0.50", "0.33", "0.25"};
    for (const Control& label : d.lblBelief) {
        const Control& meter = d.hsbBelief[label.element];
        const auto shown = std::lround(100 * numberText::toNumber(label.caption));
        const bool fits = shown == meter.value.toInt() || design.contains(label.caption);
        if (meter.value < meter.min || meter.value > meter.max || !fits) return fullName(meter);
    }
    return {};
}

std::string guessShown() {
    const bool none = s.diagnosisCount == 0;
    return same(t.lblCurrentHypothesis.caption,
                none ? "No Hypothesis Made" : s.patients[s.currentPatient].guess);
}

/// What the word says of the patient. The minute that every end adds can bring the time limit over another
/// word.
std::string statusFits() {
    static const std::map<std::string, bool> saves{{"Dead", false},
                                                   {"Saved", true},
                                                   {"Wrong Treatment", false},
                                                   {"Correct Treatment", true},
                                                   {"Diagnosed Right", true},
                                                   {"Diagnosed Wrong", false},
                                                   {"Aborted by Options", false}};
    const std::string& status = s.patients[s.currentPatient].status;
    if (!ended()) return seen.caseRepeated || status == "Under Surveillance" ? "" : status;
    const auto word = saves.find(status);
    const bool fits = word == saves.end() ? status == "Time End" : word->second == s.patientSaved;
    return fits ? "" : status;
}

std::string rosterCounted() {
    const auto taken =
        std::ranges::count_if(s.patients, [](const Patient& p) { return p.status != "Untreated"; });
    return same(s.patientsSeen.toInt(), taken);
}

/// What the subject works with is there during a trial and not after it. The tick that reaches the time limit
/// goes on to the tests, and a result enables the button.
std::string controlsFitPhase() {
    const bool work = !ended();
    for (const Control* control : {&t.cmdDiagnosis, &t.cmdEvidence, &t.cmdNoteSymptom, &t.cmdPrescribe,
                                   &t.cmdRemove, &t.cmdChange, &t.cboTreatment, &t.lstTreatments})
        if (control->enabled != work) return fullName(*control);
    for (Int16 i = 0; i < s.testTypeCount; ++i)
        if (t.optTest[i].enabled != (work && !s.tests[i].issued)) return fullName(t.optTest[i]);
    const bool late = !work && seen.limitAtTheEnd;
    if (t.cmdIssue.enabled != (work && testsUnderWay() == 0) && !late) return fullName(t.cmdIssue);
    return t.fraFeedback.visible == work || t.fraScore.visible == work ? "the feedback" : "";
}

std::string scoreCarried() {
    const std::string score = numberText::whole(s.score);
    if (!ended()) return same(t.lblScore.caption, score);
    return same(Options.InitScore.text() + trialEvaluation.newScoreText, score + score);
}

std::string clockShown() {
    if (s.trialMinutes == 0) return {};  // never set up
    if (s.clockMinute > 59 || s.clockHour > 12) return "beyond the dial";
    return same(t.lblClock.caption, numberText::clockText(s.clockHour, s.clockMinute));
}

std::string traceInRange() {
    const bool fits = s.monitorIndex >= 0 && s.monitorIndex < s.monitorSegments && !t.linHealth[0].visible;
    return fits ? "" : "segment " + std::to_string(s.monitorIndex.toInt());
}

struct Rule {
    const char* name;
    std::string (*wrong)();  ///< empty while it holds
};

/// Under boxes and dialogs too.
constexpr Rule always[] = {
    {"time rests while the next patient waits", timeRests},
    {"one test runs at most", [] { return testsUnderWay() <= 1 ? std::string() : "more do"; }},
    {"the store is closed while somebody is waited for", storeIsClosed},
    {"something can be done", somethingCanBeDone},
    {"health is in its range after its tick", [] { return seen.oddHealth; }},
    {"no meter is past its range", beliefsInRange}};

/// When no handler is under way.
constexpr Rule resting[] = {
    {"time runs while a patient is treated", timeRuns},
    {"events are counted like acts", eventsCounted},
    {"notes are counted like their lines", notesCounted},
    {"tests issued are counted", [] { return same(s.testCount.toInt(), testsIssued()); }},
    {"the state in force has its name", [] { return same(s.diagnosisStateId, modAppRecord::stateId()); }},
    {"yoked beliefs stay within 100", yokedSums},
    {"the last guess is on show", guessShown},
    {"the status fits the phase", statusFits},
    {"the roster is counted", rosterCounted},
    {"controls fit the phase", controlsFitPhase},
    {"the score is carried on", scoreCarried},
    {"the clock is on show", clockShown},
    {"the trace keeps to its segments", traceInRange},
    {"no dialog stands before the next patient",
     [] { return ended() && windows::topModal() != nullptr ? windows::topModal()->form : std::string(); }}};

template <std::size_t count>
std::string firstBroken(const Rule (&rules)[count]) {
    for (const Rule& rule : rules) {
        const std::string wrong = rule.wrong();
        if (!wrong.empty()) return fmt::format("{}: {}", rule.name, wrong);
    }
    return {};
}

// ---- The rows of a trial

struct RowRule {
    const char* name;
    std::string select;  ///< {0} subject, {1} trial, {2} stem of the trial's identifiers, {3} its events
    std::string wanted;
};

/// As a value of SQL. A line break, which may stand in a name, would go into the head of the rows.
std::string quoted(const std::string& text) {
    std::string value = "'";
    for (const char c : text) value += c == '\n' ? "'||CHAR(10)||'" : c == '\'' ? "''" : std::string(1, c);
    return value + "'";
}

std::string hypothesesOnShow() {
    std::string lines;
    for (int i = 0; i < 4; ++i)
        if (t.fraHypothesis[i].visible)
            lines += fmt::format("{},{}\n", t.lblHypothesis[i].caption, t.hsbBelief[i].value.toInt());
    return lines;
}

std::string number(Int32 value) { return std::to_string(value.toInt()) + "\n"; }

/// What the row of the trial says when it has ended.
std::string endedTrial() {
    const Patient& patient = s.patients[s.currentPatient];
    return fmt::format(
        "COUNT(*) FROM dataTrial WHERE Subject={{0}} AND Trial={{1}} AND EndTime IS NOT NULL AND Result={} "
        "AND "
        "Guess={} AND Tests={} AND Diagnoses={} AND Treatments={} AND Score={} AND EndHealth={} AND "
        "IFNULL(Saved,0)={} AND SimTime={}",
        quoted(patient.status), quoted(patient.guess), s.testCount.toInt(), s.diagnosisCount.toInt(),
        s.treatmentCount.toInt(), s.score.toInt(), s.health.toFloat() / 10, s.patientSaved ? 1 : 0,
        quoted(s.simTimeText));
}

std::vector<RowRule> rowRules() {
    const Int16 notes = notesTaken();
    const Int32 states = Int32(s.diagnosisCount) + (seen.allDiseases ? 1 : 0);
    const auto acts = [](const char* action) {
        return "COUNT(*) FROM {3} WHERE Action='" + std::string(action) + "'";
    };
    const auto details = [](const char* table) {
        return "FROM " + std::string(table) + " JOIN {3} USING (EventID)";
    };
    const std::string lastNumber = "IFNULL(MAX(CAST(SUBSTR(EventID, LENGTH({2}) + 1) AS INT)), 0)";
    std::vector<RowRule> rules{
        {"events", "COUNT(*) FROM {3}", number(s.eventCount)},
        {"events with a number of their own", "COUNT(DISTINCT EventID) FROM {3}", number(s.eventCount)},
        {"the last event's number", lastNumber + " FROM {3}", number(s.eventCount)},
        {"notes", acts("AddSymptom"), number(notes)},
        {"removals", acts("RemoveSymptom"), number(s.removeCount)},
        {"tests", acts("Testing"), number(s.testCount)},
        {"diagnoses", acts("Diagnose"), number(s.diagnosisCount)},
        {"prescriptions", acts("Prescribe"), number(s.treatmentCount)},
        {"rows of notes", "COUNT(*) " + details("dataGetSymptoms"), number(notes)},
        {"rows of tests issued", "COUNT(DISTINCT Position) " + details("dataGetTests"), number(s.testCount)},
        {"tests whose event says the same",
         "COUNT(*) " + details("dataGetTests") + " WHERE (Result='Present')=(Output<>0)",
         number(s.testCount)},
        {"rows of prescriptions", "COUNT(*) " + details("dataTreatments"),
         number(Int32(s.treatmentCount) - seen.lostPrescriptions)},
        {"diagnoses with a row for each belief",
         "COUNT(*) FROM (SELECT COUNT(DISTINCT \"Order\") AS n, COUNT(*) AS m, MAX(Total) AS whole " +
             details("dataHypotheses") + " GROUP BY EventID) WHERE n=m AND n=whole",
         number(s.diagnosisCount)},
        {"states", "COUNT(DISTINCT StateID) FROM dataHypothesisState WHERE SUBSTR(StateID,1,LENGTH({2}))={2}",
         number(states)},
        {"events without their state",
         "COUNT(*) FROM {3} WHERE DiagnosisID<>{2}||'00' AND "
         "DiagnosisID NOT IN (SELECT StateID FROM dataHypothesisState)",
         number(0)},
        {"the last beliefs, as they are on show",
         "Guess, Belief " + details("dataHypotheses") +
             " WHERE Number=(SELECT MAX(ActionNum) FROM {3} WHERE "
             "Action='Diagnose') ORDER BY \"Order\"",
         hypothesesOnShow()},
        {"rows of the subject", "COUNT(*) FROM SubjectInfo WHERE Subject={0}", number(1)},
        {"trials of the subject", "COUNT(DISTINCT Trial) FROM dataTrial WHERE Subject={0}",
         number(s.trialNumber)},
        {"the last trial's number", "MAX(Trial) FROM dataTrial WHERE Subject={0}", number(s.trialNumber)}};
    if (!seen.hundredNotes)
        rules.push_back({"removed notes", "COUNT(*) " + details("dataGetSymptoms") + " WHERE Deleted<>0",
                         number(s.removeCount)});
    if (ended()) rules.push_back({"the ended trial", endedTrial(), number(1)});
    return rules;
}

std::string rowsOf(const std::string& select) {
    const auto filled = [](const std::string& text, const std::string& events) {
        return fmt::format(fmt::runtime(text), quoted(s.subjectName), s.trialNumber.toInt(),
                           quoted(modAppRecord::trialStem()), events);
    };
    try {
        const std::string events = filled("(SELECT * FROM dataEvents WHERE Subject={0} AND Trial={1})", {});
        const std::string rows = sqlText::rows("SELECT " + filled(select, events));
        return rows.substr(rows.find('\n') + 1);
    } catch (const Refused& refused) {
        return refused.reason;  // not as an exception: it would be taken for that of an act
    }
}

std::string compareRows() {
    if (seen.caseRepeated) return {};
    for (const RowRule& rule : rowRules()) {
        const std::string found = rowsOf(rule.select);
        if (found != rule.wanted) return fmt::format("{}: {}wanted {}", rule.name, found, rule.wanted);
    }
    return {};
}

// ---- Ends

std::string lastAct;

bool answeredNo(const char* title) { return lastAct == "try answer No" && seen.answered.starts_with(title); }

int faultOf(const std::string& report) {
    const std::string begins = "Run-time error '";
    if (report.empty()) return 0;
    return report.starts_with(begins) ? std::atoi(report.c_str() + begins.size()) : -1;
}

bool lengthOverflows() { return Options.SimRate.value().toInt() * Options.Time.value().toInt() > 546; }

/// The trace stands at the panel's width times what has gone of the planned length, in twips.
bool traceOverflows() {
    return s.trialMinutes > 0 &&
           t.lblHealthScreen.place.width * s.elapsedMinutes.toFloat() / s.trialMinutes > 32767;
}

bool scoreOverflows() {
    const double award = std::fabs(Options.HealAward.number()) * s.health.toFloat() / 10;
    const double tests = std::fabs(Options.TestCost.number()) * s.testCount.toFloat();
    return award + tests + std::fabs(Options.MaxBeliefCost.number()) > 32767 ||
           std::fabs(Options.InitScore.number()) > 2147483647 - 65536;
}

bool fourRowsMissTheDisease() {
    const std::string& word = s.diseaseTerms[s.diseaseIndex].term;
    return d.DiagnosisCount == 4 &&
           std::ranges::none_of(d.cboHypothesis, [&](const Control& name) { return name.text == word; });
}

bool symptomsOutnumberMeters() { return Options.DiagnoseAllDiseases && s.symptomCount > 4; }

struct End {
    int fault;  ///< number of the run-time error, 0 for none
    const char* name;
    bool (*came)();
};

constexpr End ends[] = {
    {0, "walked to its end", [] { return lastAct.empty(); }},
    {0, "main screen closed", [] { return lastAct == "try close frmTavix"; }},
    {0, "quit at sign-in", [] { return frmLogin.QuitMe; }},
    {0, "No at the end of the roster", [] { return answeredNo("All Patients Diagnosed"); }},
    {0, "No at a refusal of the store", [] { return answeredNo("Problems opening table"); }},
    {6, "6: the planned length", lengthOverflows},
    {6, "6: the trace far past its panel", traceOverflows},
    {6, "6: the score", scoreOverflows},
    {9, "9: four rows without the disease", fourRowsMissTheDisease},
    {9, "9: more symptoms than meters for the first beliefs", symptomsOutnumberMeters},
    {11, "11: no clock was set up", [] { return s.trialMinutes == 0; }},
    {380, "380: an option past its meter", [] { return s.trialKey.empty(); }},
    {380, "380: the dialog loads a belief past its meter", [] { return d.isLoading; }},
};

}  // namespace

void begin() {
    seen = {};
    host().messageBox = [show = host().messageBox](const MessageBox& box) { return showBox(show, box); };
    runHooks().setupPatientDisplay.action = [display = runHooks().setupPatientDisplay.action] {
        display();
        const std::vector<MessageBox> standing = seen.standing;
        seen = {};
        seen.standing = standing;
        seen.caseRepeated = s.patients[s.currentPatient].status != "Under Surveillance";
        seen.allDiseases = static_cast<bool>(Options.DiagnoseAllDiseases);
    };
}

void note(const Control& control, Property property) {
    if (&control == &t.lstSymptoms && t.lstSymptoms.items.size() >= 100) seen.hundredNotes = true;
    // A result that comes after the end of the patient, on the clock's last tick.
    if (&control == &t.cmdIssue && t.cmdIssue.enabled && ended()) seen.limitAtTheEnd = true;
    if (&control != &t.lblHealth || property != Property::Caption) return;
    const bool limit = s.health == 0 || s.health == 1000;
    if (s.health < 0 || s.health > 1000 || (limit && !ended()))
        seen.oddHealth = std::to_string(s.health.toInt());
}

std::string broken() {
    seen.wasAtRest = atRest();
    std::string wrong = firstBroken(always);
    // At the experimenter's key the options are on show by now.
    const bool over = ended() && seen.standing.empty() && !seen.compared;
    if (wrong.empty() && over) wrong = compareRows();
    seen.compared = seen.compared || over;
    return wrong.empty() && seen.wasAtRest ? firstBroken(resting) : wrong;
}

/// A trial whose row has only just been begun has the counters of the last one.
std::string brokenRows() {
    return seen.wasAtRest && s.trialKey == modAppRecord::trialStem() ? compareRows() : std::string();
}

std::string endName(const std::string& act, const std::string& report) {
    lastAct = act;
    for (const End& end : ends) {
        if (end.fault == faultOf(report) && end.came()) return end.name;
    }
    return {};
}

}  // namespace walkRules
