// The main screen, on which the subject works: status line, three pages of work, health monitor, notes, and
// the feedback and score frames that come up at the end of a patient.
#pragma once

#include "forms/design.h"
#include "platform/list.h"

/// One stretch of the health trace, in twips of the main screen.
struct PlotSegment {
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    bool visible = false;
};

struct FrmTavix {
    Control form;

    // Status line.
    Control fraStatus, tagPatient, lblPatientName, tagScore, lblScore, tagClock, lblClock, tagHealth,
        lblHealth;
    Control tmrClock, tmrHealth, tmrHealthMonitor;

    Control tabTavix;

    // Page "Patient".
    Control lblHowTo, imgPatient, lblWelcome;
    Control fraDescription, tagAge, lblAge, tagGender, lblGender, tagHeight, lblHeight, tagWeight, lblWeight;
    Control txtIntro, cmdEvidence, fraComments, txtReasoning, cmdNoteSymptom;

    // Page "Tests".
    Control fraTests, tagAvailable, tagTestTime, tagETA, tagResults;
    Elements<6> optTest, lblTestTime, chartETA, lblETA, lblTestResult;
    Control cmdIssue, lblTestMessage, tmrTestMessage;
    Control fraSigns, tagTemp, lblTemp, tagPulse, lblPulse, tagBP, lblBP, tagRR, lblRR;
    Control lblBaseRates, lblSvD, txtSvD;
    Control fraDiagnose1, cmdDiagnosis, tagCurrent, lblCurrentHypothesis;

    // Page "Treatments".
    Control fraIdentification, cmdChange, tmrForceDiagnosisAfterTest;
    Elements<4> fraHypothesis, lblHypothesis, hsbBelief, lblBelief;
    Control fraTreatment, lblHelpHeader, lstTreatments, cboTreatment, cmdPrescribe;

    // Health monitor.
    Control lblHealthBorder, lblHealthScreen, lblMonitorX, lblMonitorY;
    Elements<5> lblHealthScale;
    Elements<7> linHealthScale, lblX, linTimeScale;
    List<PlotSegment> linHealth;

    // Notes.
    Control fraSymptoms, lstSymptoms, cmdRemove;

    // Score.
    Control fraScore, tagPrevious, lblPrevious, tagRemain, lblEndHealth, lblHealthFactor, lblHealthScore,
        tagTestScore, lblTestCount, lblTestFactor, lblFirstEqual, lblTestScore, tagBeliefDiff, lblDiffScore,
        tagPenaltyScore, tagPenaltyCalc, lblEqual, lblPenaltyCalc, tagScoreChange, lblScoreChange,
        tagNewScore, lblNewScore, cmdViewNorm;

    // Feedback.
    Control fraFeedback, tagFinalDiagnosis, tagAnswer, tagDisease, lblFinalDiagnosis, lblAnswer,
        tagYourBelief, lblDiagnosisBelief, lblDiseaseBelief, tagDiseaseProbability, lblDiagChance,
        lblDiseaseChance, tagNormalized, lblDiagNormalized, lblDiseaseNormalized, tagTreatment,
        lblYourTreatment, lblBestTreatment, tagTreatmentHeal, lblYourHeal, lblActualHeal, tagTreatmentHurt,
        lblYourHurt, lblActualHurt, tagPenalty, lblPenalty, tagDiff, lblDiff, Line0, Line1, Line2, Line3,
        tagTestResults, lblAllTests, lblTestResults, lblSymptomology, lblEndSvD;

    Control cmdNextPatient;

    // Development frame, never on show.
    Control fraDeleteLater, lblDAnswer, cmdHeal, cmdHurt, lblSetting, cboT;

    bool optionsRequested = false;  ///< the next patient clears chkOptionsFrequency before the dialog shows
};

extern FrmTavix frmTavix;

void designFrmTavix();

/// A plot segment has changed; -1 stands for all of them.
using PlotWatcher = std::function<void(int segment)>;
void watchPlot(PlotWatcher watcher);
void tellPlotWatchers(int segment);
void forgetPlotWatchers();
