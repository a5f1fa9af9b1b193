#include "store/layer/schema.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "platform/text.h"

namespace schema {

namespace {

using enum ColumnType;

std::vector<Column> numbersOfOptions() {
    return {
        {"Setting", Text, "name of the scenario; the sign-in sorts the scenarios by it"},
        {"TestLengthSetting", Text,
         "the list of lengths (tblTests) from which the tests of this scenario take theirs"},
        {"Time", Short,
         "real minutes planned for a patient, 1 to 30. Times the rate they are the patient's length on "
         "the simulated clock",
         1, 30},
        {"SimRate", Short,
         "simulated hours that pass in a real minute, 1 to 20. A faster clock lets health fall sooner "
         "and results come sooner",
         1, 20},
        {"StartHour", NumberOrText,
         "hour of the clock when a patient comes, 0 to 12. Together with the planned length, less whole "
         "rounds of the dial, it has to stay below 12, or the time limit comes at another hour",
         0, 12},
        {"StartMin", NumberOrText,
         "minute of the clock when a patient comes, 0 to 59. The time limit falls at this minute, too", 0,
         59},
        {"InitScore", NumberOrText, "score with which a new subject begins"},
        {"TestBuffer", NumberOrText,
         "without effect: tests cost from the first patient on, and only the options dialog shows the "
         "number"},
        {"BeliefBuffer", NumberOrText,
         "without effect: beliefs cost from the first patient on, and only the options dialog shows the "
         "number"},
        {"TestCost", NumberOrText, "points of score that each issued test costs"},
        {"MaxBeliefCost", NumberOrText,
         "points of score that a wholly wrong belief costs; the nearer a belief is to the computed "
         "chance, the less it costs"},
        {"HealAward", NumberOrText,
         "points of score for each point of health of a saved patient; above 327 a full recovery would "
         "overflow"},
    };
}

std::vector<Column> flagsOfOptions() {
    return {
        {"CyclePatients", YesNo,
         "the roster begins again by itself when all patients have been treated; otherwise the moderator "
         "is asked"},
        {"ShowOptions", YesNo,
         "the options dialog opens before each patient; what is changed in it holds for that run alone"},
        {"DiagnoseAfterTests", YesNo,
         "each result of a test brings up the diagnosis, and the subject has to state a belief"},
        {"TimeStopDiagnosis", YesNo, "clock and health stand still while the diagnosis is open"},
        {"DiagnoseAllDiseases", YesNo,
         "all diseases stand in the diagnosis at once, each with a belief meter; otherwise the subject "
         "adds those that it thinks of"},
        {"YokeBeliefMeters", YesNo, "moving one belief meter moves the others, so that beliefs add up to 1"},
        {"Normalize", YesNo, "beliefs are rescaled to a sum of 1 at each diagnosis"},
        {"InitToBaseRates", YesNo,
         "where all diseases are judged at once, the belief meters start at the base rates and not at 0"},
        {"ViewBaseRates", YesNo, "the subject sees how often each disease occurs"},
        {"ViewSymptomDisease", YesNo, "the subject sees how often each symptom comes with each disease"},
        {"ViewTreatmentDisease", YesNo,
         "the subject sees how often each treatment heals each disease, and harms where treatments can"},
        {"DoTreatments", YesNo, "the subject can treat; without it the first diagnosis ends the patient"},
        {"FeedbackSymptomsP", YesNo,
         "after a patient the feedback shows how often each symptom comes with each disease"},
        {"FeedbackTestsResults", YesNo,
         "after a patient the feedback shows the results of all tests, issued or not"},
        {"FeedbackDiseaseP", YesNo,
         "the feedback shows the computed chance of the disease, with which the score compares the "
         "belief. Keep it on: without it the belief is compared with 0"},
        {"UseNormalizeScore", YesNo, "the score uses the belief rescaled to a sum of 1"},
        {"ShowNormalize", YesNo, "the feedback has a button that shows the rescaled beliefs"},
        {"BestTreatment", YesNo, "the feedback names the best treatment"},
        {"TreatmentProperty", Short,
         "1: the first prescription ends the patient, whether it helps or not; -1: treatments can harm; "
         "0: neither",
         -1, 1},
    };
}

Table optionsTable() {
    std::vector<Column> columns = numbersOfOptions();
    std::ranges::move(flagsOfOptions(), std::back_inserter(columns));
    return {"tblAppDefault", Kind::Configuration, std::move(columns), {}};
}

Table trialTable() {
    return {"dataTrial",
            Kind::Result,
            {
                {"Subject", Text, "the sign-in name"},
                {"Setting", Text, "scenario"},
                {"Date", Date, "day of the trial"},
                {"StartTime", Text, "time of day at the start"},
                {"Trial", Short, "trial number of the subject"},
                {"PatientID", Short, "position in the roster, from 1"},
                {"TestResults", Text, "one digit a symptom, 1 for present"},
                {"Disease", Text, "the hidden disease"},
                {"Score", Long, "score before the trial, then after it"},
                {"EndTime", Text, "time of day at the end"},
                {"SimTime", Text, "simulated duration, hh:mm"},
                {"ActualTime", Text, "real duration, m:ss"},
                {"EndHealth", Float, "health in points with one decimal"},
                {"Tests", Short, "tests issued"},
                {"Diagnoses", Short, "diagnoses made"},
                {"Treatments", Short, "treatments prescribed"},
                {"Guess", Text, "last guess, or None"},
                {"GuessBelief", Text, "belief in the guess as shown"},
                {"DiseaseBelief", Text, "belief in the hidden disease as shown"},
                {"pGuess", Text, "computed chance of the guess as shown"},
                {"pDisease", Text, "computed chance of the hidden disease as shown"},
                {"LastTreatment", Text, "last treatment"},
                {"CorrectTreatment", Text, "best treatment"},
                {"pLastHeal", Text, "heal chance of the last treatment as shown"},
                {"pCorrectHeal", Text, "heal chance of the best treatment as shown"},
                {"pLastHarm", Text, "harm chance of the last treatment as shown; with risk only"},
                {"pCorrectHarm", Text, "harm chance of the best treatment as shown; with risk only"},
                {"Penalty", Float, "belief penalty, unrounded"},
                {"Result", Text, "the patient's final status"},
                {"Saved", NumberFlag, "1 if the patient was saved, else empty"},
            },
            {},
            "Subject"};
}

Table eventTable() {
    return {"dataEvents",
            Kind::Result,
            {
                {"EventID", Text, "key of the detail tables"},
                {"Subject", Text, "the sign-in name"},
                {"Trial", Short, "trial number of the subject"},
                {"Date", Date, "day of the event"},
                {"Time", Text, "time of day"},
                {"SimTime", Text, "simulated clock, hh:mm"},
                {"Health", Text, "health as shown"},
                {"Action", Text, "Testing, Prescribe, AddSymptom, RemoveSymptom or Diagnose"},
                {"ActionNum", Short, "counter for that action"},
                {"Input", Text, "what the action worked on"},
                {"Output", YesNo, "its outcome"},
                {"DiagnosisID", Text, "state of the hypotheses in force"},
            },
            {}};
}

std::vector<Table> configurationTables() {
    return {
        optionsTable(),
        {"tblBaseRates",
         Kind::Configuration,
         {{"Setting", Text,
           "the scenario; rows are matched by their place in the order of names, so each scenario needs one"},
          {"Count", Short, "number of its diseases, 1 to 4", 1, 4}},
         {{"D", "", "how often the disease is drawn, in percent; together 100", 4, false}}},
        {"tblDiseaseSymptom",
         Kind::Configuration,
         {{"Setting", Text, "the scenario"},
          {"InitVisible", YesNo, "without effect"},
          {"Count", Short, "number of diseases, as in the base rates", 1, 4}},
         {{"D", "", "chance in percent that the symptom is present with the disease", 4, false}}},
        {"tblVocabulary",
         Kind::Configuration,
         {{"Type", Text, "Disease or Symptom"},
          {"Term", Text, "the word; a disease has at most 11 characters"}},
         {}},
        {"tblPatients",
         Kind::Configuration,
         {{"Name", Text, "name of the person"},
          {"Age", Short, "years, 0 to 120", 0, 120},
          {"Male?", YesNo, "yes for a man, no for a woman"},
          {"Height", Short, "inches, 1 to 100", 1, 100},
          {"Weight", Short, "pounds, 1 to 999", 1, 999},
          {"Health", Short, "health at the start in whole points, 1 to 99; 0 is death, 100 recovery", 1, 99},
          {"Picture", Text, "file in the folder Patients: PNG, JPEG, GIF or BMP"},
          {"Intro", Text,
           "file in the folder Patients: plain text; an empty field leaves the text of the person before"}},
         {}},
        {"tblTests",
         Kind::Configuration,
         {{"SETTING", Text, "name of the list, as scenarios name it"},
          {"Length", Text,
           "simulated minutes until the result comes; the first row is for the first test of a scenario"}},
         {}},
        {"tblTreatments",
         Kind::Configuration,
         {{"Setting", Text, "the scenario"}, {"Type", Text, "name of the treatment, at most 18 characters"}},
         {{"D", "+", "chance in percent that it heals the disease", 4, false},
          {"D", "-", "chance in percent that it harms with the disease", 4, false}}},
    };
}

Table wordOrderTable() {
    return {"SubjectSettings",
            Kind::Result,
            {{"Subject", Text, "the sign-in name"},
             {"Setting", Text, "scenario"},
             {"TestOrder", Text, "symptom words in dealt order, comma separated"},
             {"DiseaseOrder", Text, "disease words in dealt order, comma separated"}},
            {},
            "Subject"};
}

std::vector<Table> resultTables() {
    return {
        {"SubjectInfo",
         Kind::Result,
         {{"Subject", Text, "the sign-in name, case aside"},
          {"Major", Text, "field of study"},
          {"Gender", Text, "Male or Female"},
          {"Age", NumberOrText, "as typed"},
          {"Date", Date, "day of the first sign-in"},
          {"Time", Text, "time of day"},
          {"History", Text, "the subject's own words, at most 250 characters"}},
         {}},
        wordOrderTable(),
        trialTable(),
        eventTable(),
        {"dataGetTests",
         Kind::Result,
         {{"EventID", Text, "row of dataEvents"},
          {"Number", Short, "ordinal on this patient, from 1"},
          {"Position", Short, "place of the test in the list, from 1"},
          {"Test", Text, "name of the test"},
          {"Result", Text, "Present or Absent"}},
         {}},
        {"dataGetSymptoms",
         Kind::Result,
         {{"EventID", Text, "row of dataEvents"},
          {"ListItem", Text, "the note"},
          {"FromIntro", NumberFlag, "6 if the note came from the introduction, else empty"},
          {"Deleted", NumberFlag, "6 once the note is removed, else empty"}},
         {},
         "EventID"},
        {"dataHypotheses",
         Kind::Result,
         {{"EventID", Text, "row of dataEvents"},
          {"Number", Short, "ordinal of the diagnosis"},
          {"Order", Short, "row in the dialog, from 1"},
          {"Total", Short, "hypotheses in this diagnosis"},
          {"Guess", Text, "disease"},
          {"Belief", Short, "percent"}},
         {}},
        {"dataHypothesisState",
         Kind::Result,
         {{"StateID", Text, "matches dataEvents.DiagnosisID"}},
         {{"H", "", "belief of the row in percent", 6, true}}},
        {"dataTreatments",
         Kind::Result,
         {{"EventID", Text, "row of dataEvents"},
          {"Number", Short, "ordinal on this patient, from 1"},
          {"Treatment", Text, "name"},
          {"Help", Short, "heal chance in percent"},
          {"Heal", NumberFlag, "1 if the heal draw hit, else empty"},
          {"Hurt", Short, "harm chance in percent"},
          {"Harm", NumberFlag, "1 if the harm draw hit, else empty"}},
         {}},
    };
}

}  // namespace

std::span<const Table> tables() {
    static const std::vector<Table> all = [] {
        std::vector<Table> list = configurationTables();
        std::ranges::move(resultTables(), std::back_inserter(list));
        return list;
    }();
    return all;
}

const Table* find(std::string_view name) {
    for (const Table& table : tables()) {
        if (text::folded(table.name) == text::folded(name)) return &table;
    }
    return nullptr;
}

std::vector<NamedColumn> columnsOf(const Table& table, int count) {
    std::vector<NamedColumn> columns;
    for (const Column& column : table.columns) columns.push_back({std::string(column.name), column.type});
    for (const Series& series : table.series) {
        const int last = series.fixed ? series.fewest : std::max(count, series.fewest);
        for (int i = 1; i <= last; ++i) {
            columns.push_back(
                {std::string(series.prefix) + std::to_string(i) + std::string(series.suffix), Short});
        }
    }
    return columns;
}

std::optional<NamedColumn> findColumn(const Table& table, std::string_view name) {
    for (NamedColumn& column : columnsOf(table, seriesNumber(table, name))) {
        if (text::folded(column.name) == text::folded(name)) return std::move(column);
    }
    return {};
}

int seriesNumber(const Table& table, std::string_view name) {
    for (const Series& series : table.series) {
        if (!text::folded(name).starts_with(text::folded(series.prefix)) || !name.ends_with(series.suffix))
            continue;
        const std::string_view digits =
            name.substr(series.prefix.size(), name.size() - series.prefix.size() - series.suffix.size());
        int number = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (error == std::errc{} && end == digits.data() + digits.size() && number > 0) return number;
    }
    return 0;
}

std::string indexStatement(const Table& table) {
    return "CREATE INDEX [" + std::string(table.name) + " by " + std::string(table.lookup) + "] ON [" +
           std::string(table.name) + "] ([" + std::string(table.lookup) + "] COLLATE BINARY)";
}

std::string_view declaration(ColumnType type) {
    switch (type) {
        case Short:
        case Long:
        case YesNo:
        case NumberFlag: return "INTEGER";
        case Float: return "REAL";
        case Text:
        case Date:
        case NumberOrText: break;
    }
    return "TEXT COLLATE NOCASE";
}

}  // namespace schema
