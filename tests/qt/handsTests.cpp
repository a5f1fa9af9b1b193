// What hands do that are not meant: keys that are held down, letters that meet a box, clicks while the store
// is waited for.
#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <QWindow>
#include <QtTest/QTest>

#include "forms/frmDiagnosis.h"
#include "forms/frmNewSubject.h"
#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "forms/windows.h"
#include "qt/boxes.h"
#include "qt/heldInput.h"
#include "qt/mirror.h"
#include "tests/qt/desk.h"

namespace {

struct Hands : testing::Test {
    int pressed = 0;
    Hands() {
        desk::lay();
        desk::showWhole(frmTavix.form);
        frmTavix.cmdIssue.on.click = [this] { ++pressed; };
    }
    ~Hands() override {
        frmTavix.cmdIssue.on.click = nullptr;
        registry::designForms();
    }
};

QTabBar& tabs() { return *mirror::widgetOf(frmTavix.tabTavix)->findChild<QTabBar*>(); }

TEST_F(Hands, ThePagesTakeTheFocusAndNobodyHandsItOn) {
    const QWidget& window = *mirror::widgetOf(frmTavix.form);
    QTest::mouseClick(&tabs(), Qt::LeftButton, {}, tabs().tabRect(1).center());
    EXPECT_EQ(window.focusWidget(), &tabs());
    for (const bool byPage : {true, false}) {
        windows::setFocus(frmTavix.cmdIssue);
        EXPECT_EQ(window.focusWidget(), mirror::widgetOf(frmTavix.cmdIssue));
        byPage ? setValue(frmTavix.tabTavix, 2) : setEnabled(frmTavix.cmdIssue, false);
        EXPECT_EQ(window.focusWidget(), &tabs());
        setValue(frmTavix.tabTavix, 1);
    }
    windows::setFocus(frmTavix.txtIntro);
    EXPECT_EQ(window.focusWidget(), &tabs()) << "its page is not up";
    QTest::keyClick(&tabs(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&tabs(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(frmTavix.tabTavix.value, 2);
}

TEST_F(Hands, AKeyThatIsHeldDownPressesOnce) {
    for (const int key : {Qt::Key_Return, Qt::Key_Space}) {
        for (const bool again : {false, true, true}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_Space ? " " : "\r", again);
            QCoreApplication::sendEvent(mirror::widgetOf(frmTavix.cmdIssue), &press);
        }
    }
    EXPECT_EQ(pressed, 2);
}

TEST_F(Hands, OnlyItsButtonsAnswerAQuestion) {
    int answers = 0;
    const auto count = [&answers](Answer) { ++answers; };
    QMessageBox* question = boxes::open({"Well?", {}, Buttons::YesNo, Icon::None}, count);
    question->button(QMessageBox::Yes)->setText("&Yes");  // as some desktops have it
    QTest::keyClick(question, Qt::Key_Y);
    QTest::keyClick(question, Qt::Key_Escape);
    question->close();
    EXPECT_EQ(answers, 0);
    QTest::keyClick(question->button(QMessageBox::Yes), Qt::Key_Space);
    QTest::keyClick(boxes::open({"Well.", {}, Buttons::Ok, Icon::None}, count), Qt::Key_Escape);
    EXPECT_EQ(answers, 2);
}

TEST_F(Hands, ArrowsChooseInAGroupAndAnInputMethodKeepsTheLimit) {
    desk::showWhole(frmNewSubject.form);
    QWidget* female = mirror::widgetOf(frmNewSubject.optFemale);
    QTest::keyClick(female, Qt::Key_Down);
    EXPECT_EQ(frmNewSubject.optMale.value, 1);
    EXPECT_FALSE(female->focusPolicy() & Qt::TabFocus) << "the group is one stop";
    frmTavix.txtReasoning.on.key = [](int) { return frmTavix.txtReasoning.text.size() < 50; };
    QInputMethodEvent composed;
    composed.setCommitString(QString(60, 'm'));
    QCoreApplication::sendEvent(mirror::widgetOf(frmTavix.txtReasoning), &composed);
    EXPECT_EQ(frmTavix.txtReasoning.text.size(), 50U);
}

TEST_F(Hands, WhatIsPressedWhileTheStoreIsWaitedForComesAfterwards) {
    heldInput::enforce();
    setValue(frmTavix.tabTavix, 1);
    QWidget& button = *mirror::widgetOf(frmTavix.cmdIssue);
    QWidget& window = *button.window();
    QTimer::singleShot(0, &button, [&] {
        for (const QPoint at : {button.rect().center(), button.rect().bottomRight() + QPoint(0, 9)})
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button.mapTo(&window, at));
    });
    for (int i = 0; i < 9; ++i) heldInput::yield();
    EXPECT_EQ(pressed, 0);
    for (int i = 0; i < 9; ++i) QCoreApplication::processEvents();
    EXPECT_EQ(pressed, 1);
}

}  // namespace
