#include "tests/stage.h"

#include "platform/pictures.h"
#include "platform/randomSource.h"
#include "screens/wiring.h"

Logic::Logic() {
    wiring::wireForms();
    randomSource::fixState(1);
    Host& h = host();
    h.waitWhile = [](const std::function<bool()>&) {};
    h.messageBox = [this](const MessageBox& box) {
        boxes.push_back(box);
        return box.buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
    };
    h.yield = [] {};
    h.milliseconds = [this] { return now; };
    h.today = [] { return "2026-01-05"; };
    h.timeOfDay = [] { return "09:30:00"; };
    h.programFolder = [this] { return study.folder; };
    h.checkPicture = pictures::check;
    h.endProgram = [](int) { throw ProgramEnded(); };
}

std::string Logic::said() {
    std::string all;
    for (const MessageBox& box : boxes) all += (all.empty() ? "" : "/") + box.title + "|" + box.text;
    boxes.clear();
    return all;
}

void draw(std::initializer_list<double> next) {
    randomSource::clearQueue();
    randomSource::queueDraws(std::vector<double>(next));
}

void setScenario(const std::vector<int>& rates, const std::vector<std::vector<int>>& symptoms) {
    const auto rowOf = [](const std::vector<int>& values) {
        ProbabilityRow row{"", values.size(), false, {}};
        for (const int value : values) row.percents.add(value);
        return row;
    };
    TrialState& s = trialState;
    s.settingIndex = 0;
    s.diseaseIndex = 0;
    s.baseRates.items = {rowOf(rates)};
    s.diseaseTerms.items = {{"Aavo"}, {"Brill"}, {"Corvex"}, {"Dunnit"}};
    s.diseaseTerms.items.resize(rates.size());
    s.diseaseCount = s.tableDiseaseCount = rates.size();
    s.diseaseSymptom = {};
    for (const auto& symptom : symptoms) s.diseaseSymptom.add(rowOf(symptom));
    s.symptomTerms.items = {{"Pallor"}, {"Quiver"}, {"Rash"}, {"Stupor"}, {"Tremor"}, {"Unrest"}};
    s.symptomTerms.items.resize(symptoms.size());
    s.symptomCount = s.symptomTermCount = symptoms.size();
    s.patients = {};
    s.patients.add({});
    s.patients[0].name = "Anna";
    s.patients[0].health = 75;
}
