#include "forms/frmTavix.h"

FrmTavix frmTavix;

namespace {

using design::Container;
using design::label;

constexpr Look smallText{165};
constexpr Look smallBold{165, true};
constexpr Look smallRight{165, false, false, Look::Align::Right};
constexpr Look smallBoldRight{165, true, false, Look::Align::Right};
constexpr Look tagText{180};
constexpr Look tableText{190, false, true};
constexpr Look nameValue{285, true};
constexpr Look bigValue{405, true};

std::vector<PlotWatcher>& plotWatchers() {
    static std::vector<PlotWatcher> list;
    return list;
}

void designStatusLine(FrmTavix& f) {
    design::place({&f.form}, f.fraStatus, Kind::Frame, "fraStatus", {120, 0, 7575, 855}).visible = false;
    const Container in{&f.fraStatus};
    label(in, f.tagPatient, "tagPatient", {120, 60, 2700, 225}, "Name:").look = tagText;
    label(in, f.lblPatientName, "lblPatientName", {120, 300, 2655, 480}).look = nameValue;
    label(in, f.tagScore, "tagScore", {2940, 60, 1500, 225}, "Score:").look = tagText;
    label(in, f.lblScore, "lblScore", {2940, 300, 1560, 480}, "2000").look = bigValue;
    label(in, f.tagClock, "tagClock", {4620, 60, 1350, 225}, "Time:").look = tagText;
    label(in, f.lblClock, "lblClock", {4620, 300, 1350, 480}, "01:00").look = bigValue;
    label(in, f.tagHealth, "tagHealth", {6090, 60, 1365, 225}, "Health:").look = tagText;
    label(in, f.lblHealth, "lblHealth", {6090, 300, 1365, 480}, "75.0 ").look = bigValue;
    design::timer(in, f.tmrClock, "tmrClock", 1000);
    design::timer(in, f.tmrHealth, "tmrHealth", 30);
}

void designPatientPage(FrmTavix& f) {
    const Container page{&f.tabTavix, 0};
    design::place(page, f.imgPatient, Kind::Picture, "imgPatient", {120, 180, 3615, 2295});
    label(page, f.lblWelcome, "lblWelcome", {3960, 180, 3495, 390}).look = {255, true};
    design::place(page, f.fraDescription, Kind::Frame, "fraDescription", {3960, 660, 3495, 1815},
                  "Description");
    const Container description{&f.fraDescription};
    struct Row {
        Control* tag;
        const char* tagName;
        const char* caption;
        Control* value;
        const char* valueName;
    };
    float top = 330;
    for (const Row& row : {Row{&f.tagAge, "tagAge", "Age:", &f.lblAge, "lblAge"},
                           Row{&f.tagGender, "tagGender", "Gender:", &f.lblGender, "lblGender"},
                           Row{&f.tagHeight, "tagHeight", "Height:", &f.lblHeight, "lblHeight"},
                           Row{&f.tagWeight, "tagWeight", "Weight:", &f.lblWeight, "lblWeight"}}) {
        label(description, *row.tag, row.tagName, {150, top, 1050, 285}, row.caption);
        label(description, *row.value, row.valueName, {1260, top, 2085, 285}).look = {210, true};
        top += 360;
    }
    label(page, f.lblHowTo, "lblHowTo", {120, 2580, 7335, 690},
          "Highlight text in the paragraph below and press the \"Add Symptom\" button to record important "
          "symptoms.   To remove notes from Symptom list, select the undesired symptoms and press the "
          "\"Remove\" button.")
        .look = tagText;
    Control& intro = design::place(page, f.txtIntro, Kind::TextBox, "txtIntro", {120, 3330, 7335, 3450});
    intro.multiLine = true;
    intro.readOnly = true;
    intro.look = {210};
    design::button(page, f.cmdEvidence, "cmdEvidence", {4935, 6870, 2520, 435}, "&Add Symptom ==>");
    design::place(page, f.fraComments, Kind::Frame, "fraComments", {120, 7365, 7335, 1380},
                  "Comments/Reasoning");
    const Container comments{&f.fraComments};
    design::place(comments, f.txtReasoning, Kind::TextBox, "txtReasoning", {150, 315, 7035, 405});
    design::button(comments, f.cmdNoteSymptom, "cmdNoteSymptom", {4665, 810, 2520, 435},
                   "&Take Down Note ==>");
}

void designTestSlots(FrmTavix& f) {
    design::place({&f.tabTavix, 1}, f.fraTests, Kind::Frame, "fraTests", {120, 120, 7335, 3930},
                  "Tests (One at a Time - Double Click to Issue)");
    const Container in{&f.fraTests};
    label(in, f.tagAvailable, "tagAvailable", {150, 300, 1950, 240}, "Available").look = tagText;
    label(in, f.tagTestTime, "tagTestTime", {2160, 300, 1350, 240}, "Time (Minutes)").look = tagText;
    label(in, f.tagETA, "tagETA", {3600, 300, 2100, 240}, "ETA of results").look = tagText;
    label(in, f.tagResults, "tagResults", {6000, 300, 1200, 240}, "Results").look = tagText;
    for (int i = 0; i < 6; ++i) {
        const float top = 600 + 450 * static_cast<float>(i);
        design::place(in, f.optTest[i], Kind::OptionButton, "optTest", {150, top, 2250, 345}, {}, i);
        label(in, f.lblTestTime[i], "lblTestTime", {2460, top + 45, 600, 255}, "30", i);
        design::place(in, f.chartETA[i], Kind::Chart, "chartETA", {3150, top + 30, 1875, 285}, {}, i);
        label(in, f.lblETA[i], "lblETA", {5160, top + 45, 750, 255}, {}, i).look = {210, true};
        label(in, f.lblTestResult[i], "lblTestResult", {6000, top + 45, 1200, 255}, {}, i).look = {210, true};
    }
    design::button(in, f.cmdIssue, "cmdIssue", {150, 3360, 1500, 435}, "Issue");
    label(in, f.lblTestMessage, "lblTestMessage", {1800, 3345, 5400, 465},
          "Double click available tests to issue. One test at a time.")
        .look = tagText;
    design::timer(in, f.tmrTestMessage, "tmrTestMessage", 3000);
}

void designTestsPage(FrmTavix& f) {
    designTestSlots(f);
    const Container page{&f.tabTavix, 1};
    label(page, f.lblBaseRates, "lblBaseRates", {120, 4140, 7335, 240}).look = tableText;
    label(page, f.lblSvD, "lblSvD", {120, 4410, 7335, 270}).look = tableText;
    Control& table = design::place(page, f.txtSvD, Kind::TextBox, "txtSvD", {120, 4695, 7335, 1455});
    table.multiLine = true;
    table.readOnly = true;
    table.look = tableText;

    design::place(page, f.fraSigns, Kind::Frame, "fraSigns", {120, 6240, 3975, 2475},
                  "Vital Signs (Normal Range)");
    const Container signs{&f.fraSigns};
    struct Row {
        Control* tag;
        const char* tagName;
        const char* caption;
        Control* value;
        const char* valueName;
    };
    float top = 390;
    for (const Row& row : {Row{&f.tagTemp, "tagTemp", "Temperature (37.9):", &f.lblTemp, "lblTemp"},
                           Row{&f.tagPulse, "tagPulse", "Pulse (60-90):", &f.lblPulse, "lblPulse"},
                           Row{&f.tagBP, "tagBP", "Blood Pressure (120/80):", &f.lblBP, "lblBP"},
                           Row{&f.tagRR, "tagRR", "Respiratory Rate (12-18):", &f.lblRR, "lblRR"}}) {
        label(signs, *row.tag, row.tagName, {150, top + 30, 2550, 285}, row.caption);
        label(signs, *row.value, row.valueName, {2760, top, 1065, 345}).look = {210, true, false,
                                                                                Look::Align::Centre};
        top += 495;
    }

    design::place(page, f.fraDiagnose1, Kind::Frame, "fraDiagnose", {4215, 6240, 3240, 2475}, "Diagnose", 1);
    const Container diagnose{&f.fraDiagnose1};
    design::button(diagnose, f.cmdDiagnosis, "cmdDiagnosis", {150, 375, 2940, 570}, "Make Diagnosis");
    label(diagnose, f.tagCurrent, "tagCurrent", {150, 1065, 2940, 255}, "Current Diagnosis").look = tagText;
    label(diagnose, f.lblCurrentHypothesis, "lblCurrentHypothesis", {150, 1320, 2940, 1020}).look = {210,
                                                                                                     true};
}

void designTreatmentsPage(FrmTavix& f) {
    const Container page{&f.tabTavix, 2};
    design::place(page, f.fraIdentification, Kind::Frame, "fraIdentification", {120, 120, 7335, 2940},
                  "Disease Hypotheses");
    for (int i = 0; i < 4; ++i) {
        const auto column = static_cast<float>(i % 2);
        const float row = i < 2 ? 0 : 1;
        Control& frame =
            design::place({&f.fraIdentification}, f.fraHypothesis[i], Kind::Frame, "fraHypothesis",
                          {150 + 3570 * column, 300 + 1005 * row, 3465, 930}, {}, i);
        frame.visible = false;
        const Container in{&frame};
        label(in, f.lblHypothesis[i], "lblHypothesis", {120, 150, 2310, 285}, {}, i).look = {210, true};
        label(in, f.lblBelief[i], "lblBelief", {2520, 150, 825, 285}, {}, i).look = {210, true, false,
                                                                                     Look::Align::Right};
        Control& meter =
            design::scrollBar(in, f.hsbBelief[i], "hsbBelief", {120, 525, 3225, 255}, 0, 100, 0, i);
        meter.enabled = false;
    }
    design::button({&f.fraIdentification}, f.cmdChange, "cmdChange", {4665, 2370, 2520, 435},
                   "Change Diagnosis");
    design::timer({&f.fraIdentification}, f.tmrForceDiagnosisAfterTest, "tmrForceDiagnosisAfterTest", 10);

    design::place(page, f.fraTreatment, Kind::Frame, "fraTreatment", {120, 3150, 7335, 5565}).visible = false;
    const Container in{&f.fraTreatment};
    Control& help = label(in, f.lblHelpHeader, "lblHelpHeader", {150, 180, 7035, 255}, "Probabilities:");
    help.look = tagText;
    help.look.clips = true;  // its caption grows with each patient
    design::place(in, f.lstTreatments, Kind::ListBox, "lstTreatments", {150, 465, 7035, 4335}).look =
        tableText;
    design::place(in, f.cboTreatment, Kind::ComboBox, "cboTreatment", {150, 4965, 4425, 405},
                  "Choose Treatment...");
    design::button(in, f.cmdPrescribe, "cmdPrescribe", {4665, 4935, 2520, 465}, "Prescribe");
}

void designMonitor(FrmTavix& f) {
    const Container in{&f.form};
    label(in, f.lblHealthBorder, "lblHealthBorder", {7800, 120, 7335, 3735}, "Health Monitor").look.framed =
        true;
    label(in, f.lblHealthScreen, "lblHealthScreen", {8280, 600, 6735, 2895});
    label(in, f.lblMonitorY, "lblMonitorY", {7860, 390, 750, 195}, "Health").look = smallText;
    label(in, f.lblMonitorX, "lblMonitorX", {7860, 3570, 600, 210}, "Time").look = smallText;
    constexpr std::array<const char*, 5> scale{"100", "75", "50", "25", "0"};
    for (int i = 0; i < 5; ++i) {
        const float middle = 600 + 2895 * static_cast<float>(i) / 4;
        const float top = i == 0 ? 600.F : i == 4 ? 3285.F : middle - 105;
        label(in, f.lblHealthScale[i], "lblHealthScale", {7845, top, 390, 210},
              scale[static_cast<std::size_t>(i)], i)
            .look = smallRight;
    }
    for (int i = 0; i < 7; ++i) {
        const float y = 600 + 2895 * static_cast<float>(i + 1) / 8;
        const float x = 9122 + 842 * static_cast<float>(i);
        design::line(in, f.linHealthScale[i], "linHealthScale", 8280, y, 15015, y, i);
        design::line(in, f.linTimeScale[i], "linTimeScale", x, 3495, x, 3555, i);
        label(in, f.lblX[i], "lblX", {x - 375, 3570, 750, 210}, "15:00", i).look = {165, false, false,
                                                                                    Look::Align::Centre};
    }
    design::timer(in, f.tmrHealthMonitor, "tmrHealthMonitor", 1000);
    f.linHealth = {};
}

void designNotes(FrmTavix& f) {
    design::place({&f.form}, f.fraSymptoms, Kind::Frame, "fraSymptoms", {7800, 3960, 2535, 3615}, "Symptoms")
        .visible = false;
    const Container in{&f.fraSymptoms};
    design::button(in, f.cmdRemove, "cmdRemove", {120, 300, 2295, 435}, "&Remove Selected");
    Control& list = design::place(in, f.lstSymptoms, Kind::ListBox, "lstSymptoms", {120, 840, 2295, 2400});
    list.multiSelect = true;
    list.look = {180};
}

void designScore(FrmTavix& f) {
    design::place({&f.form}, f.fraScore, Kind::Frame, "fraScore", {7800, 7560, 2535, 2775}, "Score").visible =
        false;
    const Container in{&f.fraScore};
    // Tag, factors and result stand as in a sum on paper: the results under each other at the right.
    label(in, f.tagPrevious, "tagPrevious", {90, 255, 1500, 210}, "Previous Score:").look = smallText;
    label(in, f.lblPrevious, "lblPrevious", {1740, 255, 705, 210}).look = smallRight;
    label(in, f.tagRemain, "tagRemain", {90, 495, 855, 210}, "End Health:").look = smallText;
    label(in, f.lblEndHealth, "lblEndHealth", {930, 495, 420, 210}).look = smallRight;
    label(in, f.lblHealthFactor, "lblHealthFactor", {1350, 495, 555, 210}).look = smallText;
    label(in, f.lblHealthScore, "lblHealthScore", {1860, 495, 585, 210}).look = smallRight;
    label(in, f.tagTestScore, "tagTestScore", {90, 735, 855, 210}, "Tests:").look = smallText;
    label(in, f.lblTestCount, "lblTestCount", {930, 735, 375, 210}).look = smallRight;
    label(in, f.lblTestFactor, "lblTestFactor", {1350, 735, 465, 210}).look = smallText;
    label(in, f.lblFirstEqual, "lblFirstEqual", {1800, 735, 180, 210}, " =").look = smallText;
    label(in, f.lblTestScore, "lblTestScore", {1965, 735, 480, 210}).look = smallRight;
    label(in, f.tagBeliefDiff, "tagBeliefDiff", {90, 975, 1200, 210}, "Belief Diff:").look = smallText;
    label(in, f.lblDiffScore, "lblDiffScore", {1740, 975, 705, 210}).look = smallRight;
    label(in, f.tagPenaltyScore, "tagPenaltyScore", {90, 1215, 900, 210}, "Penalty").look = smallText;
    label(in, f.tagPenaltyCalc, "tagPenaltyCalc", {90, 1425, 1710, 210}).look = smallText;
    label(in, f.lblEqual, "lblEqual", {1785, 1425, 255, 210}, " = -").look = smallText;
    label(in, f.lblPenaltyCalc, "lblPenaltyCalc", {1995, 1425, 450, 210}).look = smallRight;
    label(in, f.tagScoreChange, "tagScoreChange", {90, 1710, 1500, 210}, "Score Change:").look = smallBold;
    label(in, f.lblScoreChange, "lblScoreChange", {1740, 1710, 705, 210}).look = smallBoldRight;
    label(in, f.tagNewScore, "tagNewScore", {90, 1965, 1500, 255}, "New Score:").look = {195, true};
    label(in, f.lblNewScore, "lblNewScore", {1500, 1965, 945, 255}).look = {195, true, false,
                                                                            Look::Align::Right};
    design::button(in, f.cmdViewNorm, "cmdViewNorm", {90, 2295, 2355, 375}, "View Normalized Beliefs").look =
        smallText;
}

struct FeedbackRow {
    float top;
    Control* tag;
    const char* tagName;
    const char* caption;
    Control* yours;
    const char* yoursName;
    Control* actual;
    const char* actualName;
};

void designFeedbackTable(FrmTavix& f) {
    const Container in{&f.fraFeedback};
    label(in, f.tagFinalDiagnosis, "tagFinalDiagnosis", {1380, 270, 1200, 210}, "Your Diagnosis").look =
        smallBold;
    label(in, f.tagAnswer, "tagAnswer", {2640, 270, 960, 210}, "Actual").look = smallBold;
    for (const FeedbackRow& row :
         {FeedbackRow{510, &f.tagDisease, "tagDisease", "Disease:", &f.lblFinalDiagnosis, "lblFinalDiagnosis",
                      &f.lblAnswer, "lblAnswer"},
          FeedbackRow{1020, &f.tagYourBelief, "tagYourBelief", "Your Probability Belief:",
                      &f.lblDiagnosisBelief, "lblDiagnosisBelief", &f.lblDiseaseBelief, "lblDiseaseBelief"},
          FeedbackRow{1500, &f.tagDiseaseProbability, "tagDiseaseProbability", "p(Disease given Symptoms):",
                      &f.lblDiagChance, "lblDiagChance", &f.lblDiseaseChance, "lblDiseaseChance"},
          FeedbackRow{1980, &f.tagNormalized, "tagNormalized",
                      "Normalized Probability Belief:", &f.lblDiagNormalized, "lblDiagNormalized",
                      &f.lblDiseaseNormalized, "lblDiseaseNormalized"},
          FeedbackRow{2460, &f.tagTreatment, "tagTreatment", "Treatment:", &f.lblYourTreatment,
                      "lblYourTreatment", &f.lblBestTreatment, "lblBestTreatment"},
          FeedbackRow{2940, &f.tagTreatmentHeal, "tagTreatmentHeal", "p(Treatment will Heal):",
                      &f.lblYourHeal, "lblYourHeal", &f.lblActualHeal, "lblActualHeal"},
          FeedbackRow{3390, &f.tagTreatmentHurt, "tagTreatmentHurt", "p(Treatment will Harm):",
                      &f.lblYourHurt, "lblYourHurt", &f.lblActualHurt, "lblActualHurt"}}) {
        label(in, *row.tag, row.tagName, {90, row.top, 1260, 420}, row.caption).look = smallText;
        label(in, *row.yours, row.yoursName, {1380, row.top, 1215, 420}).look = smallBold;
        label(in, *row.actual, row.actualName, {2640, row.top, 960, 420}).look = smallBold;
    }
}

void designFeedback(FrmTavix& f) {
    design::place({&f.form}, f.fraFeedback, Kind::Frame, "fraFeedback", {10440, 3960, 4695, 5655}, "Feedback")
        .visible = false;
    const Container in{&f.fraFeedback};
    designFeedbackTable(f);
    design::line(in, f.Line0, "Line0", 3600, 1200, 3720, 1200);
    design::line(in, f.Line1, "Line1", 3720, 1200, 3720, 1800);
    design::line(in, f.Line2, "Line2", 3600, 1800, 3720, 1800);
    design::line(in, f.Line3, "Line3", 3720, 1560, 3840, 1560);
    label(in, f.tagDiff, "tagDiff", {3885, 1230, 720, 210}, "Diff").look = smallText;
    label(in, f.lblDiff, "lblDiff", {3885, 1455, 720, 240}).look = smallBold;
    label(in, f.tagPenalty, "tagPenalty", {3885, 1860, 720, 210}, "Penalty").look = smallText;
    label(in, f.lblPenalty, "lblPenalty", {3885, 2085, 720, 240}).look = smallBold;
    label(in, f.tagTestResults, "tagTestResults", {90, 3870, 2100, 225}, "Test Results").look = smallBold;
    label(in, f.lblAllTests, "lblAllTests", {90, 3990, 1290, 1575}).look = smallText;
    label(in, f.lblTestResults, "lblTestResults", {1395, 3990, 780, 1575}).look = smallText;
    label(in, f.lblSymptomology, "lblSymptomology", {2280, 3870, 2325, 225}, "Symptomology").look = smallBold;
    label(in, f.lblEndSvD, "lblEndSvD", {2280, 4140, 2325, 1425}).look = tableText;
}

void designDevelopment(FrmTavix& f) {
    design::place({&f.form}, f.fraDeleteLater, Kind::Frame, "fraDeleteLater", {10440, 9720, 2895, 1335},
                  "For Development Testing")
        .visible = false;
    const Container in{&f.fraDeleteLater};
    label(in, f.lblDAnswer, "lblDAnswer", {120, 300, 1275, 300}, "Show Disease");
    design::button(in, f.cmdHeal, "cmdHeal", {1440, 255, 660, 375}, "Heal");
    design::button(in, f.cmdHurt, "cmdHurt", {2130, 255, 660, 375}, "Hurt");
    label(in, f.lblSetting, "lblSetting", {120, 840, 900, 255}, "Scenario:");
    design::place(in, f.cboT, Kind::ComboBox, "cboT", {1080, 780, 1710, 375});
}

}  // namespace

void designFrmTavix() {
    FrmTavix& f = frmTavix;
    design::form(f.form, "frmTavix", "Tavix", 15495, 11280);
    designStatusLine(f);
    Control& tabs =
        design::place({&f.form}, f.tabTavix, Kind::TabControl, "tabTavix", {120, 1080, 7575, 9255});
    tabs.visible = false;
    tabs.items = {"Patient", "Tests", "Treatments"};
    designPatientPage(f);
    designTestsPage(f);
    designTreatmentsPage(f);
    designMonitor(f);
    designNotes(f);
    designScore(f);
    designFeedback(f);
    design::button({&f.form}, f.cmdNextPatient, "cmdNextPatient", {13440, 9840, 1695, 495}, "Next Patient")
        .visible = false;
    f.cmdNextPatient.look.primary = true;
    designDevelopment(f);
    f.optionsRequested = false;
    design::finish(f.form);
}

void watchPlot(PlotWatcher watcher) { plotWatchers().push_back(std::move(watcher)); }

void tellPlotWatchers(int segment) {
    for (const PlotWatcher& watcher : plotWatchers()) watcher(segment);
}

void forgetPlotWatchers() { plotWatchers().clear(); }
