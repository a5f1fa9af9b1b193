// A study in memory: what a change reaches, what comes back, what is saved and when not, and that each remedy
// mends its finding.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files.h"
#include "study/bookDraft.h"
#include "study/bookHistory.h"
#include "study/bookScenarios.h"
#include "study/bookStore.h"
#include "study/check.h"
#include "study/remedies.h"
#include "tests/temporaryStudy.h"

namespace {

namespace fs = std::filesystem;
using book::Book;

std::string row(const Book& book, const char* table, int at) {
    std::string all;
    for (const std::string& column : book::sheetOf(book, table).content.columns)
        all += (all.empty() ? "" : ",") + book::textAt(book, {table, at, column});
    return all;
}

std::vector<check::Finding> findings(const Book& book, const TemporaryStudy& study) {
    return check::look(book::studyOf(book, study.folder));
}

TEST(StudyBook, ScenariosAndDiseasesChangeEverywhereAtOnce) {
    const TemporaryStudy study;
    const Book opened = book::open(study.storePath());
    Book book = opened;
    bookScenarios::copy(book, "plain", "Other");
    bookScenarios::rename(book, "Other", "Zeta");
    EXPECT_EQ(bookScenarios::namesOf(book).back(), "Zeta");
    const auto diseases = bookScenarios::partsOf(book, "zeta").diseases;
    ASSERT_TRUE(bookScenarios::addDisease(book, "Zeta"));
    ASSERT_TRUE(bookScenarios::removeDisease(book, "Zeta", 0));
    const bookScenarios::Parts parts = bookScenarios::partsOf(book, "Zeta");
    EXPECT_EQ(parts.diseases, diseases);
    for (const auto& [table, at] :
         {std::pair("tblBaseRates", *parts.rates), std::pair("tblDiseaseSymptom", parts.symptoms.front())}) {
        EXPECT_EQ(book::textAt(book, {table, at, "D" + std::to_string(diseases)}), "0")
            << row(book, table, at);
        EXPECT_EQ(book::textAt(book, {table, at, "D" + std::to_string(diseases + 1)}), "");
    }
    bookScenarios::remove(book, "ZETA");
    for (const char* table : {"tblAppDefault", "tblTreatments", "tblDiseaseSymptom"})
        EXPECT_EQ(book::sheetOf(book, table).content.rows, book::sheetOf(opened, table).content.rows);

    Book fresh = book::fresh();
    bookScenarios::add(fresh, "Mine");
    bookScenarios::addDisease(fresh, "Mine");
    EXPECT_EQ(row(fresh, "tblBaseRates", 0), "Mine,3,50,50,0,");
    EXPECT_EQ(book::sheetOf(fresh, "tblVocabulary").size(), 4);
}

TEST(StudyBook, WhatIsUndoneComesBackValueForValue) {
    const TemporaryStudy study;
    bookHistory::History history = bookHistory::begin(book::open(study.storePath()));
    for (const char* text : {"11", "12", "13"}) {
        Book next = history.now;
        ASSERT_EQ(book::put(next, {"tblAppDefault", 0, "Time"}, text), "");
        bookHistory::take(history, next, "Time", "time");
    }
    Book next = history.now;
    EXPECT_EQ(book::put(next, {"tblAppDefault", 0, "Time"}, "soon"), "is no number");
    EXPECT_FALSE(bookHistory::take(history, next, "Time"));
    EXPECT_TRUE(bookHistory::undo(history));
    EXPECT_FALSE(bookHistory::isChanged(history));
    EXPECT_FALSE(bookHistory::undo(history));
    EXPECT_TRUE(bookHistory::redo(history));
    EXPECT_EQ(book::textAt(history.now, {"tblAppDefault", 0, "Time"}), "13");
}

TEST(StudyBook, SavesWhatChangedAndNothingElse) {
    const TemporaryStudy study;
    fs::remove(study.folder + "/Patients");  // a link to the tests' own
    study.change("ALTER TABLE tblTests ADD COLUMN Mine");
    study.change("UPDATE tblTests SET Mine = 7, Length = 2.5");
    const Book opened = book::open(study.storePath());
    const bookStore::Target target{study.storePath(), study.folder};
    const std::string before = files::read(study.storePath());
    EXPECT_TRUE(bookStore::save(target, opened, opened, {}).problems.empty());
    EXPECT_EQ(files::read(study.storePath()), before);

    Book now = opened;
    book::copyRow(now, "tblTests", 0);
    const std::string draft = study.folder + "/draft";
    now.files["new.txt"] = bookDraft::putAside(draft, "new.txt", "tired");
    bookDraft::keep(draft, {study.storePath(), opened, now});
    const auto kept = bookDraft::find(draft);
    ASSERT_TRUE(kept && book::same(kept->now, now) && book::same(kept->opened, opened));

    study.change(
        "INSERT INTO SubjectInfo (Subject, Date, Time) VALUES ('kim', date('now', 'localtime'), "
        "time('now', 'localtime'))");
    EXPECT_NE(bookStore::save(target, opened, now, {}).problems.front().find("kim"), std::string::npos);
    EXPECT_FALSE(fs::exists(study.folder + "/Patients/new.txt"));
    study.change("DELETE FROM SubjectInfo");
    EXPECT_EQ(bookStore::save(target, opened, now, {}).problems, std::vector<std::string>());
    EXPECT_TRUE(book::sameTable(book::sheetOf(book::open(study.storePath()), "tblTests"),
                                book::sheetOf(now, "tblTests")));
    EXPECT_EQ(files::read(study.folder + "/Patients/new.txt"), "tired");
    book::copyRow(now, "tblTests", 0);
    EXPECT_EQ(bookStore::save(target, opened, now, {}).problems.size(), 1U) << "the store has changed since";
}

TEST(StudyBook, EachRemedyMendsItsFinding) {
    const TemporaryStudy study;
    const Book sound = book::open(study.storePath());
    int mended = 0;
    for (const auto& harm : std::vector<std::function<void(Book&)>>{
             [](Book& b) { book::removeRow(b, "tblBaseRates", 0); },
             [](Book& b) {
                 book::put(b, {"tblBaseRates", 0, "D1"}, "59");
             },
             [](Book& b) {
                 book::put(b, {"tblDiseaseSymptom", 0, "Count"}, "1");
             },
             [](Book& b) {
                 book::put(b, {"tblTreatments", 0, "Setting"}, "nobody");
             },
             [](Book& b) { book::removeRow(b, "tblVocabulary", 0), book::removeRow(b, "tblVocabulary", 0); },
             [](Book& b) {
                 book::set(b, {"tblVocabulary", 0, "Term"}, std::string(" blanks "));
             },
             [](Book& b) {
                 book::put(b, {"tblAppDefault", 0, "TestLengthSetting"}, "other");
             },
             [](Book& b) {
                 book::put(b, {"tblAppDefault", 0, "FeedbackDiseaseP"}, "no");
             }}) {
        Book book = sound;
        harm(book);
        for (const check::Finding& finding : findings(book, study)) {
            const auto remedy = remedies::of(book, finding);
            if (!remedy) continue;
            ++mended;
            remedy->mend(book);
            for (const check::Finding& left : findings(book, study))
                EXPECT_NE(check::lineOf(left), check::lineOf(finding));
            break;
        }
    }
    EXPECT_EQ(mended, 8);
}

}  // namespace
