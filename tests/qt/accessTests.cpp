// What people who do not see the screen, or do not use the mouse, are given: names, roles, the order of the
// Tab key, a focus that shows, and colours that can be told from each other.
#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QCryptographicHash>
#include <QLabel>
#include <QPaintEvent>
#include <QPlainTextEdit>
#include <QScreen>
#include <cmath>
#include <fstream>
#include <sstream>
#include <vector>

#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "qt/boxes.h"
#include "qt/longWords.h"
#include "qt/look.h"
#include "qt/mirror.h"
#include "state/TrialState.h"
#include "tests/qt/desk.h"
#include "trial/course/modHealth.h"

namespace {

struct Access : testing::Test {
    Access() { desk::lay(); }
    ~Access() override { registry::designForms(); }
};

QAccessibleInterface& spoken(const Control& control) {
    return *QAccessible::queryAccessibleInterface(mirror::widgetOf(control));
}

std::string nameOf(const Control& control) { return spoken(control).text(QAccessible::Name).toStdString(); }

std::string allThatIsSpoken() {
    std::ostringstream out;
    for (const Control* control : allControls()) {
        if (control->kind == Kind::Timer) continue;
        out << fullName(*control) << ' ' << spoken(*control).role() << " \"" << nameOf(*control) << "\" "
            << spoken(*control).text(QAccessible::Description).toStdString() << '\n';
    }
    return out.str();
}

TEST_F(Access, WhatAScreenReaderIsToldIsWhatWasReviewed) {
    const std::string told = allThatIsSpoken();
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(told), QCryptographicHash::Md5).toHex();
    if (hash == "b9866c6ec78a7e7860e5f7c8c9e0ba7b") return;
    std::ofstream("spoken.txt") << told;
    ADD_FAILURE() << hash.toStdString() << ": names, roles or captions have changed. Read spoken.txt in the "
                  << "folder of this run; if it is right, this is the hash.";
}

TEST_F(Access, NamesFollowTheCaptionsAndOptionButtonsTellTheirState) {
    for (const Control* form : desk::workForms()) {
        for (QWidget* widget : desk::tabOrder(*form))
            EXPECT_NE(nameOf(*mirror::controlOf(widget)), "") << fullName(*mirror::controlOf(widget));
    }
    setCaption(frmTavix.lblScore, "1234");
    EXPECT_EQ(nameOf(frmTavix.lblScore), "Score: 1234");
    setCaption(frmTavix.lblTestResult[1], "Present");
    EXPECT_EQ(nameOf(frmTavix.lblTestResult[1]), "Result of test 2: Present");
    setCaption(frmTavix.lblYourHeal, "0.80");
    EXPECT_EQ(nameOf(frmTavix.lblYourHeal), "p(Treatment will Heal), Your Diagnosis: 0.80");
    Control& test = frmTavix.optTest[2];
    setCaption(test, "Pallor");
    EXPECT_EQ(nameOf(test), "Pallor");
    EXPECT_EQ(spoken(test).role(), QAccessible::RadioButton);
    desk::showWhole(frmTavix.form);
    for (const bool chosen : {false, true}) {
        EXPECT_EQ(spoken(test).state().checked != 0, chosen);
        spoken(test).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    EXPECT_EQ(test.value, 1);
    registry::designForms();
    EXPECT_EQ(nameOf(test), "Test 3");
}

TEST_F(Access, TheTabKeyFollowsTheReadingOrderAndShowsWhereItIs) {
    for (Control* form : desk::workForms()) {
        desk::showWhole(*form);
        QWidget* window = mirror::widgetOf(*form);
        const QWidget* before = nullptr;
        for (QWidget* widget : desk::tabOrder(*form)) {
            const Control& control = *mirror::controlOf(widget);
            for (const Control* at = &control; at != nullptr; at = at->parent)
                if (at->page >= 0) setValue(*at->parent, at->page);
            if (before != nullptr && before->isVisible()) {
                const QPoint start = before->mapTo(window, QPoint());
                const QPoint end = widget->mapTo(window, QPoint(widget->width(), widget->height()));
                EXPECT_FALSE(end.x() <= start.x() && end.y() <= start.y()) << fullName(control);
            }
            before = widget;
            if (!widget->isVisible() || !widget->isEnabled()) continue;
            widget->clearFocus();
            const QImage without = widget->grab().toImage();
            widget->setFocus(Qt::TabFocusReason);
            QCoreApplication::processEvents();
            ASSERT_EQ(mirror::controlOf(window->focusWidget()), &control) << fullName(control);
            EXPECT_NE(without, widget->grab().toImage()) << fullName(control);
        }
    }
}

double linear(double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// Ratio of the lightness of two colours, 1 to 21, as the guidelines for access count it.
double contrast(const QColor& a, const QColor& b) {
    const double one = luminance(a) + 0.05;
    const double other = luminance(b) + 0.05;
    return std::max(one / other, other / one);
}

TEST_F(Access, TextsStandOutFromTheirGround) {
    desk::showWhole(frmDiagnosis.form);
    EXPECT_EQ(mirror::widgetOf(frmDiagnosis.lblError)->palette().color(QPalette::WindowText),
              look::colours().alarm);
    constexpr double forText = 4.5;
    for (const bool dark : {true, false}) {
        look::apply(dark);
        const look::Colours& c = look::colours();
        for (const QColor& ground : {c.window, c.card, c.field}) {
            for (const QColor& ink : {c.text, c.faint, c.accent, c.alarm, c.disabledText}) {
                EXPECT_GE(contrast(ink, ground), forText)
                    << ink.name().toStdString() << " on " << ground.name().toStdString();
            }
        }
        EXPECT_GE(contrast(c.onAccent, c.accent), forText);
        EXPECT_GE(contrast(c.text, c.hover), forText);
    }
}

QImage onScreen() {
    QCoreApplication::processEvents();
    const QWidget& window = *mirror::widgetOf(frmTavix.form);
    return window.screen()->grabWindow(window.winId()).toImage();
}

/// Pixels of the widget that are painted, as long as it stands.
struct Painted : QObject {
    int pixels = 0;
    explicit Painted(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject* /*widget*/, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        for (const QRect& area : static_cast<QPaintEvent*>(event)->region())
            pixels += area.width() * area.height();
        return false;
    }
};

TEST_F(Access, AStepOfTheTracePaintsOnlyItselfAndTheFormerPatientsGoes) {
    desk::showWhole(frmTavix.form);
    trialState.trialMinutes = 200;
    trialState.patients.add({});
    modHealth::initHealthMonitor();
    trialState.monitorSegments = 150;  // the last one is reused for the last fifty steps
    const QImage empty = onScreen();
    QWidget& panel = *mirror::widgetOf(frmTavix.lblHealthScreen);
    const Painted painted(panel);
    for (; trialState.elapsedMinutes < 200; ++trialState.elapsedMinutes) {
        trialState.health = (trialState.elapsedMinutes * 37) % 900;
        modHealth::plotHealth();
        QCoreApplication::processEvents();
    }
    EXPECT_LT(painted.pixels, 200 * panel.width() * panel.height() / 15);
    const QImage stepByStep = onScreen();
    EXPECT_NE(stepByStep, empty);
    mirror::widgetOf(frmTavix.form)->update();
    EXPECT_EQ(stepByStep, onScreen());
    modHealth::resetHealth();
    EXPECT_EQ(onScreen(), empty);
}

TEST_F(Access, TextsAreShownAsTheyAre) {
    const auto widthOf = [](const char* text) {
        QMessageBox& box = *boxes::open({text, {}, Buttons::Ok, Icon::None}, [](Answer) {});
        const int width = box.findChild<QLabel*>("qt_msgbox_label")->sizeHint().width();
        box.close();
        return width;
    };
    EXPECT_GT(widthOf("<b></b>a note"), widthOf("a note"));
    // Long words are set smaller where a label's place is fixed, and cut where it says so.
    const auto sizeWith = [](Control& label, const std::string& caption) {
        setCaption(label, caption);
        return mirror::widgetOf(label)->font().pixelSize();
    };
    const std::string length(300, 'm');
    EXPECT_LT(sizeWith(frmTavix.lblPatientName, length), sizeWith(frmTavix.lblPatientName, "m"));
    EXPECT_EQ(sizeWith(frmTavix.lblHelpHeader, length), sizeWith(frmTavix.lblHelpHeader, "m"));
    // A word of many thousands is broken anywhere: the toolkit would look for a blank for minutes.
    const auto wrapsWords = [](const std::string& text) {
        setText(frmTavix.txtIntro, text);
        const auto* area = qobject_cast<QPlainTextEdit*>(mirror::widgetOf(frmTavix.txtIntro));
        return area->wordWrapMode() == QTextOption::WrapAtWordBoundaryOrAnywhere;
    };
    EXPECT_FALSE(wrapsWords("no " + std::string(9000, 'm')));
    std::string words;
    for (int i = 0; i < 3000; ++i) words += "words ";
    EXPECT_TRUE(wrapsWords(words));
    QPlainTextEdit edit("two\nlines");
    longWords::watch(edit);
    std::vector<QTextOption::WrapMode> modes;
    QObject::connect(edit.document()->documentLayout(), &QAbstractTextDocumentLayout::update,
                     [&] { modes.push_back(edit.wordWrapMode()); });
    edit.selectAll();
    QApplication::clipboard()->setText(QString(9000, 'm'));
    edit.paste();
    ASSERT_FALSE(modes.empty());
    EXPECT_EQ(modes.front(), QTextOption::WrapAnywhere) << "it was laid out as one word before";
}

}  // namespace
