#include <fmt/format.h>

#include <algorithm>

#include "platform/text.h"
#include "study/checkRules.h"

namespace check {

namespace {

constexpr int tableWidth = 15;      // characters of a column in the table of symptoms
constexpr int treatmentWidth = 11;  // and in the list of treatments

/// How many words of a kind the scenarios use at most, and which of them asks for most.
struct Need {
    int most = 0;
    int underTreatments = 0;  ///< of diseases, in scenarios with treatments
    int together = 0;         ///< of diseases, where three or more are judged at once
    std::string scenario = {};
};

Need diseasesNeeded(const Study& study) {
    Need need;
    for (const Scenario& scenario : study.scenarios) {
        const int count = std::min(scenario.diseases, mostDiseases);
        if (count > need.most) need.scenario = scenario.name;
        need.most = std::max(need.most, count);
        if (!scenario.treatments.empty()) need.underTreatments = std::max(need.underTreatments, count);
        if (count > 2 && study.sheet("tblAppDefault").isTrue(scenario.row, "DiagnoseAllDiseases"))
            need.together = std::max(need.together, count);
    }
    return need;
}

Need symptomsNeeded(const Study& study) {
    Need need;
    for (const Scenario& scenario : study.scenarios) {
        const int count = std::min(static_cast<int>(scenario.symptoms.size()), mostSymptoms);
        if (count > need.most) need.scenario = scenario.name;
        need.most = std::max(need.most, count);
    }
    return need;
}

/// Rows whose type is neither: no session reads them. With too few words left that is an error, told here.
bool judgeTypes(Study& study, bool tooFew) {
    const Sheet& words = study.sheet("tblVocabulary");
    bool odd = false;
    for (int row = 0; row < words.size(); ++row) {
        const std::string type = words.text(row, "Type");
        if (sameName(type, "Disease") || sameName(type, "Symptom")) continue;
        odd = true;
        study.add(
            tooFew ? Grade::Error : Grade::Warning, words, row, "Type",
            fmt::format("\"{}\" is neither Disease nor Symptom: no session reads the row{}", type,
                        tooFew ? ", and the words left are too few: the program ends at the sign-in." : "."));
    }
    return odd;
}

void judgeNumber(Study& study, const char* type, const Need& need, int there) {
    if (there >= need.most) return;
    study.error(study.sheet("tblVocabulary"), noRow, "Term",
                fmt::format("{} words of type {}, where \"{}\" needs {}: the program ends at the sign-in.",
                            there, type, need.scenario, need.most));
}

void judgeWord(Study& study, int row) {
    const Sheet& words = study.sheet("tblVocabulary");
    const std::string word = words.text(row, "Term");
    if (word.find(',') != std::string::npos)
        study.error(
            words, row, "Term",
            fmt::format("\"{}\" holds a comma: the words of a subject who comes back are cut there, and "
                        "stand for other diseases and tests.",
                        word));
    if (hasApostrophe(word))
        study.warn(words, row, "Term",
                   fmt::format("\"{}\" holds an apostrophe: a note with it cannot be removed.", word));
    if (word.empty() || text::trim(word) != word)
        study.warn(words, row, "Term",
                   word.empty()
                       ? "The word is empty."
                       : fmt::format("\"{}\" has blanks at its ends, which are gone when a subject comes "
                                     "back.",
                                     word));
}

void judgeLength(Study& study, int row, int place, const Need& need) {
    const Sheet& words = study.sheet("tblVocabulary");
    const std::string word = words.text(row, "Term");
    const int length = text::length(word);
    const bool tooLong = length > tableWidth;
    if (!(tooLong && place < need.most) && !(length > treatmentWidth && place < need.underTreatments)) return;
    study.error(
        words, row, "Term",
        fmt::format("\"{}\" has {} characters, more than the {} of a column in the {}: the program ends at "
                    "the first patient.",
                    word, length, tooLong ? tableWidth : treatmentWidth,
                    tooLong ? "table of symptoms" : "list of treatments"));
}

void judgeTwins(Study& study, const std::vector<int>& rows, int place, int together) {
    const Sheet& words = study.sheet("tblVocabulary");
    const int row = rows[static_cast<std::size_t>(place)];
    for (int above = 0; above < place; ++above) {
        const int other = rows[static_cast<std::size_t>(above)];
        if (words.isEmpty(other, "Term") || !sameName(words.text(other, "Term"), words.text(row, "Term")))
            continue;
        const bool equal = words.text(other, "Term") == words.text(row, "Term");
        const bool ends = equal && place < together;
        study.add(
            ends ? Grade::Error : Grade::Warning, words, row, "Term",
            fmt::format("\"{}\" stands in row {} too: {}", words.text(row, "Term"), other + 1,
                        ends ? "with all diseases at once the diagnosis cannot name them for every subject, "
                               "and the program ends."
                             : "a subject cannot tell the two apart."));
        return;
    }
}

void judgeWords(Study& study, const std::vector<int>& rows, const Need& need, bool allAreRead) {
    const Sheet& words = study.sheet("tblVocabulary");
    for (int place = 0; place < static_cast<int>(rows.size()); ++place) {
        const int row = rows[static_cast<std::size_t>(place)];
        if (words.isEmpty(row, "Term")) {
            if (allAreRead || place < need.most) study.needsText(words, row, "Term");
            continue;
        }
        judgeWord(study, row);
        if (!allAreRead) judgeLength(study, row, place, need);
        judgeTwins(study, rows, place, need.together);
    }
}

}  // namespace

void words(Study& study) {
    const Sheet& sheet = study.sheet("tblVocabulary");
    if (!sheet.there || !sheet.has("Type") || !sheet.has("Term")) return;
    const std::vector<int> diseases = wordRows(study, "Disease");
    const std::vector<int> symptoms = wordRows(study, "Symptom");
    const Need ofDiseases = diseasesNeeded(study);
    const Need ofSymptoms = symptomsNeeded(study);
    const auto fewer = [](const std::vector<int>& rows, const Need& need) {
        return static_cast<int>(rows.size()) < need.most;
    };
    if (!judgeTypes(study, fewer(diseases, ofDiseases) || fewer(symptoms, ofSymptoms))) {
        judgeNumber(study, "Disease", ofDiseases, static_cast<int>(diseases.size()));
        judgeNumber(study, "Symptom", ofSymptoms, static_cast<int>(symptoms.size()));
    }
    judgeWords(study, diseases, ofDiseases, false);
    judgeWords(study, symptoms, ofSymptoms, true);
}

}  // namespace check
