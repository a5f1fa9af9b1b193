// The experimenter's editor of the option values. Its controls are the home of these values while the
// program runs; the rest of the system reads them by their names in Options.
#pragma once

#include "forms/design.h"

struct FrmOptions {
    Control form;

    Control fraTime, hsbLength, lblLengthTitle, lblLengthMin, lblLengthMax, lblLength, lblMinutes;
    Control hsbRate, lblRateTitle, lblHoursMin, lblHoursMax, lblRate, lblHourUnits;
    Control lblStartTime, lblColon;
    Elements<2> txtTime;

    Control fraSettings, fraScoring;
    Control lblInitScore, txtInitScore, lblTestBuffer, txtTestBuffer, lblBeliefBuffer, txtBeliefBuffer;
    Control lblTestCost, txtTestCost, lblBeliefCost, txtBeliefCost, lblHealAward, txtHealAward;

    Control fraPatients, chkCycle, chkOptionsFrequency;
    Control fraDiagnosis, chkForce, chkStopTime, chkDiagnoseAll, chkInitToBaseRates, chkYoke, chkNormalize;
    Control Frame1, chkFeedbackSymptom, chkFeedbackTests, chkDiseaseProbability, chkUseNormalize,
        chkShowNormalize, chkBestTreatment;
    Control fraExperimentDepth, chkTreatments, chkRisk, chkOneTreatment;
    Control fraTables, chkBaseRates, chkSVD, chkTreatmentTable;
    Control cmdStart;

    bool isLoaded = false;  ///< created at the first use, with a title that does not follow later changes
};

extern FrmOptions frmOptions;

void designFrmOptions();
