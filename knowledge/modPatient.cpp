#include "knowledge/modPatient.h"

#include <cmath>

#include "forms/frmTavix.h"
#include "forms/lineBreaks.h"
#include "knowledge/caseDraw.h"
#include "knowledge/modTreatments.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/randomSource.h"
#include "platform/text.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/record/Options.h"

namespace modPatient {

namespace {

constexpr const char* untreated = "Untreated";
constexpr int mostTries = 50;

std::string patientFile(const std::string& name) { return host().programFolder() + "/Patients/" + name; }

Patient readPatient(RecordSet& row) {
    Patient patient;
    patient.name = row.Fields("Name").text();
    patient.age = row.Fields("Age").short16();
    patient.male = row.Fields("Male?").isTrue();
    patient.height = row.Fields("Height").short16();
    patient.weight = row.Fields("Weight").short16();
    patient.health = row.Fields("Health").short16();
    patient.picture = row.Fields("Picture").text();
    const Field intro = row.Fields("Intro");
    patient.intro = intro.isNull() ? std::string() : intro.text();
    patient.guess = "None";
    patient.status = untreated;
    return patient;
}

void readRoster() {
    TrialState& s = trialState;
    RecordSet rows = openTable("tblPatients", true, "Loading patients");
    s.patientCount = rows.recordCount();
    s.patients = {};
    for (; !rows.isEOF(); rows.MoveNext()) s.patients.add(readPatient(rows));
    s.patientsSeen = 0;
}

/// A returning subject goes on with the last trial number and the last score.
void resumeSubject() {
    TrialState& s = trialState;
    RecordSet trials =
        openTable(std::string("SELECT Subject, Trial, Score FROM dataTrial ") +
                      "WHERE [dataTrial.Subject]='" + s.subjectName + "' " + "ORDER BY Trial DESC",
                  true, "Load Trial and Score");
    if (trials.isEOF()) {
        s.trialNumber = 0;
        s.score = 0;
    } else {
        s.trialNumber = trials.Fields("Trial").short16();
        Options.InitScore.set(trials.Fields("Score").text());
    }
}

void cycleRoster() {
    const bool again =
        Options.CyclePatients ||
        ask("Please alert moderator to click Yes to cycle again or No to quit", "All Patients Diagnosed");
    if (!again) endProgram();
    for (Patient& patient : trialState.patients) patient.status = untreated;
    trialState.patientsSeen = 0;
}

/// Draws until somebody untreated comes up; false after too many tries.
bool choosePatient() {
    TrialState& s = trialState;
    for (int tries = 1; tries <= mostTries; ++tries) {
        randomSource::reseed(host().milliseconds());
        s.currentPatient = floor16(randomSource::draw() * s.patientCount.toFloat());
        if (s.patients[s.currentPatient].status == untreated) return true;
    }
    tell("Could not retrieve patient info");
    return false;
}

void showPatient(Patient& patient) {
    FrmTavix& f = frmTavix;
    setCaption(f.lblPatientName, patient.name);
    setCaption(f.lblAge, numberText::whole(patient.age));
    setCaption(f.lblGender, patient.male ? "Male" : "Female");
    setCaption(f.lblHeight, numberText::whole(floor16(patient.height.toFloat() / 12)) + "'" +
                                numberText::whole(patient.height % 12) + "\"");
    setCaption(f.lblWeight, numberText::whole(patient.weight) + " lbs");
    if (!patient.intro.empty()) setText(f.txtIntro, readIntroFile(patient.intro));
    const std::string picture = patientFile(patient.picture);
    host().checkPicture(picture);
    setPicture(f.imgPatient, picture);
}

}  // namespace

void loadPatients() {
    readRoster();
    resumeSubject();
}

void nextPatient() {
    TrialState& s = trialState;
    if (s.patientCount == 0) {
        tell("conduct tests only", "No patient information available");
    } else {
        if (s.patientsSeen >= s.patientCount) cycleRoster();
        if (!choosePatient()) return;
        Patient& patient = s.patients[s.currentPatient];
        ++s.patientsSeen;
        patient.status = "Under Surveillance";
        showPatient(patient);
    }
    drawDisease();
    drawFindings();
    modTreatments::chooseBestTreatment();
    ++s.trialNumber;
}

std::string readIntroFile(const std::string& name) {
    std::string result = lineBreaks::held(text::fromFileBytes(files::read(patientFile(name))));
    if (!result.empty() && !result.ends_with("\r\n")) result += "\r\n";
    return result;
}

}  // namespace modPatient
