#include "forms/frmOptions.h"

#include <vector>

#include "platform/numberText.h"

FrmOptions frmOptions;

namespace {

struct TickRow {
    Control* control;
    const char* name;
    const char* caption;
};

void ticks(Control& frame, const std::vector<TickRow>& rows) {
    float top = 300;
    for (const TickRow& row : rows) {
        design::place({&frame}, *row.control, Kind::TickBox, row.name, {150, top, frame.box.width - 300, 315},
                      row.caption);
        top += 375;
    }
}

void designMeter(float top, Control& title, const char* titleName, const char* titleText, Control& bar,
                 const char* barName, Int16 max, Control& low, const char* lowName, Control& high,
                 const char* highName, Control& value, const char* valueName, Control& unit,
                 const char* unitName, const char* unitText) {
    const design::Container in{&frmOptions.fraTime};
    design::label(in, title, titleName, {150, top, 3000, 255}, titleText);
    design::label(in, value, valueName, {3225, top, 450, 255}, "4").look = {210, true, false,
                                                                            Look::Align::Right};
    design::label(in, unit, unitName, {3750, top, 1050, 255}, unitText);
    design::label(in, low, lowName, {150, top + 285, 300, 255}, "1").look.align = Look::Align::Right;
    design::scrollBar(in, bar, barName, {525, top + 285, 3600, 255}, 1, max, 4);
    design::label(in, high, highName, {4200, top + 285, 450, 255}, numberText::whole(max));
}

void designTime() {
    FrmOptions& f = frmOptions;
    design::place({&f.form}, f.fraTime, Kind::Frame, "fraTime", {120, 120, 12480, 1800}, "Time Parameters");
    designMeter(330, f.lblLengthTitle, "lblLengthTitle", "Actual Time Per Patient", f.hsbLength, "hsbLength",
                30, f.lblLengthMin, "lblLengthMin", f.lblLengthMax, "lblLengthMax", f.lblLength, "lblLength",
                f.lblMinutes, "lblMinutes", "minute(s)");
    designMeter(1050, f.lblRateTitle, "lblRateTitle", "Simulation Hours per Minute", f.hsbRate, "hsbRate", 20,
                f.lblHoursMin, "lblHoursMin", f.lblHoursMax, "lblHoursMax", f.lblRate, "lblRate",
                f.lblHourUnits, "lblHourUnits", "hour(s)");
    const design::Container in{&f.fraTime};
    design::label(in, f.lblStartTime, "lblStartTime", {7500, 420, 1500, 255}, "Starting Time:");
    design::place(in, f.txtTime[0], Kind::TextBox, "txtTime", {9000, 345, 600, 405}, "01", 0);
    design::label(in, f.lblColon, "lblColon", {9645, 420, 120, 255}, ":");
    design::place(in, f.txtTime[1], Kind::TextBox, "txtTime", {9810, 345, 600, 405}, "00", 1);
}

void designScoring() {
    FrmOptions& f = frmOptions;
    design::place({&f.fraSettings}, f.fraScoring, Kind::Frame, "fraScoring", {150, 300, 4875, 3000},
                  "Scoring");
    struct Row {
        Control* label;
        const char* labelName;
        const char* caption;
        Control* box;
        const char* boxName;
        const char* text;
    };
    const std::vector<Row> rows{
        {&f.lblInitScore, "lblInitScore", "Initial Score:", &f.txtInitScore, "txtInitScore", "2000"},
        {&f.lblTestBuffer, "lblTestBuffer", "# Patients before applying Test Costs:", &f.txtTestBuffer,
         "txtTestBuffer", "0"},
        {&f.lblBeliefBuffer, "lblBeliefBuffer",
         "# Patients before applying Belief Costs:", &f.txtBeliefBuffer, "txtBeliefBuffer", "0"},
        {&f.lblTestCost, "lblTestCost", "Test Cost:", &f.txtTestCost, "txtTestCost", "25"},
        {&f.lblBeliefCost, "lblBeliefCost", "Maximum Belief Cost:", &f.txtBeliefCost, "txtBeliefCost", "50"},
        {&f.lblHealAward, "lblHealAward", "Heal Award:", &f.txtHealAward, "txtHealAward", "100"},
    };
    float top = 315;
    for (const Row& row : rows) {
        design::label({&f.fraScoring}, *row.label, row.labelName, {150, top + 60, 3450, 255}, row.caption);
        design::place({&f.fraScoring}, *row.box, Kind::TextBox, row.boxName, {3660, top, 1065, 375},
                      row.text);
        top += 435;
    }
}

void frameOfTicks(Control& frame, const char* name, const Box& box, const char* caption,
                  const std::vector<TickRow>& rows) {
    design::place({&frmOptions.fraSettings}, frame, Kind::Frame, name, box, caption);
    ticks(frame, rows);
}

}  // namespace

void designFrmOptions() {
    FrmOptions& f = frmOptions;
    design::form(f.form, "frmOptions", "Options", 12720, 7620);
    designTime();
    design::place({&f.form}, f.fraSettings, Kind::Frame, "fraSettings", {120, 2040, 12480, 4800},
                  "Experiment");
    designScoring();
    frameOfTicks(f.fraPatients, "fraPatients", {150, 3450, 4875, 1200}, "Patients",
                 {{&f.chkCycle, "chkCycle", "Cycle Patient Data"},
                  {&f.chkOptionsFrequency, "chkOptionsFrequency", "Show options after each patient"}});
    frameOfTicks(f.fraDiagnosis, "fraDiagnosis", {5175, 300, 3525, 2685}, "Diagnosis",
                 {{&f.chkForce, "chkForce", "Force hypothesis after test"},
                  {&f.chkStopTime, "chkStopTime", "Stop time during diagnosis"},
                  {&f.chkDiagnoseAll, "chkDiagnoseAll", "Diagnose all diseases"},
                  {&f.chkInitToBaseRates, "chkInitToBaseRates", "Init to Base Rates"},
                  {&f.chkYoke, "chkYoke", "Yoke belief meters"},
                  {&f.chkNormalize, "chkNormalize", "Normalize Beliefs"}});
    frameOfTicks(f.Frame1, "Frame1", {8850, 300, 3480, 2685}, "Feedback",
                 {{&f.chkFeedbackSymptom, "chkFeedbackSymptom", "Symptom Probabilities"},
                  {&f.chkFeedbackTests, "chkFeedbackTests", "All Test Results"},
                  {&f.chkDiseaseProbability, "chkDiseaseProbability", "Disease Probabilities"},
                  {&f.chkUseNormalize, "chkUseNormalize", "Use Normalize Scoring"},
                  {&f.chkShowNormalize, "chkShowNormalize", "Show Normalized Scoring"},
                  {&f.chkBestTreatment, "chkBestTreatment", "Best Treatment"}});
    frameOfTicks(f.fraExperimentDepth, "fraExperimentDepth", {5175, 3135, 3525, 1515}, "Treatments",
                 {{&f.chkTreatments, "chkTreatments", "Do Treatments"},
                  {&f.chkRisk, "chkRisk", "Apply Risk Factor"},
                  {&f.chkOneTreatment, "chkOneTreatment", "Only Allow One Treatment"}});
    frameOfTicks(f.fraTables, "fraTables", {8850, 3135, 3480, 1515}, "Viewable Information",
                 {{&f.chkBaseRates, "chkBaseRates", "Disease Base Rates"},
                  {&f.chkSVD, "chkSVD", "Symptom to Disease Table"},
                  {&f.chkTreatmentTable, "chkTreatmentTable", "Treatment to Disease Table"}});
    design::button({&f.form}, f.cmdStart, "cmdStart", {10665, 6960, 1935, 525}, "Start").look.primary = true;
    f.isLoaded = false;
    design::finish(f.form);
}
