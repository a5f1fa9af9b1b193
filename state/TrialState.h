// The state of the run: one instance, alive from the start of the program to its end, written and read on
// the one event thread. Fields stand under the module that owns them; the others read them directly.
#pragma once

#include <cstdint>
#include <string>

#include "platform/checkedInteger.h"
#include "platform/list.h"
#include "state/records.h"

struct TrialState {
    // Who and what: sign-in.
    std::string subjectName;
    std::string settingName;
    Int16 settingIndex = -1;  ///< place in the sign-in list, -1 until chosen
    std::string testLengthSetting;

    // The flow of trials.
    Int16 trialNumber;
    Int32 score;
    std::string trialKey;
    std::string diagnosisStateId;
    bool patientSaved = false;
    std::string actualTimeText;  ///< real length of the trial, m:ss
    std::string simTimeText;     ///< simulated length of the trial, hh:mm

    // Counters of the trial, 0 at its start.
    Int16 eventCount;
    Int16 noteSymptomCount;
    Int16 evidenceCount;
    Int16 removeCount;
    Int16 testCount;
    Int16 diagnosisCount;
    Int16 treatmentCount;
    Int16 elapsedHours;
    Int32 elapsedMinutes;

    // modClock.
    Int16 clockHour;
    Int16 clockMinute;
    Int16 endHour;
    Int16 endMinute;
    Int16 endPasses;  ///< how many times the end time is let go by
    Int16 trialHours;
    double trialMinutes = 0;
    std::uint32_t trialStartTick = 0;  ///< milliseconds

    // modHealth.
    Int16 health;       ///< tenths of a point, 0 to 1000 in normal running
    Int16 healthTrend;  ///< kept up to date and never applied
    bool healPending = false;
    bool hurtPending = false;
    Int16 monitorSegments;
    Int16 monitorIndex;
    Int16 monitorX;           ///< twips from the left edge of the panel
    double monitorDepth = 0;  ///< 0 at the top of the panel, 1 at the bottom

    // modDisease.
    List<Disease> diseaseTerms;
    Int16 diseaseCount;
    List<Symptom> symptomTerms;
    Int16 symptomTermCount;
    List<ProbabilityRow> baseRates;
    Int16 baseRateRows;
    List<ProbabilityRow> diseaseSymptom;
    Int16 symptomCount;
    Int16 tableDiseaseCount;

    // modLikely.
    LikelihoodTable likelihoodTable;
    double likelihoodRows = 0;

    // modPatient.
    List<Patient> patients;
    Int16 patientCount;
    Int16 patientsSeen;
    Int16 currentPatient;
    Int16 diseaseIndex;
    List<SymptomFinding> symptomFindings;
    Int16 findingsMask;  ///< symptom 0 is the highest of symptomCount bits
    Int16 extraFindingCount;

    // modSymptom.
    List<std::string> symptomNotes;
    Int16 symptomNoteCount;

    // modTests.
    List<Test> tests;
    Int16 testTypeCount;

    // modTreatments.
    List<Treatment> treatments;
    Int16 treatmentTypeCount;
    Int16 treatmentMaxDisease;
    bool harmed = false;
    Int16 lastTreatmentIndex;

    // The diagnosis dialog.
    Int16 guessRow;
    Int16 guessDiseaseIndex;  ///< never written: a guess text ends in a percent sign and equals no word
    Int16 guessBelief;

    // The evaluation.
    double penalty = 0;
};

extern TrialState trialState;
