#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/numberText.h"
#include "store/layer/schema.h"
#include "study/checkRules.h"
#include "study/timeLimit.h"

namespace check {

namespace {

constexpr double most16 = std::numeric_limits<std::int16_t>::max();
constexpr double most32 = std::numeric_limits<std::int32_t>::max();
constexpr int fullHealth = 100;

/// A number as it is taken over from a text: its leading number, else 0.
double amount(Study& study, int row, std::string_view column) {
    const Sheet& options = study.sheet("tblAppDefault");
    const std::string text = options.text(row, column);
    const double value = numberText::toNumber(text);
    if (options.has(column) && !numberText::isNumeric(text))
        study.warn(options, row, column,
                   fmt::format("\"{}\" is no number and counts as {}.", text, numberText::general(value)));
    return value;
}

void judgeCosts(Study& study, const Scenario& scenario) {
    const Sheet& options = study.sheet("tblAppDefault");
    const int row = scenario.row;
    if (!(std::fabs(amount(study, row, "InitScore")) <= most32))
        study.error(options, row, "InitScore",
                    "The score does not fit 32 bits: the program ends at the first patient.");
    const double award = amount(study, row, "HealAward");
    if (!(std::fabs(award * fullHealth) <= most16)) {
        study.error(
            options, row, "HealAward",
            fmt::format("{} for each point of health overflows 16 bits when a patient recovers fully: the "
                        "program ends. 327 is the most.",
                        numberText::general(award)));
    } else if (award < 0) {
        study.warn(options, row, "HealAward", "A saved patient lowers the score.");
    }
    const double perTest = amount(study, row, "TestCost");
    const auto tests = static_cast<double>(std::min<std::size_t>(scenario.symptoms.size(), mostSymptoms));
    if (perTest < 0) study.warn(options, row, "TestCost", "A cost below 0 is not charged: tests are free.");
    const bool testsFit = perTest * tests <= most16;
    if (!testsFit)
        study.error(
            options, row, "TestCost",
            fmt::format("{} for each of {} tests overflows 16 bits: the program ends at the evaluation.",
                        numberText::general(perTest), tests));
    const double penalty = amount(study, row, "MaxBeliefCost");
    if (testsFit && !(std::fabs(penalty) + std::max(perTest, 0.0) * tests <= most16)) {
        study.error(
            options, row, "MaxBeliefCost",
            fmt::format("{}, with the tests, can change the score by more than 16 bits hold: the program "
                        "ends at the evaluation.",
                        numberText::general(penalty)));
    } else if (penalty < 0) {
        study.warn(options, row, "MaxBeliefCost", "A cost below 0 rewards wrong beliefs.");
    }
}

void judgeTreatmentProperty(Study& study, int row) {
    const Sheet& options = study.sheet("tblAppDefault");
    if (!options.has("TreatmentProperty")) return;
    const std::string text = options.text(row, "TreatmentProperty");
    const double value = numberText::toNumber(text);
    if (options.isEmpty(row, "TreatmentProperty")) {
        study.warn(
            options, row, "TreatmentProperty",
            "The value is empty: DoTreatments alone decides, and allows one treatment. Write 1, 0 or -1.");
    } else if (!numberText::isNumeric(text) || (value != 1 && value != 0 && value != -1)) {
        study.error(options, row, "TreatmentProperty",
                    fmt::format("\"{}\" is none of 1, 0 and -1: the program ends after the sign-in.", text));
    }
}

void judgeFlags(Study& study, int row) {
    const Sheet& options = study.sheet("tblAppDefault");
    for (const schema::Column& column : schema::find("tblAppDefault")->columns) {
        if (column.type == schema::ColumnType::YesNo) study.truth(options, row, column.name);
    }
    const auto on = [&](const char* column) { return options.isTrue(row, column); };
    if (options.has("FeedbackDiseaseP") && !on("FeedbackDiseaseP"))
        study.warn(options, row, "FeedbackDiseaseP",
                   "The score compares beliefs with 0 and not with the chance.");
    if (on("TimeStopDiagnosis") && !on("DiagnoseAllDiseases"))
        study.warn(options, row, "TimeStopDiagnosis",
                   "Cancel in the diagnosis leaves the time standing until the next diagnosis.");
    if (on("InitToBaseRates") && !on("DiagnoseAllDiseases"))
        study.note(options, row, "InitToBaseRates", "Without all diseases at once it has no effect.");
    if (on("Normalize") && !on("DiagnoseAllDiseases"))
        study.note(
            options, row, "Normalize",
            "A belief that would be rescaled below 0.01 refuses the diagnosis with an error in the dialog.");
}

/// What the clock needs as a number; nothing where its finding is enough.
std::optional<int> startOf(Study& study, int row, const char* column, int most) {
    const Sheet& options = study.sheet("tblAppDefault");
    const std::string text = options.text(row, column);
    const double value = numberText::toNumber(text);
    if (!options.has(column)) return {};
    if (options.isEmpty(row, column)) {
        study.warn(options, row, column, "The value is empty and counts as 0.");
        return 0;
    }
    if (value > most || value < 0) {
        study.error(
            options, row, column,
            fmt::format("{} is not within 0 to {}: {}", numberText::general(value), most,
                        value < 0 ? "the clock shows times that there are not."
                                  : "\"Invalid Start Time\", the clock does not start, and the program "
                                    "ends."));
        return {};
    }
    const double rounded = std::nearbyint(value);
    if (!numberText::isNumeric(text) || rounded != value)
        study.warn(options, row, column, fmt::format("\"{}\" is read as {}.", text, rounded));
    return static_cast<int>(rounded);
}

/// Minutes after which the trace of the health overflows: the panel is 6735 twips wide for the planned time.
double longestTrace(int hours) { return 60.0 * hours * most16 / 6735; }

/// Minutes that hardly a patient of the roster outlives: five a point, and a good deal of luck.
double longestLife(const Study& study) {
    const Sheet& people = study.sheet("tblPatients");
    double best = 0;
    for (int row = 0; row < people.size(); ++row)
        best = std::max(best, numberText::toNumber(people.text(row, "Health")));
    return 5 * std::min<double>(best, fullHealth) + 130;
}

void judgeEnd(Study& study, int row, int start, int hours) {
    const std::optional<int> limit = timeLimit::hoursUntil(start, hours);
    if (limit == hours) return;
    const bool never = !limit;
    const bool overflows = longestTrace(hours) < longestLife(study);
    study.add(overflows ? Grade::Error : Grade::Warning, study.sheet("tblAppDefault"), row, "StartHour",
              fmt::format(
                  "From {}:00 a length of {} hours {}.{}", start, hours,
                  never ? "never ends by the time limit" : "ends twelve hours late",
                  overflows ? fmt::format(" A patient who outlives {} minutes ends the program with an "
                                          "overflow.",
                                          std::floor(longestTrace(hours)))
                            : " Start hour plus the remainder of the length divided by 12 should stay below "
                              "12, and the remainder should not be 0."));
}

}  // namespace

void options(Study& study) {
    const Sheet& sheet = study.sheet("tblAppDefault");
    for (const Scenario& scenario : study.scenarios) {
        if (hasApostrophe(sheet.text(scenario.row, "TestLengthSetting")))
            study.error(
                sheet, scenario.row, "TestLengthSetting",
                "The name holds an apostrophe: the lengths of the tests cannot be loaded, and the program "
                "stops with a box of the store.");
        judgeCosts(study, scenario);
        judgeFlags(study, scenario.row);
        judgeTreatmentProperty(study, scenario.row);
    }
}

void clock(Study& study) {
    const Sheet& sheet = study.sheet("tblAppDefault");
    constexpr int mostHours = 546;  // their minutes still fit 16 bits
    constexpr const char* refused = "the options cannot take it, and the program ends after the sign-in.";
    for (const Scenario& scenario : study.scenarios) {
        const int row = scenario.row;
        const auto minutes = study.wholeWithin(sheet, row, "Time", 1, 30, Grade::Error, refused);
        const auto rate = study.wholeWithin(sheet, row, "SimRate", 1, 20, Grade::Error, refused);
        const auto hour = startOf(study, row, "StartHour", 12);
        const auto minute = startOf(study, row, "StartMin", 59);
        if (minute && *minute != 0)
            study.note(
                sheet, row, "StartMin",
                "SimTime in the results counts the full hours of the clock: it is exact for minute 0.");
        if (!minutes || !rate) continue;
        const int hours = *minutes * *rate;
        if (hours > mostHours) {
            study.error(
                sheet, row, "Time",
                fmt::format("{} minutes of {} hours are {} hours, and {} is the most: the program ends with "
                            "an overflow at the first patient.",
                            *minutes, *rate, hours, mostHours));
        } else if (hour) {
            judgeEnd(study, row, *hour, hours);
        }
    }
}

}  // namespace check
