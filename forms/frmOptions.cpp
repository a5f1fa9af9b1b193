#include "forms/frmOptions.h"

#include <vector>

#include "platform/numberText.h"

FrmOptions frmOptions;

namespace {

struct TickRow {
    design::Named box;
    const char* caption;
};

void ticks(Control& frame, const std::vector<TickRow>& rows) {
    float top = 300;
    for (const TickRow& row : rows) {
        design::place({&frame}, row.box, Kind::TickBox, {150, top, frame.place.width - 300, 315},
                      row.caption);
        top += 375;
    }
}

struct MeterRow {
    float top;
    design::Named title;
    const char* titleText;
    design::Named bar;
    Int16 max;
    design::Named low, high, value, unit;
    const char* unitText;
};

void designMeter(const MeterRow& row) {
    const design::Container in{&frmOptions.fraTime};
    const float barTop = row.top + 285;
    design::label(in, row.title, {150, row.top, 3000, 255}, row.titleText);
    design::label(in, row.value, {3225, row.top, 450, 255}, "4").look = {210, true, false,
                                                                         Look::Align::Right};
    design::label(in, row.unit, {3750, row.top, 1050, 255}, row.unitText);
    design::label(in, row.low, {150, barTop, 300, 255}, "1").look.align = Look::Align::Right;
    design::scrollBar(in, row.bar, {525, barTop, 3600, 255}, 1, row.max, 4);
    design::label(in, row.high, {4200, barTop, 450, 255}, numberText::whole(row.max));
}

void designTime() {
    FrmOptions& f = frmOptions;
    design::place({&f.form}, NAMED(f, fraTime), Kind::Frame, {120, 120, 12480, 1800}, "Time Parameters");
    designMeter({330, NAMED(f, lblLengthTitle), "Actual Time Per Patient", NAMED(f, hsbLength), 30,
                 NAMED(f, lblLengthMin), NAMED(f, lblLengthMax), NAMED(f, lblLength), NAMED(f, lblMinutes),
                 "minute(s)"});
    designMeter({1050, NAMED(f, lblRateTitle), "Simulation Hours per Minute", NAMED(f, hsbRate), 20,
                 NAMED(f, lblHoursMin), NAMED(f, lblHoursMax), NAMED(f, lblRate), NAMED(f, lblHourUnits),
                 "hour(s)"});
    const design::Container in{&f.fraTime};
    design::label(in, NAMED(f, lblStartTime), {7500, 420, 1500, 255}, "Starting Time:");
    design::place(in, NAMED_AT(f, txtTime, 0), Kind::TextBox, {9000, 345, 600, 405}, "01");
    design::label(in, NAMED(f, lblColon), {9645, 420, 120, 255}, ":");
    design::place(in, NAMED_AT(f, txtTime, 1), Kind::TextBox, {9810, 345, 600, 405}, "00");
    for (Control& box : f.txtTime) box.typedOnly = true;
}

void designScoring() {
    FrmOptions& f = frmOptions;
    design::place({&f.fraSettings}, NAMED(f, fraScoring), Kind::Frame, {150, 300, 4875, 3000}, "Scoring");
    struct Row {
        design::Named label;
        const char* caption;
        design::Named box;
        const char* text;
    };
    const std::vector<Row> rows{
        {NAMED(f, lblInitScore), "Initial Score:", NAMED(f, txtInitScore), "2000"},
        {NAMED(f, lblTestBuffer), "# Patients before applying Test Costs:", NAMED(f, txtTestBuffer), "0"},
        {NAMED(f, lblBeliefBuffer), "# Patients before applying Belief Costs:", NAMED(f, txtBeliefBuffer),
         "0"},
        {NAMED(f, lblTestCost), "Test Cost:", NAMED(f, txtTestCost), "25"},
        {NAMED(f, lblBeliefCost), "Maximum Belief Cost:", NAMED(f, txtBeliefCost), "50"},
        {NAMED(f, lblHealAward), "Heal Award:", NAMED(f, txtHealAward), "100"},
    };
    float top = 315;
    for (const Row& row : rows) {
        design::label({&f.fraScoring}, row.label, {150, top + 60, 3450, 255}, row.caption);
        design::place({&f.fraScoring}, row.box, Kind::TextBox, {3660, top, 1065, 375}, row.text);
        top += 435;
    }
}

void frameOfTicks(design::Named frame, const Place& at, const char* caption,
                  const std::vector<TickRow>& rows) {
    design::place({&frmOptions.fraSettings}, frame, Kind::Frame, at, caption);
    ticks(frame.control, rows);
}

}  // namespace

void designFrmOptions() {
    FrmOptions& f = frmOptions;
    design::form(f.form, "frmOptions", "Options", 12720, 7620);
    designTime();
    design::place({&f.form}, NAMED(f, fraSettings), Kind::Frame, {120, 2040, 12480, 4800}, "Experiment");
    designScoring();
    frameOfTicks(NAMED(f, fraPatients), {150, 3450, 4875, 1200}, "Patients",
                 {{NAMED(f, chkCycle), "Cycle Patient Data"},
                  {NAMED(f, chkOptionsFrequency), "Show options after each patient"}});
    frameOfTicks(NAMED(f, fraDiagnosis), {5175, 300, 3525, 2685}, "Diagnosis",
                 {{NAMED(f, chkForce), "Force hypothesis after test"},
                  {NAMED(f, chkStopTime), "Stop time during diagnosis"},
                  {NAMED(f, chkDiagnoseAll), "Diagnose all diseases"},
                  {NAMED(f, chkInitToBaseRates), "Init to Base Rates"},
                  {NAMED(f, chkYoke), "Yoke belief meters"},
                  {NAMED(f, chkNormalize), "Normalize Beliefs"}});
    frameOfTicks(NAMED(f, Frame1), {8850, 300, 3480, 2685}, "Feedback",
                 {{NAMED(f, chkFeedbackSymptom), "Symptom Probabilities"},
                  {NAMED(f, chkFeedbackTests), "All Test Results"},
                  {NAMED(f, chkDiseaseProbability), "Disease Probabilities"},
                  {NAMED(f, chkUseNormalize), "Use Normalize Scoring"},
                  {NAMED(f, chkShowNormalize), "Show Normalized Scoring"},
                  {NAMED(f, chkBestTreatment), "Best Treatment"}});
    frameOfTicks(NAMED(f, fraExperimentDepth), {5175, 3135, 3525, 1515}, "Treatments",
                 {{NAMED(f, chkTreatments), "Do Treatments"},
                  {NAMED(f, chkRisk), "Apply Risk Factor"},
                  {NAMED(f, chkOneTreatment), "Only Allow One Treatment"}});
    frameOfTicks(NAMED(f, fraTables), {8850, 3135, 3480, 1515}, "Viewable Information",
                 {{NAMED(f, chkBaseRates), "Disease Base Rates"},
                  {NAMED(f, chkSVD), "Symptom to Disease Table"},
                  {NAMED(f, chkTreatmentTable), "Treatment to Disease Table"}});
    design::button({&f.form}, NAMED(f, cmdStart), {10665, 6960, 1935, 525}, "Start").look.primary = true;
    f.isLoaded = false;
    design::finish(f.form);
}
