#include "store/layer/schema.h"

#include <algorithm>
#include <charconv>

#include "platform/text.h"

namespace schema {

namespace {

using enum ColumnType;

Table optionsTable() {
    return {
        "tblAppDefault",
        Kind::Configuration,
        {
            {"Setting", Text, "name of the scenario; sort key of the sign-in list"},
            {"TestLengthSetting", Text, "value of tblTests.SETTING for this scenario"},
            {"Time", Short, "real minutes per patient", 1, 30},
            {"SimRate", Short, "simulated hours per real minute", 1, 20},
            {"StartHour", NumberOrText, "hour at which each patient begins", 0, 12},
            {"StartMin", NumberOrText, "minute at which each patient begins", 0, 59},
            {"InitScore", NumberOrText, "score of a new subject"},
            {"TestBuffer", NumberOrText, "shown in the options dialog, without effect"},
            {"BeliefBuffer", NumberOrText, "shown in the options dialog, without effect"},
            {"TestCost", NumberOrText, "score charged per test"},
            {"MaxBeliefCost", NumberOrText, "greatest penalty for a wrong belief"},
            {"HealAward", NumberOrText, "score per health point left on a saved patient"},
            {"CyclePatients", YesNo, "begin the roster again when it is used up"},
            {"ShowOptions", YesNo, "open the options dialog before each patient"},
            {"DiagnoseAfterTests", YesNo, "a test result forces the diagnosis"},
            {"TimeStopDiagnosis", YesNo, "time stands still while the diagnosis is open"},
            {"DiagnoseAllDiseases", YesNo, "all diseases are judged at once"},
            {"YokeBeliefMeters", YesNo, "belief meters push each other"},
            {"Normalize", YesNo, "beliefs are rescaled at each diagnosis"},
            {"InitToBaseRates", YesNo, "belief meters start at the base rates"},
            {"ViewBaseRates", YesNo, "show the base rates to the subject"},
            {"ViewSymptomDisease", YesNo, "show the symptom-disease table"},
            {"ViewTreatmentDisease", YesNo, "show the treatment table"},
            {"DoTreatments", YesNo, "the task has a treatment stage"},
            {"FeedbackSymptomsP", YesNo, "feedback shows the symptom probabilities"},
            {"FeedbackTestsResults", YesNo, "feedback shows all test results"},
            {"FeedbackDiseaseP", YesNo, "feedback shows the disease probabilities, and the score uses them"},
            {"UseNormalizeScore", YesNo, "the penalty uses the normalised belief"},
            {"ShowNormalize", YesNo, "feedback offers the normalised beliefs"},
            {"BestTreatment", YesNo, "feedback shows the best treatment"},
            {"TreatmentProperty", Short, "1 one treatment, 0 neither, -1 treatments can harm", -1, 1},
        },
        {}};
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
         {{"Setting", Text, "scenario"}, {"Count", Short, "disease columns in use", 1, 4}},
         {{"D", "", "base rate of the disease in percent", 4, false}}},
        {"tblDiseaseSymptom",
         Kind::Configuration,
         {{"Setting", Text, "scenario"},
          {"InitVisible", YesNo, "the symptom's row is visible at the start"},
          {"Count", Short, "disease columns in use", 1, 4}},
         {{"D", "", "chance of the symptom with the disease, in percent", 4, false}}},
        {"tblVocabulary",
         Kind::Configuration,
         {{"Type", Text, "Disease or Symptom"}, {"Term", Text, "the word"}},
         {}},
        {"tblPatients",
         Kind::Configuration,
         {{"Name", Text, "name of the person"},
          {"Age", Short, "years", 0, 120},
          {"Male?", YesNo, "sex"},
          {"Height", Short, "inches", 1, 100},
          {"Weight", Short, "pounds", 1, 999},
          {"Health", Short, "starting health in whole points", 1, 99},
          {"Picture", Text, "file in the folder Patients"},
          {"Intro", Text, "file in the folder Patients"}},
         {}},
        {"tblTests",
         Kind::Configuration,
         {{"SETTING", Text, "matched with TestLengthSetting of the scenario"},
          {"Length", Text, "simulated minutes of the test in this row's place"}},
         {}},
        {"tblTreatments",
         Kind::Configuration,
         {{"Setting", Text, "scenario"}, {"Type", Text, "name of the treatment"}},
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
