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
#include <QSlider>
#include <QTabBar>
#include <QtTest/QTest>

#include "forms/person.h"
#include "forms/windows.h"
#include "platform/text.h"
#include "qt/boxes.h"
#include "qt/faces.h"
#include "qt/mirror.h"
#include "tests/twin/screenPicture.h"

namespace widgetPerson {

namespace {

void settle() { QCoreApplication::processEvents(); }

template <class Widget>
Widget* as(Control& control, const char* what) {
    auto* widget = qobject_cast<Widget*>(mirror::widgetOf(control));
    if (widget == nullptr) throw Refused{fullName(control) + " is no " + what};
    return widget;
}

void clickTab(Control& tabs, int page) {
    auto* bar = mirror::widgetOf(tabs)->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(page).center());
}

/// Turns to the control's page, by its tab.
void turnToPageOf(const Control& control) {
    for (const Control* at = &control; at != nullptr; at = at->parent) {
        if (at->page >= 0 && at->parent->value != at->page) clickTab(*at->parent, at->page);
    }
}

QWidget* reach(Control& control) {
    const std::string reason = windows::refusal(control);
    if (!reason.empty()) throw Refused{reason};
    turnToPageOf(control);
    QWidget* widget = mirror::widgetOf(control);
    widget->window()->activateWindow();
    settle();
    return widget;
}

/// The widget that takes the keys of a control.
QWidget* keyTarget(Control& control) {
    QWidget* widget = reach(control);
    auto* combo = qobject_cast<QComboBox*>(widget);
    QWidget* target = combo != nullptr ? combo->lineEdit() : widget;
    target->setFocus(Qt::MouseFocusReason);
    settle();
    return target;
}

/// Where a person would press: on the mark of a box, on the selected line of a list, else in the middle.
void clickOn(Control& control, QWidget* widget) {
    if (auto* list = qobject_cast<QListWidget*>(widget)) {
        const QList<QListWidgetItem*> chosen = list->selectedItems();
        list->setFocus(Qt::MouseFocusReason);
        if (chosen.isEmpty()) return;
        list->scrollToItem(chosen.first());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(chosen.first()).center());
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        QTest::mouseClick(combo->lineEdit(), Qt::LeftButton);
    } else if (auto* area = qobject_cast<QPlainTextEdit*>(widget)) {
        area->setFocus(Qt::MouseFocusReason);
    } else {
        const bool marked = control.kind == Kind::TickBox || control.kind == Kind::OptionButton;
        QTest::mouseClick(widget, Qt::LeftButton, {}, marked ? QPoint(10, widget->height() / 2) : QPoint());
    }
    settle();
}

void press(Control& control) { clickOn(control, reach(control)); }

void doublePress(Control& control) {
    QWidget* widget = reach(control);
    clickOn(control, widget);
    QWidget* target = widget;
    QPoint at(10, widget->height() / 2);
    if (auto* list = qobject_cast<QListWidget*>(widget)) {
        target = list->viewport();
        at = list->selectedItems().isEmpty() ? target->rect().bottomLeft() + QPoint(8, -8)
                                             : list->visualItemRect(list->selectedItems().first()).center();
    }
    QTest::mouseDClick(target, Qt::LeftButton, {}, at);
    settle();
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
    constexpr int backspace = 8;
    constexpr int enter = 13;
    QWidget* target = keyTarget(control);
    if (code == backspace) {
        QTest::keyClick(target, Qt::Key_Backspace);
    } else {
        const auto character = static_cast<char32_t>(code);
        pressKey(target, code == enter ? QString("\n") : QString::fromUcs4(&character, 1));
    }
    settle();
}

void mustTakeText(const Control& control, const char* what) {
    if (control.kind != Kind::TextBox && control.kind != Kind::ComboBox)
        throw Refused{fullName(control) + " is no " + what};
}

void type(Control& control, const std::string& wanted) {
    mustTakeText(control, "box to type in");
    QWidget* target = keyTarget(control);
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    if (wanted.empty()) QTest::keyClick(target, Qt::Key_Delete);
    for (int i = 0; i < text::length(wanted) && windows::refusal(control).empty(); ++i) {
        pressKey(target, faces::toQt(text::mid(wanted, i, 1)));
    }
    settle();
}

void paste(Control& control, const std::string& wanted) {
    mustTakeText(control, "box to paste into");
    QWidget* target = keyTarget(control);
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    if (wanted.empty()) {
        QTest::keyClick(target, Qt::Key_Delete);
    } else {
        QApplication::clipboard()->setText(faces::toQt(wanted));
        QTest::keyClick(target, Qt::Key_V, Qt::ControlModifier);
    }
    settle();
}

void pick(Control& control, const std::vector<int>& lines) {
    auto* list = as<QListWidget>(control, "list");
    reach(control);
    for (const int line : lines) {
        if (line < 0 || line >= list->count())
            throw Refused{fullName(control) + " has no line " + std::to_string(line)};
    }
    if (lines.size() > 1 && !control.multiSelect)
        throw Refused{fullName(control) + " takes one line at a time"};
    list->setFocus(Qt::MouseFocusReason);
    if (lines.empty()) list->clearSelection();
    Qt::KeyboardModifiers modifiers;
    for (const int line : lines) {
        list->scrollToItem(list->item(line));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers,
                          list->visualItemRect(list->item(line)).center());
        modifiers = Qt::ControlModifier;
    }
    settle();
}

/// Opens the list of a combo box and takes the line by Enter.
void chooseInCombo(QComboBox& combo, int index) {
    combo.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&combo, Qt::Key_F4);
    combo.view()->setCurrentIndex(combo.model()->index(index, 0));
    QTest::keyClick(combo.view(), Qt::Key_Return);
}

void choose(Control& control, const std::string& item) {
    if (control.kind != Kind::ComboBox && control.kind != Kind::ListBox)
        throw Refused{fullName(control) + " is no list"};
    reach(control);
    const int index = findItem(control, item);
    if (index < 0) throw Refused{fullName(control) + " has no item \"" + item + "\""};
    if (control.kind == Kind::ListBox) {
        pick(control, {index});
        return;
    }
    chooseInCombo(*as<QComboBox>(control, "list"), index);
    settle();
}

void slide(Control& control, int value) {
    auto* slider = as<QSlider>(control, "scroll bar");
    reach(control);
    if (value < slider->minimum() || value > slider->maximum()) {
        throw Refused{fullName(control) + " goes from " + std::to_string(slider->minimum()) + " to " +
                      std::to_string(slider->maximum())};
    }
    slider->setFocus(Qt::MouseFocusReason);
    slider->setSliderPosition(value);
    settle();
}

void tick(Control& control, bool on) {
    if (control.kind != Kind::TickBox && control.kind != Kind::OptionButton) {
        throw Refused{fullName(control) + " is no box to tick"};
    }
    QWidget* widget = reach(control);
    if (control.kind == Kind::OptionButton && !on)
        throw Refused{fullName(control) + " is left by choosing another"};
    if ((control.value != 0) != on) {
        clickOn(control, widget);
    } else {
        widget->setFocus(Qt::MouseFocusReason);
    }
}

void mark(Control& control, int start, int length) {
    if (control.kind != Kind::TextBox) throw Refused{fullName(control) + " is no text box"};
    QWidget* widget = keyTarget(control);
    // Positions of the record: a line break is two characters there and one here.
    const QString before = faces::toQt(text::mid(control.text, 0, start));
    const QString marked = faces::toQt(text::mid(control.text, start, length));
    const auto from = static_cast<int>(before.size());
    const auto to = static_cast<int>(before.size() + marked.size());
    if (auto* area = qobject_cast<QPlainTextEdit*>(widget)) {
        QTextCursor cursor = area->textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        area->setTextCursor(cursor);
    } else if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
        edit->setSelection(from, to - from);
    }
    settle();
}

void turnTo(Control& control, int page) {
    if (control.kind != Kind::TabControl) throw Refused{fullName(control) + " is no tab control"};
    reach(control);
    if (page < 0 || page >= static_cast<int>(control.items.size())) {
        throw Refused{fullName(control) + " has no page " + std::to_string(page)};
    }
    clickTab(control, page);
    settle();
}

void close(Control& form) {
    if (form.kind != Kind::Form) throw Refused{fullName(form) + " is no form"};
    if (!form.visible) throw Refused{fullName(form) + " is not on show"};
    if (!form.on.close) throw Refused{fullName(form) + " has no window button"};
    mirror::widgetOf(form)->close();
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
