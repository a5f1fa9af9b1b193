// What the report reckons from the rows of a store, and the page that it writes.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "platform/files.h"
#include "study/courses.h"
#include "study/figures.h"
#include "study/pilotFigures.h"
#include "study/pilotReport.h"
#include "study/readStore.h"
#include "study/report.h"
#include "study/survival.h"
#include "tests/faults.h"
#include "tests/temporaryStudy.h"

namespace {

/// Kim has two patients, one in a diagnosis with beliefs, a repetition by the experimenter's key, and one
/// without an end; the other subject a case that came twice, under the same identifiers.
const char* const rows = R"(
INSERT INTO dataTrial (Subject, Setting, Date, StartTime, Trial, PatientID, TestResults, Disease, Score,
    ActualTime, EndHealth, Diagnoses, DiseaseBelief, pDisease, Result, Saved) VALUES
  ('Kim', 'Plain', '2026-01-05', '23:59:30', 1, 1, '10', 'Aavo', 90, '1:05', 40.5, 1, '0.70', '0.29',
   'Saved', 1),
  ('KIM', 'Plain', '2026-01-06', '00:10:00', 2, 2, '01', 'Bexo', 70, '0:30', 0, 0, '0', '0.80', 'Dead', NULL),
  ('Kim', 'Plain', '2026-01-06', '00:11:00', 3, 2, '01', 'Bexo', 70, '0:30', 0, 0, '0', '0.80',
   'Aborted by Options', NULL),
  ('<b>O''Brien & é', 'Plain', '2026-01-06', '10:00:00', 1, 1, '11', 'Aavo', 50, '0:20', 9, 1, '1.00', '1.00',
   'Dead', NULL);
INSERT INTO dataTrial (Subject, Setting, Date, StartTime, Trial, PatientID, TestResults, Disease, Score) VALUES
  ('<b>O''Brien & é', 'Plain', '2026-01-06', '10:05:00', 1, 1, '11', 'Aavo', 50),
  ('kim', 'Plain', '2026-01-06', '00:12:00', 4, 3, '00', 'Aavo', 70);
INSERT INTO dataEvents (EventID, Subject, Trial, Date, Time, SimTime, Health, Action, Input, Output) VALUES
  ('Kim01_001', 'Kim', 1, '2026-01-06', '00:00:10', '08:40', '92.1 ', 'Testing', 'TestPosition1', -1),
  ('Kim01_002', 'Kim', 1, '2026-01-06', '00:00:15', '08:45', '91.0 ', 'Diagnose', 'HypothesisPosition01', 0),
  ('b01_001', '<b>O''Brien & é', 1, '2026-01-06', '10:00:05', '08:05', '50.0 ', 'Diagnose', '', 0),
  ('b01_001', '<b>O''Brien & é', 1, '2026-01-06', '10:05:07', '08:05', '50.0 ', 'Diagnose', '', 0);
INSERT INTO dataGetTests (EventID, Test) VALUES ('Kim01_001', 'Fever');
INSERT INTO dataHypotheses (EventID, [Order], Guess, Belief) VALUES ('Kim01_002', 1, 'Aavo', 70),
  ('Kim01_002', 2, 'Bexo', 29), ('b01_001', 1, 'Aavo', 10), ('b01_001', 1, 'Bexo', 20);
UPDATE tblAppDefault SET FeedbackDiseaseP = -1)";

struct Report : testing::Test {
    TemporaryStudy study;
    std::string page = study.folder + "/out.html";

    Report() {
        const std::string all = rows;
        for (std::size_t at = 0; at < all.size();) {
            const std::size_t end = std::min(all.find(";\n", at), all.size());
            study.change(all.substr(at, end - at));
            at = end + 1;
        }
    }
    [[nodiscard]] std::string refusal(const std::string& patient) const {
        try {
            report::write(study.storePath(), page, patient);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return {};
    }
};

TEST_F(Report, ReckonsFromTheRowsThatTellOfAPatient) {
    const auto database = readStore::open(study.storePath());
    const courses::Study found = courses::read(*database);
    const int twice = courses::find(found, "<B>o'brien & É", 1);
    ASSERT_EQ(twice, 1);
    EXPECT_EQ(found.patients[0].events.size() * 10 + found.patients[1].events.size(), 11U);
    EXPECT_EQ(courses::lastBeliefs(found.patients[1]).at(0).belief, 20);
    EXPECT_EQ(found.patients[2].events.at(0).what, "Fever");

    std::vector<const courses::Patient*> all;
    for (const courses::Patient& patient : found.patients) all.push_back(&patient);
    const figures::Figures figures = figures::of(all);
    EXPECT_EQ(figures.patients * 100 + figures.finished * 10 + figures.saved, 321);
    EXPECT_EQ(figures.ends, (std::vector<std::pair<std::string, int>>{{"", 1}, {"Dead", 1}, {"Saved", 1}}));
    ASSERT_EQ(figures.scores.size(), 2U);
    EXPECT_EQ(figures.scores[1].marks[2], 70);
    EXPECT_EQ(figures.firstTest.value().marks[0], 40);  // past midnight
    EXPECT_EQ(figures.firstDiagnosis.value().count, 1);
    EXPECT_EQ(figures.chance[2].count, 1);  // 0.29; a patient without a diagnosis has no belief
    EXPECT_NEAR(figures.distance.value(), 0.41, 1e-9);
    EXPECT_EQ(figures.calibration[7].up, 1);
    EXPECT_EQ(figures.calibration[2].up + figures.calibration[0].count, 0);
    EXPECT_EQ(figures::spreadOf({4, 1, 2, 3}).value().marks, (std::array<double, 5>{1, 1.75, 2.5, 3.25, 4}));
    EXPECT_EQ(figures::binned(std::vector<std::pair<double, double>>{{1, 0}, {0.9, 1}})[9].up, 0.5);
}

TEST_F(Report, IsOnePageThatFetchesNothingAndEscapesNames) {
    EXPECT_EQ(refusal("kim:1"), "");
    const std::string written = files::read(page);
    EXPECT_EQ(refusal("kim:1"), "");  // replaced, by the same
    EXPECT_EQ(files::read(page), written);
    EXPECT_NE(written.find(R"(["\u003cb>O'Brien & \u00e9","Kim"])"), std::string::npos);
    EXPECT_NE(written.find(R"("chosen":2,)"), std::string::npos);
    for (const char* outside : {" src=", "<link rel=\"stylesheet", "url(", "@import", "<b>"})
        EXPECT_EQ(written.find(outside), std::string::npos) << outside;
    EXPECT_EQ(refusal("kim:9"), "--patient kim:9: the subject \"kim\" has no patient 9");
    EXPECT_EQ(refusal("kim"), "--patient kim: a patient is named SUBJECT:TRIAL");
    writeFile(page, "precious");
    EXPECT_EQ(refusal(""), page + " exists and is no report; it is not replaced");
    study.change("DROP TABLE dataEvents");
    std::filesystem::remove(page);
    EXPECT_EQ(refusal(""), study.storePath() + ": table dataEvents: no such table: dataEvents");
    EXPECT_FALSE(std::filesystem::exists(page + ".tavixdb"));
}

TEST_F(Report, TellsHowFarItIsAndCanBeStopped) {
    std::vector<double> shares;
    report::write(study.storePath(), page, "", [&](double share) { shares.push_back(share); });
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_TRUE(shares.size() > 2 && shares.front() > 0 && shares.back() < 1);
    std::filesystem::remove(page);
    const auto stop = [](double share) {
        if (share > 0.4) throw std::runtime_error("stopped");
    };
    EXPECT_THROW(report::write(study.storePath(), page, "", stop), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(page) || std::filesystem::exists(page + ".tavixdb"));
}

TEST(Survival, TakesOtherEndsOutOfTheSumAndDeathsOfTheirMinuteFirst) {
    const auto steps = survival::of(
        {{500, false}, {100, true}, {200, false}, {300, true}, {300, false}, {100, true}, {300, true}});
    std::string told;
    for (const survival::Step& step : steps)
        told += fmt::format("{} {} {:.4f};", step.minute, step.left, step.alive);
    EXPECT_EQ(told, "100 5 0.7143;200 4 0.7143;300 1 0.3571;500 0 0.3571;");
    const auto few = survival::thinned(steps, 1);  // stretches of 480 minutes
    EXPECT_EQ(few.size() * 1000 + static_cast<unsigned>(few.front().minute), 2300U);
}

/// Bayes in a scenario that starts at 8:45: a life over thirteen hours, one whose end reached the time limit,
/// and a patient with two diagnoses of whom only the last one counts.
TEST(Pilot, ReckonsLivesScoresAndBeliefsByPolicy) {
    const TemporaryStudy study;
    study.change(
        "CREATE TABLE pilotSubjects AS SELECT 'bayes-1-1P' AS Subject, 'bayes' AS Policy, 'left' AS Ended");
    study.change("INSERT INTO pilotSubjects VALUES ('bayes-1-2p', 'bayes', 'complete')");
    study.change("UPDATE tblAppDefault SET StartMin = 45, InitScore = '100.5', FeedbackDiseaseP = -1");
    study.change(R"(
INSERT INTO dataTrial (Subject, Setting, Trial, Disease, Score, SimTime, EndHealth, Tests, Diagnoses, DiseaseBelief,
    pDisease, Result, Saved) VALUES
  ('bayes-1-1p', 'Plain', 1, 'Aavo', 110, '13:20', 0, 0, 0, '', '', 'Dead', NULL),
  ('bayes-1-1p', 'Plain', 2, 'Aavo', 140, '01:14', 55, 3, 2, '0.80', '0.60', 'Correct Treatment', 1),
  ('bayes-1-2p', 'Plain', 1, 'Bexo', 90, '00:12', 0, 0, 0, '', '', 'Time End', NULL),
  ('kim', 'Plain', 1, 'Bexo', 90, '00:12', 40, 0, 0, '', '', 'Time End', NULL))");
    study.change(R"(
INSERT INTO dataHypotheses (EventID, Number, Guess, Belief) VALUES ('bayes-1-1p02_001', 1, 'Bexo', 95),
  ('bayes-1-1p02_004', 2, 'Aavo', 80), ('bayes-1-1p02_004', 2, 'Bexo', 20))");
    const auto found = pilotFigures::of(*readStore::open(study.storePath()));
    ASSERT_EQ(found.size(), 2U);
    const pilotFigures::Outcome& bayes = found[0];
    EXPECT_EQ(bayes.policy + found[1].policy, "bayespeople");
    EXPECT_EQ(bayes.subjects, 2);
    EXPECT_EQ(bayes.brokenOff, (std::vector<std::pair<std::string, int>>{{"left", 1}}));
    // 13 hours filled since 8:45 and 20 minutes: 13 * 60 + 5 - 45 - 1; the end reckoned twice took two
    // off 12.
    EXPECT_EQ(bayes.life.value().marks, (std::array<double, 5>{10, 41.5, 73, 406, 739}));
    EXPECT_EQ(bayes.survival.back().alive, 0);
    EXPECT_EQ(found[1].survival.back().alive, 1);
    EXPECT_EQ(bayes.change.value().value, 5);  // 20 and -10 a patient of the two subjects
    EXPECT_NEAR(bayes.change.value().error.value(), 15, 1e-9);
    EXPECT_FALSE(found[1].change.value().error);
    EXPECT_EQ(bayes.startScore + bayes.tests, 101);
    EXPECT_NEAR(bayes.miscalibration.value(), 0.2, 1e-9);

    const std::string page = study.folder + "/pilot.html";
    pilotReport::write(page, study.storePath(), pilotReport::Warnings{{"</script>"}});
    const std::string written = files::read(page);
    EXPECT_NE(written.find(R"("people":true,"plays":[{"belief":0.8,)"), std::string::npos);
    EXPECT_NE(written.find(R"("survival":[[10,2,0.667],[73,1,0.667],[739,0,0.0]])"), std::string::npos);
    EXPECT_NE(written.find(R"("warnings":["\u003c/script>"])"), std::string::npos);
}

}  // namespace
