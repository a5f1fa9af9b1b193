#include "tests/twin/widgetPerson.h"

#define QTEST_QPA_MOUSE_HANDLING  // events take the platform's way, past modal windows and hit tests
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <QStyleOptionSlider>
#include <QTabBar>
#include <QtTest/QTest>
#include <algorithm>
#include <set>
#include <stdexcept>

#include "forms/control.h"
#include "forms/keys.h"
#include "forms/lineBreaks.h"
#include "forms/refused.h"
#include "forms/windows.h"
#include "platform/text.h"
#include "qt/boxes.h"
#include "qt/mirror.h"
#include "qt/screenPicture.h"

namespace widgetPerson {

namespace {

void settle() { QCoreApplication::processEvents(); }

void clickTab(const Control& tabs, int page) {
    auto* bar = mirror::widgetOf(tabs)->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(page).center());
}

/// Turns to the control's page, by its tab.
void turnToPageOf(const Control& control) {
    for (const Control* at = &control; at != nullptr; at = at->parent) {
        if (at->page >= 0 && at->parent->value != at->page) clickTab(*at->parent, at->page);
    }
}

/// The mouse is over the widget and the keys go to it. What the records would refuse is tried all the same,
/// where there is something to be seen: nothing may come of it.
template <class Deed>
void onWidget(const Control& control, Deed deed) {
    const std::string reason = windows::refusal(control);
    QWidget* widget = mirror::widgetOf(control);
    if (widget == nullptr) throw std::logic_error("no widget for " + fullName(control));
    if (reason.empty()) {
        turnToPageOf(control);
        widget->window()->activateWindow();
        settle();
    }
    if (reason.empty() || widget->isVisible()) deed(widget);
    settle();
    if (!reason.empty()) throw Refused{reason};
}

void focus(QWidget* widget) {
    widget->setFocus(Qt::MouseFocusReason);
    settle();
}

/// The widget that takes the keys of a control, with the focus.
QWidget* keyTarget(QWidget* widget) {
    auto* combo = qobject_cast<QComboBox*>(widget);
    QWidget* target = combo != nullptr ? combo->lineEdit() : widget;
    focus(target);
    return target;
}

/// Where a person would press: beside what stands in a frame, on the mark of a box, on the selected line of a
/// list, else in the middle.
QPoint placeToPress(const Control& control, const QWidget& widget) {
    if (const auto* list = qobject_cast<const QListWidget*>(&widget)) {
        const QList<QListWidgetItem*> chosen = list->selectedItems();
        return chosen.isEmpty() ? list->viewport()->rect().bottomLeft() + QPoint(8, -8)
                                : list->visualItemRect(chosen.first()).center();
    }
    if (control.kind == Kind::Frame || control.kind == Kind::Form) return {3, 3};
    const bool marked = control.kind == Kind::TickBox || control.kind == Kind::OptionButton;
    return marked ? QPoint(10, widget.height() / 2) : widget.rect().center();
}

/// The widget that the mouse hits; none where a press would only move the cursor.
QWidget* underMouse(const Control& control, QWidget* widget) {
    if (auto* list = qobject_cast<QListWidget*>(widget)) {
        if (!list->selectedItems().isEmpty()) list->scrollToItem(list->selectedItems().first());
        return list->viewport();
    }
    return control.kind == Kind::TextBox || control.kind == Kind::ComboBox ? nullptr : widget;
}

void press(Control& control) {
    onWidget(control, [&](QWidget* widget) {
        const auto* list = qobject_cast<QListWidget*>(widget);
        QWidget* target = underMouse(control, widget);
        const bool onNothing = target == nullptr || (list != nullptr && list->selectedItems().isEmpty());
        if (onNothing) return focus(widget);
        QTest::mouseClick(target, Qt::LeftButton, {}, placeToPress(control, *widget));
    });
}

void doublePress(Control& control) {
    if (!control.on.doubleClick) return press(control);
    onWidget(control, [&](QWidget* widget) {
        QTest::mouseDClick(underMouse(control, widget), Qt::LeftButton, {}, placeToPress(control, *widget));
    });
}

void pressKey(QWidget* widget, const QString& character) {
    if (character == "\n") {
        QTest::keyClick(widget, Qt::Key_Return);
    } else if (character.size() == 1 && character[0].unicode() < 128) {
        QTest::keyClick(widget, character[0].toLatin1());
    } else {
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, character, Qt::NoModifier);
    }
}

void key(Control& control, int code) {
    onWidget(control, [&](QWidget* widget) {
        QWidget* target = keyTarget(widget);
        const auto character = static_cast<char32_t>(code);
        if (code == keys::backspace) {
            QTest::keyClick(target, Qt::Key_Backspace);
        } else {
            pressKey(target, code == keys::enter ? QString("\n") : QString::fromUcs4(&character, 1));
        }
    });
}

void type(Control& control, const std::string& wanted) {
    must::be(control, {Kind::TextBox, Kind::ComboBox}, "box to type in");
    onWidget(control, [&](QWidget* widget) {
        QWidget* target = keyTarget(widget);
        QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
        if (wanted.empty()) QTest::keyClick(target, Qt::Key_Delete);
        for (int i = 0; i < text::length(wanted) && windows::refusal(control).empty(); ++i) {
            pressKey(target, QString::fromStdString(text::mid(wanted, i, 1)));
        }
    });
}

void paste(Control& control, const std::string& wanted) {
    must::be(control, {Kind::TextBox, Kind::ComboBox}, "box to paste into");
    onWidget(control, [&](QWidget* widget) {
        QWidget* target = keyTarget(widget);
        // What takes no paste keeps what is selected in it.
        if (!control.readOnly && !control.typedOnly) QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
        QApplication::clipboard()->setText(QString::fromStdString(wanted));
        if (wanted.empty()) QTest::keyClick(target, Qt::Key_Delete);
        QTest::keyClick(target, Qt::Key_V, Qt::ControlModifier);
    });
}

void pick(Control& control, const std::vector<int>& lines) {
    must::be(control, {Kind::ListBox}, "list");
    onWidget(control, [&](QWidget* widget) {
        auto* list = qobject_cast<QListWidget*>(widget);
        focus(list);
        if (windows::refusal(control).empty()) must::haveLines(control, lines);
        if (lines.empty()) list->clearSelection();
        Qt::KeyboardModifiers modifiers;
        for (const int line : std::set(lines.begin(), lines.end())) {
            if (line < 0 || line >= list->count()) continue;
            list->scrollToItem(list->item(line));
            QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers,
                              list->visualItemRect(list->item(line)).center());
            modifiers = Qt::ControlModifier;
        }
    });
}

/// Opens the list of a combo box, goes down to the line and takes it.
void chooseInCombo(QComboBox& combo, int index) {
    QTest::keyClick(&combo, Qt::Key_F4);
    if (!combo.view()->isVisible()) return;
    QTest::keyClick(combo.view(), Qt::Key_Home);
    for (int i = 0; i < index; ++i) QTest::keyClick(combo.view(), Qt::Key_Down);
    QTest::keyClick(combo.view(), Qt::Key_Return);
}

void choose(Control& control, const std::string& item) {
    must::be(control, {Kind::ComboBox, Kind::ListBox}, "list");
    if (control.kind == Kind::ListBox) {
        must::takeInput(control);
        return pick(control, {must::findItem(control, item)});
    }
    onWidget(control, [&](QWidget* widget) {
        focus(widget);
        const bool able = windows::refusal(control).empty();
        chooseInCombo(*qobject_cast<QComboBox*>(widget), able ? must::findItem(control, item) : 0);
    });
}

/// Drags the handle to where the value is, in one move.
void drag(QScrollBar& slider, int value) {
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.state |= QStyle::State_Horizontal;
    option.minimum = slider.minimum();
    option.maximum = slider.maximum();
    option.sliderPosition = option.sliderValue = slider.value();
    option.pageStep = slider.pageStep();
    const auto part = [&](QStyle::SubControl which) {
        return slider.style()->subControlRect(QStyle::CC_ScrollBar, &option, which, &slider);
    };
    const QRect handle = part(QStyle::SC_ScrollBarSlider);
    const QRect groove = part(QStyle::SC_ScrollBarGroove);
    const int span = groove.width() - handle.width();
    int place = 0;
    while (place < span &&
           QStyle::sliderValueFromPosition(option.minimum, option.maximum, place, span) < value)
        ++place;
    const QPoint from = handle.center();
    QTest::mousePress(&slider, Qt::LeftButton, {}, from);
    QTest::mouseMove(&slider, QPoint(groove.x() + place + from.x() - handle.x(), from.y()));
    QTest::mouseRelease(&slider, Qt::LeftButton, {},
                        QPoint(groove.x() + place + from.x() - handle.x(), from.y()));
}

void slide(Control& control, int value) {
    must::be(control, {Kind::ScrollBar}, "scroll bar");
    onWidget(control, [&](QWidget* widget) {
        focus(widget);
        if (windows::refusal(control).empty()) must::haveValue(control, value);
        drag(*qobject_cast<QScrollBar*>(widget), value);
    });
}

void tick(Control& control, bool on) {
    must::be(control, {Kind::TickBox, Kind::OptionButton}, "box to tick");
    onWidget(control, [&](QWidget* widget) {
        focus(widget);
        if (windows::refusal(control).empty()) must::takeTick(control, on);
        if ((control.value != 0) == on) return;
        QTest::mouseClick(widget, Qt::LeftButton, {}, placeToPress(control, *widget));
    });
}

void mark(Control& control, int start, int length) {
    must::be(control, {Kind::TextBox}, "text box");
    onWidget(control, [&](QWidget* widget) {
        QWidget* target = keyTarget(widget);
        const int whole = text::length(control.text);
        const int from = std::clamp(start, 0, whole);
        const int to = from + std::clamp(length, 0, whole - from);
        const int seenFrom = lineBreaks::seenPosition(control.text, from);
        const int seenTo = lineBreaks::seenPosition(control.text, to);
        QTest::keyClick(target, Qt::Key_Home,
                        control.multiLine ? Qt::ControlModifier : Qt::KeyboardModifiers());
        for (int i = 0; i < seenFrom; ++i) QTest::keyClick(target, Qt::Key_Right);
        for (int i = seenFrom; i < seenTo; ++i) QTest::keyClick(target, Qt::Key_Right, Qt::ShiftModifier);
    });
}

void turnTo(Control& control, int page) {
    must::be(control, {Kind::TabControl}, "tab control");
    onWidget(control, [&](QWidget* widget) {
        focus(widget);
        if (windows::refusal(control).empty()) must::havePage(control, page);
        clickTab(control, page);
    });
}

void close(Control& form) {
    must::be(form, {Kind::Form}, "form");
    QWidget* window = mirror::widgetOf(form);
    try {
        must::close(form);
    } catch (const Refused&) {
        if (window->isVisible()) window->close();  // nothing may come of it
        throw;
    }
    window->close();
    settle();
}

void answer(Answer wanted) {
    const QMessageBox* box = boxes::newest();
    const QMessageBox::StandardButton button = wanted == Answer::Yes  ? QMessageBox::Yes
                                               : wanted == Answer::No ? QMessageBox::No
                                                                      : QMessageBox::Ok;
    QTest::mouseClick(box->button(button), Qt::LeftButton);
    settle();
}

}  // namespace

ActingPerson make() {
    return {.press = press,
            .doublePress = doublePress,
            .key = key,
            .type = type,
            .paste = paste,
            .choose = choose,
            .pick = pick,
            .slide = slide,
            .tick = tick,
            .mark = mark,
            .turnTo = turnTo,
            .close = close,
            .answer = answer,
            .picture = screenPicture::write};
}

}  // namespace widgetPerson
