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
constexpr Look fixedText{190, false, true};
constexpr int diseaseTable = 1;
constexpr int feedbackTable = 2;
constexpr Look nameValue{285, true};
constexpr Look bigValue{405, true};
constexpr Look tickingValue{.fontSize = 405, .bold = true, .ticks = true};
constexpr const char* chooseTreatment = "Choose Treatment...";
constexpr std::array<int, 3> gridGrey{0xC0, 0xC0, 0xC0};

std::vector<PlotWatcher>& plotWatchers() {
    static std::vector<PlotWatcher> list;
    return list;
}

/// A tag and the value that it names.
struct TaggedRow {
    design::Named tag;
    const char* caption;
    design::Named value;
};

Control& tagged(Control& value, const Control& tag) {
    value.tag = &tag;
    return value;
}

void designStatusLine(FrmTavix& f) {
    design::place({&f.form}, NAMED(f, fraStatus), Kind::Frame, {120, 0, 7575, 855}).visible = false;
    const Container in{&f.fraStatus};
    label(in, NAMED(f, tagPatient), {120, 60, 2700, 225}, "Name:").look = tagText;
    tagged(label(in, NAMED(f, lblPatientName), {120, 300, 2655, 480}), f.tagPatient).look = nameValue;
    label(in, NAMED(f, tagScore), {2940, 60, 1500, 225}, "Score:").look = tagText;
    tagged(label(in, NAMED(f, lblScore), {2940, 300, 1560, 480}, "2000"), f.tagScore).look = bigValue;
    label(in, NAMED(f, tagClock), {4620, 60, 1350, 225}, "Time:").look = tagText;
    tagged(label(in, NAMED(f, lblClock), {4620, 300, 1350, 480}, "01:00"), f.tagClock).look = tickingValue;
    label(in, NAMED(f, tagHealth), {6090, 60, 1365, 225}, "Health:").look = tagText;
    tagged(label(in, NAMED(f, lblHealth), {6090, 300, 1365, 480}, "75.0 "), f.tagHealth).look = tickingValue;
    design::timer(in, NAMED(f, tmrClock), 1000);
    design::timer(in, NAMED(f, tmrHealth), 30);
}

void designPatientPage(FrmTavix& f) {
    const Container page{&f.tabTavix, 0};
    design::place(page, NAMED(f, imgPatient), Kind::Picture, {120, 180, 3615, 2295});
    label(page, NAMED(f, lblWelcome), {3960, 180, 3495, 390}).look = {255, true};
    design::place(page, NAMED(f, fraDescription), Kind::Frame, {3960, 660, 3495, 1815}, "Description");
    const Container description{&f.fraDescription};
    float top = 330;
    for (const TaggedRow& row : {TaggedRow{NAMED(f, tagAge), "Age:", NAMED(f, lblAge)},
                                 TaggedRow{NAMED(f, tagGender), "Gender:", NAMED(f, lblGender)},
                                 TaggedRow{NAMED(f, tagHeight), "Height:", NAMED(f, lblHeight)},
                                 TaggedRow{NAMED(f, tagWeight), "Weight:", NAMED(f, lblWeight)}}) {
        label(description, row.tag, {150, top, 1050, 285}, row.caption);
        tagged(label(description, row.value, {1260, top, 2085, 285}), row.tag.control).look = {210, true};
        top += 360;
    }
    label(page, NAMED(f, lblHowTo), {120, 2550, 7335, 765},
          "Highlight text in the paragraph below and press the \"Add Symptom\" button to record important "
          "symptoms.   To remove notes from Symptom list, select the undesired symptoms and press the "
          "\"Remove\" button.")
        .look = tagText;
    Control& intro = design::place(page, NAMED(f, txtIntro), Kind::TextBox, {120, 3330, 7335, 3450});
    intro.multiLine = true;
    intro.readOnly = true;
    intro.look = {210};
    design::button(page, NAMED(f, cmdEvidence), {4935, 6870, 2520, 435}, "&Add Symptom ==>");
    design::place(page, NAMED(f, fraComments), Kind::Frame, {120, 7365, 7335, 1380}, "Comments/Reasoning");
    const Container comments{&f.fraComments};
    design::place(comments, NAMED(f, txtReasoning), Kind::TextBox, {150, 315, 7035, 405});
    design::button(comments, NAMED(f, cmdNoteSymptom), {4665, 810, 2520, 435}, "&Take Down Note ==>");
}

void designTestSlots(FrmTavix& f) {
    design::place({&f.tabTavix, 1}, NAMED(f, fraTests), Kind::Frame, {120, 120, 7335, 3930},
                  "Tests (One at a Time - Double Click to Issue)");
    const Container in{&f.fraTests};
    label(in, NAMED(f, tagAvailable), {150, 300, 1950, 240}, "Available").look = tagText;
    label(in, NAMED(f, tagTestTime), {2160, 300, 1350, 240}, "Time (Minutes)").look = tagText;
    label(in, NAMED(f, tagETA), {3600, 300, 2100, 240}, "ETA of results").look = tagText;
    label(in, NAMED(f, tagResults), {6000, 300, 1200, 240}, "Results").look = tagText;
    for (int i = 0; i < 6; ++i) {
        const float top = 600 + 450 * static_cast<float>(i);
        design::place(in, NAMED_AT(f, optTest, i), Kind::OptionButton, {150, top, 2250, 345});
        label(in, NAMED_AT(f, lblTestTime, i), {2460, top + 45, 600, 255}, "30");
        design::place(in, NAMED_AT(f, chartETA, i), Kind::Chart, {3150, top + 30, 1875, 285});
        label(in, NAMED_AT(f, lblETA, i), {5160, top + 45, 750, 255}).look = {210, true};
        label(in, NAMED_AT(f, lblTestResult, i), {6000, top + 45, 1200, 255}).look = {210, true};
    }
    design::button(in, NAMED(f, cmdIssue), {150, 3360, 1500, 435}, "Issue");
    label(in, NAMED(f, lblTestMessage), {1800, 3345, 5400, 465},
          "Double click available tests to issue. One test at a time.")
        .look = tagText;
    design::timer(in, NAMED(f, tmrTestMessage), 3000);
}

void designTestsPage(FrmTavix& f) {
    designTestSlots(f);
    const Container page{&f.tabTavix, 1};
    // One grid: the rates, the heads on one line or two, and the rows of the table.
    constexpr Look numbers{.fontSize = 190, .table = diseaseTable, .cells = Look::Cells::Numbers};
    label(page, NAMED(f, lblBaseRates), {120, 4110, 7335, 225}).look = numbers;
    label(page, NAMED(f, lblSvD), {120, 4335, 7335, 450}).look = {
        .fontSize = 190, .bold = true, .table = diseaseTable, .cells = Look::Cells::Heads};
    Control& table = design::place(page, NAMED(f, txtSvD), Kind::TextBox, {120, 4800, 7335, 1560});
    table.multiLine = true;
    table.readOnly = true;
    table.look = numbers;
    table.look.rows = 6;

    design::place(page, NAMED(f, fraSigns), Kind::Frame, {120, 6435, 3975, 2280},
                  "Vital Signs (Normal Range)");
    const Container signs{&f.fraSigns};
    float top = 360;
    for (const TaggedRow& row : {TaggedRow{NAMED(f, tagTemp), "Temperature (37.9):", NAMED(f, lblTemp)},
                                 TaggedRow{NAMED(f, tagPulse), "Pulse (60-90):", NAMED(f, lblPulse)},
                                 TaggedRow{NAMED(f, tagBP), "Blood Pressure (120/80):", NAMED(f, lblBP)},
                                 TaggedRow{NAMED(f, tagRR), "Respiratory Rate (12-18):", NAMED(f, lblRR)}}) {
        label(signs, row.tag, {150, top + 30, 2550, 285}, row.caption);
        tagged(label(signs, row.value, {2760, top, 1065, 345}), row.tag.control).look = {210, true, false,
                                                                                         Look::Align::Centre};
        top += 465;
    }

    design::place(page, {f.fraDiagnose1, "fraDiagnose", 1}, Kind::Frame, {4215, 6435, 3240, 2280},
                  "Diagnose");
    const Container diagnose{&f.fraDiagnose1};
    design::button(diagnose, NAMED(f, cmdDiagnosis), {150, 345, 2940, 570}, "Make Diagnosis");
    label(diagnose, NAMED(f, tagCurrent), {150, 960, 2940, 255}, "Current Diagnosis").look = tagText;
    tagged(label(diagnose, NAMED(f, lblCurrentHypothesis), {150, 1215, 2940, 1020}), f.tagCurrent).look = {
        210, true};
}

void designTreatmentsPage(FrmTavix& f) {
    const Container page{&f.tabTavix, 2};
    design::place(page, NAMED(f, fraIdentification), Kind::Frame, {120, 120, 7335, 2940},
                  "Disease Hypotheses");
    for (int i = 0; i < 4; ++i) {
        const auto column = static_cast<float>(i % 2);
        const float row = i < 2 ? 0 : 1;
        Control& frame = design::place({&f.fraIdentification}, NAMED_AT(f, fraHypothesis, i), Kind::Frame,
                                       {150 + 3570 * column, 300 + 1005 * row, 3465, 930});
        frame.visible = false;
        const Container in{&frame};
        label(in, NAMED_AT(f, lblHypothesis, i), {120, 150, 2310, 285}).look = {210, true};
        label(in, NAMED_AT(f, lblBelief, i), {2520, 150, 825, 285}).look = {210, true, false,
                                                                            Look::Align::Right};
        Control& meter = design::scrollBar(in, NAMED_AT(f, hsbBelief, i), {120, 525, 3225, 255}, 0, 100, 0);
        meter.enabled = false;
    }
    design::button({&f.fraIdentification}, NAMED(f, cmdChange), {4665, 2370, 2520, 435}, "Change Diagnosis");
    design::timer({&f.fraIdentification}, NAMED(f, tmrForceDiagnosisAfterTest), 10);

    design::place(page, NAMED(f, fraTreatment), Kind::Frame, {120, 3150, 7335, 5565}).visible = false;
    const Container in{&f.fraTreatment};
    Control& help = label(in, NAMED(f, lblHelpHeader), {150, 180, 7035, 255}, "Probabilities:");
    help.look = tagText;
    help.look.clips = true;  // its caption grows with each patient
    design::place(in, NAMED(f, lstTreatments), Kind::ListBox, {150, 465, 7035, 4335}).look = fixedText;
    design::place(in, NAMED(f, cboTreatment), Kind::ComboBox, {150, 4965, 4425, 405}, chooseTreatment)
        .prompt = chooseTreatment;
    design::button(in, NAMED(f, cmdPrescribe), {4665, 4935, 2520, 465}, "Prescribe").look.echoes = true;
}

void designMonitor(FrmTavix& f) {
    const Container in{&f.form};
    label(in, NAMED(f, lblHealthBorder), {7800, 120, 7335, 3735}, "Health Monitor").look.framed = true;
    label(in, NAMED(f, lblHealthScreen), {8280, 600, 6735, 2895}).look.drawing = Look::Drawing::HealthTrace;
    label(in, NAMED(f, lblMonitorY), {7860, 390, 750, 195}, "Health").look = smallText;
    label(in, NAMED(f, lblMonitorX), {7860, 3570, 600, 210}, "Time").look = smallText;
    constexpr std::array<const char*, 5> scale{"100", "75", "50", "25", "0"};
    for (int i = 0; i < 5; ++i) {
        const float middle = 600 + 2895 * static_cast<float>(i) / 4;
        const float top = i == 0 ? 600.F : i == 4 ? 3285.F : middle - 105;
        label(in, NAMED_AT(f, lblHealthScale, i), {7845, top, 390, 210}, scale[static_cast<std::size_t>(i)])
            .look = smallRight;
    }
    for (int i = 0; i < 7; ++i) {
        const float y = 600 + 2895 * static_cast<float>(i + 1) / 8;
        const float x = 9122 + 842 * static_cast<float>(i);
        design::line(in, NAMED_AT(f, linHealthScale, i), 8280, y, 15015, y).look.ink = gridGrey;
        design::line(in, NAMED_AT(f, linTimeScale, i), x, 3495, x, 3555);
        label(in, NAMED_AT(f, lblX, i), {x - 375, 3570, 750, 210}, "15:00").look = {165, false, false,
                                                                                    Look::Align::Centre};
    }
    design::timer(in, NAMED(f, tmrHealthMonitor), 1000);
    f.linHealth = {};
}

void designNotes(FrmTavix& f) {
    design::place({&f.form}, NAMED(f, fraSymptoms), Kind::Frame, {7800, 3960, 2535, 3615}, "Symptoms")
        .visible = false;
    const Container in{&f.fraSymptoms};
    design::button(in, NAMED(f, cmdRemove), {120, 300, 2295, 435}, "&Remove Selected");
    Control& list = design::place(in, NAMED(f, lstSymptoms), Kind::ListBox, {120, 840, 2295, 2400});
    list.multiSelect = true;
    list.look = {180};
}

void designScore(FrmTavix& f) {
    design::place({&f.form}, NAMED(f, fraScore), Kind::Frame, {7800, 7560, 2535, 2775}, "Score").visible =
        false;
    const Container in{&f.fraScore};
    // Tag, factors and result stand as in a sum on paper: the results under each other at the right.
    label(in, NAMED(f, tagPrevious), {90, 255, 1500, 210}, "Previous Score:").look = smallText;
    tagged(label(in, NAMED(f, lblPrevious), {1740, 255, 705, 210}), f.tagPrevious).look = smallRight;
    label(in, NAMED(f, tagRemain), {90, 495, 915, 210}, "End Health:").look = smallText;
    label(in, NAMED(f, lblEndHealth), {1005, 495, 375, 210}).look = smallRight;
    label(in, NAMED(f, lblHealthFactor), {1380, 495, 540, 210}).look = smallText;
    tagged(label(in, NAMED(f, lblHealthScore), {1920, 495, 525, 210}), f.tagRemain).look = smallRight;
    label(in, NAMED(f, tagTestScore), {90, 735, 855, 210}, "Tests:").look = smallText;
    label(in, NAMED(f, lblTestCount), {930, 735, 375, 210}).look = smallRight;
    label(in, NAMED(f, lblTestFactor), {1350, 735, 465, 210}).look = smallText;
    label(in, NAMED(f, lblFirstEqual), {1800, 735, 180, 210}, " =").look = smallText;
    tagged(label(in, NAMED(f, lblTestScore), {1965, 735, 480, 210}), f.tagTestScore).look = smallRight;
    label(in, NAMED(f, tagBeliefDiff), {90, 975, 1200, 210}, "Belief Diff:").look = smallText;
    tagged(label(in, NAMED(f, lblDiffScore), {1740, 975, 705, 210}), f.tagBeliefDiff).look = smallRight;
    label(in, NAMED(f, tagPenaltyScore), {90, 1215, 900, 210}, "Penalty").look = smallText;
    label(in, NAMED(f, tagPenaltyCalc), {90, 1425, 2355, 210}).look = smallText;
    label(in, NAMED(f, lblEqual), {1755, 1215, 285, 210}, " = -").look = smallText;
    tagged(label(in, NAMED(f, lblPenaltyCalc), {1995, 1215, 450, 210}), f.tagPenaltyScore).look = smallRight;
    label(in, NAMED(f, tagScoreChange), {90, 1710, 1500, 210}, "Score Change:").look = smallBold;
    tagged(label(in, NAMED(f, lblScoreChange), {1740, 1710, 705, 210}), f.tagScoreChange).look =
        smallBoldRight;
    label(in, NAMED(f, tagNewScore), {90, 1965, 1500, 255}, "New Score:").look = {195, true};
    tagged(label(in, NAMED(f, lblNewScore), {1500, 1965, 945, 255}), f.tagNewScore).look = {
        195, true, false, Look::Align::Right};
    design::button(in, NAMED(f, cmdViewNorm), {90, 2295, 2355, 375}, "View Normalized Beliefs").look =
        smallText;
}

/// A text of the feedback, all of which are set in one size.
Look inFeedback(bool bold, Look::Align align = Look::Align::Left) {
    return {.fontSize = 165, .bold = bold, .align = align, .table = feedbackTable};
}

/// The rows of the table, the beliefs at the ends of the bracket. The subject's side ends where the true side
/// begins, so that a belief leaves its tag a whole line, and a tie of four diseases has room beside the short
/// tag of its row. Of the places of tag and value only one is used to its end.
void designFeedbackTable(FrmTavix& f) {
    constexpr auto right = Look::Align::Right;
    const Container in{&f.fraFeedback};
    label(in, NAMED(f, tagFinalDiagnosis), {1560, 0, 1500, 225}, "Your Diagnosis").look =
        inFeedback(true, right);
    label(in, NAMED(f, tagAnswer), {3190, 0, 1455, 225}, "Actual").look = inFeedback(true);
    struct FeedbackRow {
        float top, height, valueLeft;
        design::Named tag;
        const char* caption;
        design::Named yours;
        design::Named actual;
    };
    for (const FeedbackRow& row :
         {FeedbackRow{180, 1000, 810, NAMED(f, tagDisease), "Disease:", NAMED(f, lblFinalDiagnosis),
                      NAMED(f, lblAnswer)},
          FeedbackRow{1080, 240, 2595, NAMED(f, tagYourBelief),
                      "Your Probability Belief:", NAMED(f, lblDiagnosisBelief), NAMED(f, lblDiseaseBelief)},
          FeedbackRow{1680, 240, 2595, NAMED(f, tagDiseaseProbability),
                      "p(Disease given Symptoms):", NAMED(f, lblDiagChance), NAMED(f, lblDiseaseChance)},
          FeedbackRow{1920, 480, 2595, NAMED(f, tagNormalized), "Normalized Probability Belief:",
                      NAMED(f, lblDiagNormalized), NAMED(f, lblDiseaseNormalized)},
          FeedbackRow{2400, 450, 1530, NAMED(f, tagTreatment), "Treatment:", NAMED(f, lblYourTreatment),
                      NAMED(f, lblBestTreatment)},
          FeedbackRow{2895, 240, 2595, NAMED(f, tagTreatmentHeal),
                      "p(Treatment will Heal):", NAMED(f, lblYourHeal), NAMED(f, lblActualHeal)},
          FeedbackRow{3255, 240, 2595, NAMED(f, tagTreatmentHurt),
                      "p(Treatment will Harm):", NAMED(f, lblYourHurt), NAMED(f, lblActualHurt)}}) {
        label(in, row.tag, {60, row.top, row.valueLeft, row.height}, row.caption).look = inFeedback(false);
        Control& yours =
            tagged(label(in, row.yours, {row.valueLeft, row.top, 3060 - row.valueLeft, row.height}),
                   row.tag.control);
        yours.look = inFeedback(false, right);
        yours.head = &f.tagFinalDiagnosis;
        Control& actual = tagged(label(in, row.actual, {3190, row.top, 1455, row.height}), row.tag.control);
        actual.look = inFeedback(false);
        actual.head = &f.tagAnswer;
    }
    // Anything can stand in the box of treatments.
    f.lblYourTreatment.look.clips = true;
    f.lblBestTreatment.look.clips = true;
}

/// The tests with their results, and beside each the chances of its symptom. The first row is the one of the
/// diseases' letters.
void designFindings(FrmTavix& f) {
    const Container in{&f.fraFeedback};
    constexpr float top = 3840, height = 1740;
    label(in, NAMED(f, tagTestResults), {60, 3585, 2220, 225}, "Test Results").look = inFeedback(true);
    Look grid = inFeedback(false);
    grid.rows = 7;
    grid.cells = Look::Cells::Lines;
    label(in, NAMED(f, lblAllTests), {60, top, 1560, height}).look = grid;
    label(in, NAMED(f, lblTestResults), {1635, top, 705, height}).look = grid;
    label(in, NAMED(f, lblSymptomology), {2400, 3585, 2235, 225}, "Symptomology").look =
        inFeedback(true, Look::Align::Centre);
    grid.cells = Look::Cells::Marks;
    label(in, NAMED(f, lblEndSvD), {2400, top, 2235, height}).look = grid;
}

void designFeedback(FrmTavix& f) {
    design::place({&f.form}, NAMED(f, fraFeedback), Kind::Frame, {10440, 3960, 4695, 5655}, "Feedback")
        .visible = false;
    const Container in{&f.fraFeedback};
    designFeedbackTable(f);
    design::line(in, NAMED(f, Line0), 3600, 1200, 3720, 1200);
    design::line(in, NAMED(f, Line1), 3720, 1200, 3720, 1800);
    design::line(in, NAMED(f, Line2), 3600, 1800, 3720, 1800);
    design::line(in, NAMED(f, Line3), 3720, 1560, 3840, 1560);
    label(in, NAMED(f, tagDiff), {3885, 1200, 720, 225}, "Diff").look = inFeedback(false);
    tagged(label(in, NAMED(f, lblDiff), {3885, 1440, 720, 240}), f.tagDiff).look = inFeedback(true);
    label(in, NAMED(f, tagPenalty), {3885, 1800, 720, 225}, "Penalty").look = inFeedback(false);
    tagged(label(in, NAMED(f, lblPenalty), {3885, 2040, 720, 240}), f.tagPenalty).look = inFeedback(true);
    designFindings(f);
}

void designDevelopment(FrmTavix& f) {
    design::place({&f.form}, NAMED(f, fraDeleteLater), Kind::Frame, {10440, 9720, 2895, 1335},
                  "For Development Testing")
        .visible = false;
    const Container in{&f.fraDeleteLater};
    label(in, NAMED(f, lblDAnswer), {120, 300, 1275, 300}, "Show Disease");
    design::button(in, NAMED(f, cmdHeal), {1440, 255, 660, 375}, "Heal");
    design::button(in, NAMED(f, cmdHurt), {2130, 255, 660, 375}, "Hurt");
    label(in, NAMED(f, lblSetting), {120, 840, 900, 255}, "Scenario:");
    design::place(in, NAMED(f, cboT), Kind::ComboBox, {1080, 780, 1710, 375});
}

}  // namespace

void designFrmTavix() {
    FrmTavix& f = frmTavix;
    design::form(f.form, "frmTavix", "Tavix", 15495, 11280).window = WindowKind::Main;
    f.form.closesAnyTime = true;
    f.form.content = {120, 0, 15255, 10455};
    designStatusLine(f);
    Control& tabs = design::place({&f.form}, NAMED(f, tabTavix), Kind::TabControl, {120, 1080, 7575, 9255});
    tabs.visible = false;
    tabs.items = {"Patient", "Tests", "Treatments"};
    designPatientPage(f);
    designTestsPage(f);
    designTreatmentsPage(f);
    designMonitor(f);
    designNotes(f);
    designScore(f);
    designFeedback(f);
    design::button({&f.form}, NAMED(f, cmdNextPatient), {13440, 9840, 1695, 495}, "Next Patient").visible =
        false;
    f.cmdNextPatient.look.primary = true;
    f.cmdNextPatient.comesByItself = true;
    designDevelopment(f);
    f.optionsRequested = false;
    design::finish(f.form);
}

void watchPlot(PlotWatcher watcher) { plotWatchers().push_back(std::move(watcher)); }

void tellPlotWatchers(int segment) {
    for (const PlotWatcher& watcher : plotWatchers()) watcher(segment);
}

void forgetPlotWatchers() { plotWatchers().clear(); }
