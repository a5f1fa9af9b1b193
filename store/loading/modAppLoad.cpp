#include "store/loading/modAppLoad.h"

#include <string>

#include "forms/frmLogin.h"
#include "forms/frmTavix.h"
#include "knowledge/modDisease.h"
#include "knowledge/modLikely.h"
#include "knowledge/modPatient.h"
#include "knowledge/modTests.h"
#include "knowledge/modTreatments.h"
#include "knowledge/termOrders.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/record/Options.h"
#include "trial/course/runHooks.h"

namespace modAppLoad {

namespace {

std::string textOrEmpty(const Field& field) { return field.isNull() ? std::string() : field.text(); }

/// A start time of 9:05 is held as "09" and "05". The minute, not the hour, decides whether the hour gets its
/// zero: 9:30 stays "9", and 12:05 becomes "012". Both read back as they should.
void loadStartTime(RecordSet& row) {
    const Field minute = row.Fields("StartMin");
    const std::string zero = !minute.isNull() && numberText::toNumber(minute.text()) < 10 ? "0" : "";
    Options.StartHour.set(zero + textOrEmpty(row.Fields("StartHour")));
    Options.StartMin.set(zero + textOrEmpty(minute));
}

/// One column for two flags that exclude each other; an empty one leaves both as they are. False for a value
/// that is none of the three.
bool loadTreatmentProperty(RecordSet& row) {
    const Field property = row.Fields("TreatmentProperty");
    if (property.isNull()) return true;
    const double value = property.number();
    if (value != 1 && value != 0 && value != -1) return false;
    Options.OneTreatment.set(value == 1);
    Options.Risk.set(value == -1);
    return true;
}

enum class Outcome { Loaded, NoRow, OddTreatmentProperty };

Outcome readOptions() {
    RecordSet row =
        openTable("SELECT * FROM [tblAppDefault] WHERE [Setting]='" + trialState.settingName + "'", true,
                  "Loading options");
    if (row.isEOF()) return Outcome::NoRow;
    trialState.testLengthSetting = textOrEmpty(row.Fields("TestLengthSetting"));
    Options.Time.set(row.Fields("Time").short16());
    Options.SimRate.set(row.Fields("SimRate").short16());
    loadStartTime(row);
    for (const TextColumn& column : textColumns())
        (Options.*column.field).set(textOrEmpty(row.Fields(column.column)));
    for (const FlagColumn& column : flagColumns()) {
        if (row.Fields(column.column).isTrue()) (Options.*column.flag).set(true);
    }
    // After DoTreatments, whose own rule sets the two flags as well.
    return loadTreatmentProperty(row) ? Outcome::Loaded : Outcome::OddTreatmentProperty;
}

void readSettings(Control& list) {
    RecordSet settings =
        openTable(std::string("SELECT * FROM [tblAppDefault] ") + "ORDER BY [tblAppDefault.Setting]", true,
                  "opening tblAppDefault table for settings");
    for (; !settings.isEOF(); settings.MoveNext()) addItem(list, settings.Fields("Setting").text());
}

}  // namespace

void listSettings() {
    Control& list = frmLogin.cboType;
    readSettings(list);
    if (!list.items.empty()) setText(list, list.items.front());
}

void loadOptions() {
    runHook(runHooks().loadOptionsForm);
    const Outcome outcome = readOptions();
    if (outcome == Outcome::Loaded) return;
    if (outcome == Outcome::NoRow) {
        tell("Settings in tblappdefault were somehow deleted", "Weird option load error");
    } else {
        tell("Error in TreatmentProperty of options in database file, table tblAppDefault");
    }
    endProgram();
}

void loadCaseData() {
    modPatient::loadPatients();
    modDisease::loadBaseRates();
    modDisease::loadDiseaseSymptom();
    if (frmLogin.IsNew) {
        termOrders::loadVocabulary();
    } else {
        termOrders::restoreTermOrders();
    }
    modTests::loadTests();
    modTreatments::loadTreatments();
}

void changeSetting() {
    const Control& list = frmTavix.cboT;
    const int position = findItem(list, list.text);
    if (position < 0) return;
    trialState.settingIndex = position;
    trialState.settingName = list.text;
    loadCaseData();
    modLikely::buildLikelihoodTable();
    modTreatments::displayTreatments();
}

}  // namespace modAppLoad
