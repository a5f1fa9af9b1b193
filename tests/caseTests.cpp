// The case: words dealt on the model, its chances, the draws of a patient, and the tables as texts.
#include <cmath>
#include <map>

#include "forms/frmTavix.h"
#include "knowledge/caseDraw.h"
#include "knowledge/modDisease.h"
#include "knowledge/modLikely.h"
#include "knowledge/modTreatments.h"
#include "knowledge/termOrders.h"
#include "platform/numberText.h"
#include "store/record/Options.h"
#include "tests/stage.h"

namespace {

class Case : public Logic {};
using Words = std::vector<std::string>;

TEST_F(Case, TermListsAreParsed) {
    const auto parsed = [](const char* text) { return termOrders::parseTermList(text).items; };
    EXPECT_EQ(parsed(" a , b,c,"), (Words{"a", "b", "c", ""}));
    EXPECT_EQ(parsed(" only"), (Words{" only"}));
    EXPECT_EQ(parsed(""), (Words{""}));
}

TEST_F(Case, EveryOrderOfWordsIsDealtAlikeOften) {
    std::map<Words, int> seen;
    constexpr int deals = 12000;
    for (int i = 0; i < deals; ++i) {
        now += 7;
        List<std::string> words{{"a", "b", "c", "d"}};
        termOrders::shuffleTerms(words);
        ++seen[words.items];
    }
    EXPECT_EQ(seen.size(), 24U);
    for (const auto& [order, count] : seen) EXPECT_NEAR(count, deals / 24.0, 7 * std::sqrt(deals / 24.0));
}

TEST_F(Case, TablesAsTexts) {
    setScenario({50, 30, 20}, {{80, 0, 7}, {100, 33, 2}});
    EXPECT_EQ(modDisease::symptomDiseaseSummary(),
              "  A      B     C      \r\n0.80 0.00 0.07 \r\n0.100 0.33 0.02 \r\n");

    s.treatments.items = {{"Ambrol", {{80, 7, 100}}, {{0, 5, 30}}},
                          {"Longer than eighteen", {{1, 2, 3}}, {}}};
    s.treatmentTypeCount = 2;
    s.treatmentMaxDisease = 2;
    const auto lines = [](bool table, bool risk) {
        Options.ViewTreatmentDisease.set(table);
        Options.Risk.set(risk);
        modTreatments::displayTreatments();
        return frmTavix.lstTreatments.items;
    };
    EXPECT_EQ(lines(false, false), (Words{"..................  Aavo       Brill      Corvex     ",
                                          "Ambrol............", "Longer than eighteen"}));
    EXPECT_EQ(lines(true, false)[1], "Ambrol............    .80        .07        .100    ");
    s.treatments.items.pop_back();
    EXPECT_EQ(lines(true, true),
              (Words{"..................  Aavo         Aa-Brill        Br-Corvex       Co-",
                     "Ambrol............    .80      .00    .07      .05    .100      .30"}));
    s.diseaseTerms[1].term = "Twelve chars";
    EXPECT_FAULT(modTreatments::displayTreatments(), InvalidCall);
    s.diseaseTerms[1].term = "Sixteen letters.";
    EXPECT_FAULT(modDisease::symptomDiseaseText(), InvalidCall);
}

TEST_F(Case, ChancesOfEachPattern) {
    const auto row = [this](int pattern) {
        modLikely::buildLikelihoodTable();
        const LikelihoodRow& r = s.likelihoodTable[pattern];
        std::string all = std::to_string(r.bestDisease.toInt());
        for (const auto* chances : {&r.symptomChance, &r.otherChance, &r.diseaseChance}) {
            all += " |";
            for (const double chance : *chances) all += " " + numberText::general(chance);
        }
        return all;
    };
    setScenario({70, 30}, {{80, 20}});
    EXPECT_EQ(row(1), "0 | 0.8 0.2 | 0.14 0.24 | 0.8 0.2") << "the rates cancel out";
    EXPECT_EQ(row(0), "1 | 0.2 0.8 | 0.56 0.06 | 0.2 0.8");
    setScenario({0, 100}, {{80, 20}});
    EXPECT_EQ(row(1), "1 | 0.8 0.2 | 0 0.8 | 0 0.2") << "but for one of 0";
    setScenario({50, 50}, {{100, 100}});
    EXPECT_EQ(row(1), "0 | 1 1 | 0.5 0.5 | 0.5 0.5") << "the lower index wins a tie";
    // The first symptom is the highest bit: present here, the other two absent.
    setScenario({50, 30, 20}, {{80, 20, 10}, {30, 70, 40}, {10, 50, 90}});
    EXPECT_TRUE(row(4).starts_with("0 | 0.504 0.03 0.006 | 0.018 0.153 0.1068 | 0.933333333333333 0.0555"));
    s.diseaseCount = 2;
    EXPECT_FAULT(row(0), SubscriptOutOfRange);
}

TEST_F(Case, DiseasesAndFindingsAreDrawnAgainstTheirChances) {
    setScenario({20, 30, 0}, {{0, 100, 0}, {100, 0, 0}, {30, 30, 100}});
    const auto drawn = [this](double disease, double third) {
        draw({disease, 0.0, 0.995, third});
        modPatient::drawDisease();
        modPatient::drawFindings();
        return s.patients[0].disease + modPatient::findingsText() + s.symptomFindings[2].result;
    };
    EXPECT_EQ(drawn(0.0, 0.295), "Aavo011Present");
    EXPECT_EQ(drawn(0.195, 0.305), "Aavo010Absent");
    EXPECT_EQ(drawn(0.205, 0.305), "Brill100Absent");
    EXPECT_EQ(drawn(0.495, 0.295), "Brill101Present");
    EXPECT_EQ(drawn(0.505, 0.305), "Brill100Absent") << "rates that fall short leave the last disease";
    s.symptomTermCount = 5;
    EXPECT_EQ(drawn(0.0, 0.295), "Aavo00011Present");
    EXPECT_EQ(s.findingsMask, 3);
    setScenario({100}, std::vector<std::vector<int>>(15, {100}));
    modPatient::drawFindings();
    EXPECT_EQ(s.findingsMask, 32767);
    setScenario({100}, std::vector<std::vector<int>>(16, {100}));
    EXPECT_FAULT(modPatient::drawFindings(), Overflow);
}

TEST_F(Case, TheBestTreatmentIsTheFirstThatHealsBest) {
    setScenario({50, 50});
    s.treatments.items = {{"a", {{10, 0}}, {}}, {"b", {{70, 0}}, {}}, {"c", {{70, 0}}, {}}};
    s.treatmentTypeCount = 3;
    for (s.diseaseIndex = 0; s.diseaseIndex < 2; ++s.diseaseIndex) {
        modTreatments::chooseBestTreatment();
        EXPECT_EQ(s.patients[0].bestTreatment, s.diseaseIndex == 0 ? 1 : 0);
    }
}

}  // namespace
