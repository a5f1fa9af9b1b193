// Simulated subjects: the rows of a run are the same however it is cut, and they come out as the tables say.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "platform/numberText.h"
#include "store/layer/schema.h"
#include "study/readStore.h"
#include "tests/temporaryStudy.h"

namespace {

const std::string bin = TAVIX_BIN;

struct Pilot {
    TemporaryStudy study;

    [[nodiscard]] std::string at(const std::string& name) const { return study.folder + "/" + name; }
    /// Runs it, and gives what it printed and its exit status.
    std::string run(const std::string& out, const std::string& options) const {
        return outputOf(bin + "/tavix-pilot --folder " + study.folder + " --out " + at(out) + " " + options +
                        " 2>&1; echo status $?");
    }
    [[nodiscard]] std::string merge(const std::string& options) const {
        return outputOf("cd " + study.folder + "; " + bin + "/tavixdb merge " + options +
                        " 2>&1; echo status $?");
    }
    [[nodiscard]] std::vector<std::vector<std::string>> select(const std::string& out,
                                                               const std::string& selection) const {
        const auto database = readStore::open(at(out));
        std::vector<std::vector<std::string>> all;
        for (const auto& row : readStore::select(*database, selection).rows) {
            all.emplace_back();
            for (const auto& value : row) all.back().push_back(readStore::textOf(value));
        }
        return all;
    }
    /// Every row of the results, and what tells of the subjects.
    [[nodiscard]] auto results(const std::string& out) const {
        std::vector<std::vector<std::string>> all = select(out, "SELECT * FROM pilotSubjects ORDER BY rowid");
        for (const schema::Table& table : schema::tables()) {
            if (table.kind != schema::Kind::Result) continue;
            std::ranges::move(select(out, "SELECT * FROM " + std::string(table.name) + " ORDER BY rowid"),
                              std::back_inserter(all));
        }
        return all;
    }
};

bool tells(const std::string& output, const std::string& text) {
    return output.find(text) != std::string::npos;
}

}  // namespace

TEST(Pilot, rowsAreTheSameHoweverTheRunIsCut) {
    const Pilot pilot;
    const std::string command = "--scenario all --subjects 11 --trials 3 --policy silent,random --seed 5 ";
    const std::string said = pilot.run("one", command);
    ASSERT_TRUE(tells(said, "44 of 44 subjects\n") && tells(said, "\nstatus 0")) << said;
    const auto whole = pilot.results("one");
    EXPECT_EQ(pilot.select("one", "SELECT count(*) FROM dataTrial"), (decltype(whole){{"132"}}));
    EXPECT_EQ(pilot.select("one", "SELECT min(Subject), max(Ended) FROM pilotSubjects"),
              (decltype(whole){{"random-1-00001p", "complete"}}));
    pilot.run("jobs", command + "--jobs 2");
    EXPECT_EQ(pilot.results("jobs"), whole);
    for (const std::string shard : {"1", "2", "3"})
        pilot.run(shard, fmt::format("{} --shard {}/3", command, shard));
    EXPECT_TRUE(tells(pilot.merge("1 2 3 --into union"), "status 0"));
    EXPECT_EQ(pilot.results("union"), whole);
    EXPECT_EQ(pilot.select("union", "SELECT count(*) FROM pilotRuns"), (decltype(whole){{"3"}}));
    EXPECT_TRUE(tells(pilot.run("one", command), "exists already"));
    EXPECT_TRUE(tells(pilot.run("one", command + "--limit 9 --resume"), "limit=60"));
    // A study's store takes them only when told to, and then says so itself.
    const std::string people = "one --into data/TavixData.mdb";
    EXPECT_TRUE(tells(pilot.merge(people), "holds simulated subjects"));
    EXPECT_TRUE(tells(pilot.merge(people + " --simulated-too"), "44 added, 0 there already\nstatus 0"));
    EXPECT_EQ(pilot.results("data/TavixData.mdb"), whole);
}

TEST(Pilot, brokenOffRunIsWholeAndGoesOn) {
    const Pilot pilot;
    const std::string command = "--scenario Four --subjects 150 --trials 4 --policy random --seed 6 ";
    pilot.run("whole", command);
    // Broken off as soon as its store is there.
    const std::string broken =
        outputOf(bin + "/tavix-pilot --folder " + pilot.study.folder + " --out " + pilot.at("broken") + " " +
                 command + "2>&1 & until [ -e " + pilot.at("broken") +
                 " ]; do sleep 0.01; done; sleep 0.05; kill -INT $!; wait $!; echo status $?");
    EXPECT_TRUE(tells(broken, "--resume goes on\nstatus 130")) << broken;
    EXPECT_TRUE(tells(pilot.run("broken", command + "--jobs 2 --resume"), "150 of 150"));
    EXPECT_EQ(pilot.results("broken"), pilot.results("whole"));
}

// The fixed seed makes each of these one number; the limits are those that chance passes once in a thousand.
TEST(Pilot, untreatedPatientsAreAsTheTablesSay) {
    const Pilot pilot;
    pilot.study.change("UPDATE tblAppDefault SET Time = 30");  // 120 simulated hours: nobody lives to see it
    pilot.study.change("UPDATE tblPatients SET Health = 75");
    pilot.run("out", "--scenario Four --subjects 2400 --trials 1 --policy silent --seed 1 --jobs 2");
    const auto rows =
        pilot.select("out",
                     "SELECT substr(SimTime, 1, 2) * 60 + substr(SimTime, 4) - 1, DiseaseOrder, "
                     "Disease, Result FROM dataTrial JOIN SubjectSettings USING (Subject)");
    ASSERT_EQ(rows.size(), 2400U);
    double minutes = 0;
    std::map<std::string, double> orders;
    std::map<std::size_t, double> diseases;  // by the place of the word in the order
    for (const auto& row : rows) {
        minutes += numberText::toNumber(row[0]);
        ++orders[row[1]];
        ++diseases[static_cast<std::size_t>(std::ranges::count(row[1].substr(0, row[1].find(row[2])), ','))];
        EXPECT_EQ(row[3], "Dead");
    }
    // Four steps of half a tenth a minute from 75.0; 62 ms and not 62.5 make them a little faster.
    EXPECT_NEAR(minutes / 2400, 372.5, 7.5);
    double uneven = 0;
    for (const auto& [order, count] : orders) uneven += (count - 100) * (count - 100) / 100;
    EXPECT_EQ(orders.size(), 24U);
    EXPECT_LT(uneven, 49.7);
    double unlike = 0;
    for (const std::size_t place : {0U, 1U, 2U, 3U}) {
        const double expected = 2400 * (0.4 - 0.1 * static_cast<double>(place));
        unlike += (diseases[place] - expected) * (diseases[place] - expected) / expected;
    }
    EXPECT_LT(unlike, 16.3);
}
