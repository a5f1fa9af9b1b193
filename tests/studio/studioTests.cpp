// The study window as a person uses it: by the keyboard alone, by what is spoken of it, in its grids, and up
// to the store.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableWidget>
#include <QtTest/QTest>
#include <set>

#include "platform/files.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"
#include "tests/studio/studioDesk.h"

namespace {

using studioDesk::named;

std::string cell(const char* table, int row, const char* column) {
    return book::textAt(workspace::book(), {table, row, column});
}

/// Name and role, as they are spoken.
std::string spoken(QWidget* widget) {
    QAccessibleInterface& said = *QAccessible::queryAccessibleInterface(widget);
    const QString name = said.text(QAccessible::Name);
    return name.isEmpty() ? std::string() : fmt::format("{} ({})", name.toStdString(), int(said.role()));
}

/// What the Tab key has to reach.
std::set<std::string> focusable(const std::string& page) {
    std::set<std::string> names;
    for (QWidget* widget : studioDesk::lay().findChildren<QWidget*>()) {
        const bool reached = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
        if (!reached || !widget->isVisible() || !widget->isEnabled()) continue;
        const std::string name = spoken(widget);
        EXPECT_FALSE(name.empty()) << widget->metaObject()->className() << " on " << page;
        EXPECT_TRUE(names.insert(name).second) << "twice on " << page << ": " << name;
    }
    return names;
}

std::set<std::string> tabbed(std::size_t most) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < most; ++i) {
        QWidget* const at = QApplication::focusWidget();
        if (at == nullptr) break;
        names.insert(spoken(at));
        QTest::keyClick(at, Qt::Key_Tab);
    }
    return names;
}

TEST(Studio, TheKeyboardReachesAndLeavesWhateverTakesTheFocusAndEachHasANameOfItsOwn) {
    const studioDesk::OwnStudy study;
    studioDesk::open(study);
    for (const auto& [entry, tab] : std::vector<std::pair<QString, QString>>{{"Plain", "Options"},
                                                                             {"Plain", "Model"},
                                                                             {"Plain", "On screen"},
                                                                             {"Patients", {}},
                                                                             {"Words", {}},
                                                                             {"slow", {}},
                                                                             {"Results", {}}}) {
        studioDesk::go(entry, tab);
        studioDesk::tree().setFocus();
        const std::string page = (entry + " " + tab).toStdString();
        const std::set<std::string> wanted = focusable(page);
        EXPECT_EQ(tabbed(wanted.size()), wanted) << page;
        EXPECT_EQ(QApplication::focusWidget(), &studioDesk::tree()) << page;
    }
}

TEST(Studio, AHeldReturnPressesAButtonOnce) {
    const studioDesk::OwnStudy study;
    studioDesk::open(study);
    studioDesk::go("Patients");
    auto* const copy = named<QPushButton>("Copy: patients");
    ASSERT_NE(copy, nullptr);
    const auto people = [] { return book::sheetOf(workspace::book(), "tblPatients").size(); };
    const int before = people();
    copy->setFocus();
    for (const bool repeated : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", repeated);
        QCoreApplication::sendEvent(copy, &press);
    }
    EXPECT_EQ(people(), before + 1);
}

TEST(Studio, ASmallWindowIsScrolledDownAndNotSideways) {
    const studioDesk::OwnStudy study;
    studioDesk::open(study);
    workspace::change("Many scenarios", [](book::Book& book) {
        for (int i = 0; i < 40; ++i)
            bookScenarios::copy(book, "Plain", fmt::format("{} {}", i, std::string(200, 'n')));
    });
    const QSize usual = studioDesk::lay().size();
    for (const auto& [width, lanes] : {std::pair(880, 1), std::pair(1200, 3)}) {
        studioDesk::lay().resize(width, 600);
        for (const auto& [entry, tab] :
             {std::pair("Plain", "Options"), std::pair("Plain", "Model"),
              std::pair("Plain", "What it will be like"), std::pair("Patients", ""), std::pair("Words", ""),
              std::pair("slow", ""), std::pair("Results", "")}) {
            studioDesk::go(entry, tab);
            QCoreApplication::processEvents();
            for (const QScrollArea* area : studioDesk::lay().findChildren<QScrollArea*>()) {
                const int hidden = area->isVisible() ? area->horizontalScrollBar()->maximum() : 0;
                EXPECT_EQ(hidden, 0) << entry << tab << width;
            }
        }
        studioDesk::go(QString("0 ") + QString(200, 'n'), "Options");
        std::set<int> lefts;
        for (const QGroupBox* group : studioDesk::lay().findChildren<QGroupBox*>()) {
            if (group->isVisible()) lefts.insert(group->mapToGlobal(QPoint()).x());
        }
        EXPECT_EQ(lefts.size(), lanes) << width;
    }
    const QSize least = studioDesk::lay().minimumSizeHint();
    EXPECT_TRUE(least.width() <= 880 && least.height() <= 500) << least.width() << "x" << least.height();
    // A field that tells of a problem asks for no other room: what stands around it would be cut.
    auto* const rate = named<QLineEdit>("Simulation Hours per Minute");
    const int height = rate->sizeHint().height();
    rate->setFocus();
    QTest::keyClick(rate, Qt::Key_X);
    EXPECT_EQ(rate->sizeHint().height(), height);
    studioDesk::lay().resize(usual);
}

TEST(Studio, WhatIsTypedIsSavedAndNothingElse) {
    const studioDesk::OwnStudy study;
    studioDesk::open(study);
    const std::string before = files::read(study.storePath());
    const book::Book opened = studioDesk::bookNow();
    studioDesk::go("Plain", "Options");
    auto* const score = named<QLineEdit>("Initial Score");
    ASSERT_NE(score, nullptr);
    score->setFocus();
    QTest::keyClick(score, Qt::Key_Backspace);
    QTest::keyClick(score, Qt::Key_0);
    EXPECT_FALSE(studioDesk::lay().isWindowModified()) << "it is what it was";
    EXPECT_TRUE(workspace::save(false).problems.empty());
    EXPECT_EQ(files::read(study.storePath()), before);

    QTest::keyClick(score, Qt::Key_5);
    EXPECT_EQ(files::read(study.storePath()), before);
    QTest::keyClick(score, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(study.rows("SELECT InitScore FROM tblAppDefault"), "2000/20005");
    for (const auto& [name, sheet] : book::open(study.storePath()).sheets)
        EXPECT_EQ(book::sameTable(*sheet, book::sheetOf(opened, name)), name != "tblAppDefault") << name;
    QTest::keyClick(score, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(score->text(), "2000");
    EXPECT_TRUE(studioDesk::lay().isWindowModified()) << "the store has another score now";
    QTest::keyClick(score, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_FALSE(studioDesk::lay().isWindowModified());
    auto* const rate = named<QLineEdit>("Simulation Hours per Minute");
    rate->setFocus();
    QTest::keyClick(rate, Qt::Key_X);
    EXPECT_EQ(cell("tblAppDefault", 1, "SimRate"), "4") << "no number";
    EXPECT_EQ(rate->text(), "4x");
    score->setFocus();
    EXPECT_EQ(rate->text(), "4");
}

TEST(Studio, TablesThatWereChangedElsewhereAreReplacedOnlyWhenOneSaysSo) {
    const studioDesk::OwnStudy study;
    studioDesk::open(study);
    workspace::change("a score", [](book::Book& book) {
        book::set(book, {"tblAppDefault", 1, "InitScore"}, std::string("7"));
    });
    study.change("UPDATE tblAppDefault SET InitScore = '8'");
    EXPECT_TRUE(workspace::save(false).elsewhere);
    EXPECT_EQ(study.rows("SELECT DISTINCT InitScore FROM tblAppDefault"), "8");
    workspace::takeAsSaved();
    EXPECT_TRUE(workspace::save(false).problems.empty());
    EXPECT_EQ(study.rows("SELECT InitScore FROM tblAppDefault WHERE InitScore = '7'"), "7");
}

TEST(Studio, AFindingLeadsToItsCellAndItsRemedyMendsIt) {
    const studioDesk::OwnStudy study;
    study.change("UPDATE tblBaseRates SET D2 = 29 WHERE Setting = 'Four'");
    study.change("UPDATE tblTests SET Length = -5 WHERE SETTING = 'slow'");
    studioDesk::open(study);
    studioDesk::go("Patients");
    auto* const findings = named<QTreeWidget>("Findings");
    const auto open = [&](const char* where) {
        const auto found = findings->findItems(where, Qt::MatchStartsWith, 1);
        ASSERT_EQ(found.size(), 1) << where;
        emit findings->itemActivated(found.front(), 0);
    };
    open("slow: length 1, Length");
    auto* const lengths = dynamic_cast<QTableWidget*>(QApplication::focusWidget());
    ASSERT_NE(lengths, nullptr);
    EXPECT_EQ(lengths->currentItem()->text(), "-5");
    open("Four: base rates");
    EXPECT_EQ(studioDesk::tree().currentItem()->text(0), "Four");
    EXPECT_EQ(QApplication::focusWidget(), named<QTableWidget>("Base rates"));
    for (QPushButton* remedy : findings->findChildren<QPushButton*>()) remedy->click();
    QCoreApplication::processEvents();
    EXPECT_TRUE(findings->findItems("Four: base rates", Qt::MatchStartsWith, 1).isEmpty());
    EXPECT_EQ(cell("tblBaseRates", 0, "D1"), "41");
}

TEST(Studio, ABlockGoesThroughTheClipboardAndOneThatIsTooWideChangesNothing) {
    const studioDesk::OwnStudy study;
    studioDesk::open(study);
    studioDesk::go("Plain", "Model");
    auto* const chances = named<QTableWidget>("Chances of symptoms");
    ASSERT_NE(chances, nullptr);
    const book::Book opened = studioDesk::bookNow();
    const auto at = [&](int row, int column) { return chances->item(row, column)->text(); };
    const QString block = at(0, 0) + "\t" + at(0, 1) + "\n" + at(1, 0) + "\t" + at(1, 1) + "\n";
    chances->setFocus();
    chances->setRangeSelected({0, 0, 1, 1}, true);
    QTest::keyClick(chances, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), block);
    chances->setCurrentCell(2, 1);
    QTest::keyClick(chances, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(at(2, 1) + "\t" + at(2, 2) + "\n" + at(3, 1) + "\t" + at(3, 2) + "\n", block);
    QTest::keyClick(chances, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(book::same(workspace::book(), opened));
    QApplication::clipboard()->setText("1\t2\tyes\t4\n");
    QTest::keyClick(chances, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(book::same(workspace::book(), opened));
    const auto said = studioDesk::lay().statusBar()->findChild<QLabel*>()->text();
    EXPECT_TRUE(said.startsWith("Nothing was pasted: the block is wider")) << said.toStdString();
}

TEST(Studio, TabFromTheLastNumberOfARowGoesPastItsTickToTheNextRow) {
    const studioDesk::OwnStudy study;
    studioDesk::open(study);
    studioDesk::go("Plain", "Model");
    auto* const chances = named<QTableWidget>("Chances of symptoms");
    chances->setFocus();
    chances->setCurrentCell(0, chances->columnCount() - 2);
    for (const char* typed : {"7", "9"}) {
        QTest::keyClicks(QApplication::focusWidget(), typed);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(chances->item(1, 0)->text(), "9");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(chances->currentColumn(), chances->columnCount() - 2);
}

}  // namespace
