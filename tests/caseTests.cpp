#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "forms/frmLogin.h"
#include "forms/frmTavix.h"
#include "knowledge/caseDraw.h"
#include "knowledge/modDisease.h"
#include "knowledge/modLikely.h"
#include "knowledge/termOrders.h"
#include "platform/randomSource.h"
#include "state/TrialState.h"
#include "tests/faults.h"
#include "tests/stage.h"

namespace {

List<Int16> percents(std::initializer_list<int> values) {
    List<Int16> list;
    for (const int value : values) list.add(value);
    return list;
}

ProbabilityRow row(std::initializer_list<int> values) {
    return {"", static_cast<int>(values.size()), false, percents(values)};
}

/// A scenario in memory: base rates, then one row per symptom.
void setScenario(std::initializer_list<int> rates, const std::vector<std::initializer_list<int>>& symptoms) {
    TrialState& s = trialState;
    s.settingIndex = 0;
    s.baseRates.items = {row(rates)};
    s.diseaseSymptom = {};
    for (const auto& symptom : symptoms) s.diseaseSymptom.add(row(symptom));
    s.symptomCount = s.diseaseSymptom.size();
    s.diseaseTerms.items.assign(rates.size(), {"Word"});
    s.diseaseCount = s.diseaseTerms.size();
    s.symptomTerms.items.assign(symptoms.size(), {"Sign"});
    s.symptomTermCount = s.symptomCount;
}

class Case : public testing::Test {
protected:
    Stage stage;
    void SetUp() override { trialState.patients.add({}); }
};

TEST_F(Case, TermListsAreParsed) {
    const auto parsed = [](const char* text) { return termOrders::parseTermList(text).items; };
    using Words = std::vector<std::string>;
    EXPECT_EQ(parsed(" a , b,c "), (Words{"a", "b", "c"}));
    EXPECT_EQ(parsed(" only"), (Words{" only"}));
    EXPECT_EQ(parsed("a,b,"), (Words{"a", "b", ""}));
    EXPECT_EQ(parsed(""), (Words{""}));
    EXPECT_EQ(termOrders::parseTermList("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20").size().raw, 20);
}

TEST_F(Case, EveryOrderOfWordsIsDealtAlikeOften) {
    std::map<std::vector<std::string>, int> seen;
    constexpr int deals = 12000;
    for (int i = 0; i < deals; ++i) {
        stage.now += 7;
        List<std::string> words;
        words.items = {"a", "b", "c", "d"};
        termOrders::shuffleTerms(words);
        ++seen[words.items];
    }
    EXPECT_EQ(seen.size(), 24U);
    for (const auto& [order, count] : seen) EXPECT_NEAR(count, deals / 24.0, 7 * std::sqrt(deals / 24.0));
}

TEST_F(Case, TableTexts) {
    setScenario({50, 5, 100}, {{80, 0, 7}, {100, 33, 2}});
    trialState.diseaseTerms.items = {{"Aavo"}, {"Brill"}, {"Corvex"}};
    trialState.symptomTerms.items = {{"Pallor"}, {"Rash"}};
    EXPECT_EQ(modDisease::baseRateText(), "    0.50              0.05              0.100     Base Rates");
    EXPECT_EQ(modDisease::symptomDiseaseText(),
              "    0.80              0.00              0.07     Pallor\r\n"
              "    0.100              0.33              0.02     Rash\r\n");
    EXPECT_EQ(frmTavix.lblSvD.caption, " Aavo           Brill          Corvex         ");
    EXPECT_EQ(modDisease::symptomDiseaseSummary(),
              "  A      B     C      \r\n0.80 0.00 0.07 \r\n0.100 0.33 0.02 \r\n");
    trialState.diseaseTerms[1].term = "Longer than fifteen";
    EXPECT_FAULT(modDisease::symptomDiseaseText(), FaultNumber::InvalidCall);
}

TEST_F(Case, ChancesOfEachPattern) {
    setScenario({70, 30}, {{80, 20}});
    modLikely::buildLikelihoodTable();
    const LikelihoodRow& present = trialState.likelihoodTable[1];
    EXPECT_DOUBLE_EQ(present.symptomChance[0], 0.8);
    EXPECT_DOUBLE_EQ(present.otherChance[0], 0.14);
    EXPECT_DOUBLE_EQ(present.otherChance[1], 0.24);
    EXPECT_DOUBLE_EQ(present.diseaseChance[0], 0.8);
    EXPECT_DOUBLE_EQ(present.diseaseChance[1], 0.2);
    EXPECT_EQ(trialState.likelihoodTable[0].bestDisease.raw, 1);

    setScenario({0, 100}, {{80, 20}});
    modLikely::buildLikelihoodTable();
    EXPECT_DOUBLE_EQ(trialState.likelihoodTable[1].diseaseChance[0], 0.0);
    EXPECT_DOUBLE_EQ(trialState.likelihoodTable[1].diseaseChance[1], 0.2);

    setScenario({50, 50}, {{100, 100}});
    modLikely::buildLikelihoodTable();
    EXPECT_EQ(trialState.likelihoodTable[0].diseaseChance[0], 0.0);
    EXPECT_EQ(trialState.likelihoodTable[1].bestDisease.raw, 0) << "the lower index wins a tie";

    setScenario({50, 50}, {});
    modLikely::buildLikelihoodTable();
    EXPECT_EQ(trialState.likelihoodTable.size().raw, 1);
    EXPECT_EQ(trialState.likelihoodTable[0].symptomChance[1], 1.0);

    setScenario({50, 50}, {{80, 20}});
    trialState.diseaseCount = 1;
    EXPECT_FAULT(modLikely::buildLikelihoodTable(), FaultNumber::SubscriptOutOfRange);
}

TEST_F(Case, PatternsHaveSymptomZeroInTheHighestBit) {
    EXPECT_EQ(modLikely::patternBits(5, 4), (std::vector<bool>{false, true, false, true}));
    EXPECT_EQ(modLikely::patternBits(32767, 15), std::vector<bool>(15, true));
    setScenario({100}, {{100}, {0}, {100}});
    trialState.symptomTermCount = 5;
    modPatient::drawFindings();
    EXPECT_EQ(trialState.findingsMask.raw, 5);
    EXPECT_EQ(modPatient::findingsText(), "00101");
    trialState.findingsMask = 0;
    EXPECT_EQ(modPatient::findingsText(), "00000");
}

TEST_F(Case, DiseasesAndFindingsAreDrawnAgainstTheirChances) {
    setScenario({50, 50}, {{30, 30}});
    const auto drawnDisease = [](double draw) {
        randomSource::queueDraws(std::vector<double>{draw});
        modPatient::drawDisease();
        return trialState.diseaseIndex.raw;
    };
    EXPECT_EQ(drawnDisease(0.49), 0);
    EXPECT_EQ(drawnDisease(0.50), 1);
    EXPECT_EQ(drawnDisease(0.0), 0);
    setScenario({20, 30}, {{30, 30}});
    trialState.diseaseIndex = 1;
    EXPECT_EQ(drawnDisease(0.9), 1) << "rates that fall short leave the last disease";
    for (const double draw : {0.29, 0.30}) {
        randomSource::queueDraws(std::vector<double>{draw});
        modPatient::drawFindings();
        EXPECT_EQ(trialState.symptomFindings[0].present, draw < 0.295);
    }
}

TEST_F(Case, FifteenSymptomsAreTheLimit) {
    setScenario({100}, std::vector<std::initializer_list<int>>(15, {100}));
    modPatient::drawFindings();
    EXPECT_EQ(trialState.findingsMask.raw, 32767);
    setScenario({100}, std::vector<std::initializer_list<int>>(16, {100}));
    EXPECT_FAULT(modPatient::drawFindings(), FaultNumber::Overflow);
}

}  // namespace
