// Faces of text boxes and combo boxes. Keys that write go to the record, and the widget shows what has come
// of them; what the edit widget does by itself comes to the record as one change. Positions are UTF-16 units
// in the widget and characters of the text as it is seen towards the record, with a line break as one.
#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

#include "forms/lineBreaks.h"
#include "forms/person.h"
#include "qt/comboArrow.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/longWords.h"
#include "qt/look.h"
#include "qt/tableFont.h"
#include "qt/tableGrid.h"

namespace faces {

namespace {

int charactersTo(const QString& text, qsizetype unit) {
    return static_cast<int>(text.left(unit).toUcs4().size());
}

int unitsTo(const QString& text, int characters) {
    int unit = 0;
    for (; characters > 0 && unit < text.size(); --characters) unit += text[unit].isHighSurrogate() ? 2 : 1;
    return unit;
}

/// What is selected, or the cursor's place twice.
struct Span {
    int from;
    int to;
    friend bool operator==(const Span&, const Span&) = default;
    [[nodiscard]] int length() const { return to - from; }
};

// The two kinds of edit widgets.

QString textOf(const QLineEdit& edit) { return edit.text(); }
int cursorOf(const QLineEdit& edit) { return edit.cursorPosition(); }
Span spanOf(const QLineEdit& edit) {
    if (edit.hasSelectedText()) return {edit.selectionStart(), edit.selectionEnd()};
    return {edit.cursorPosition(), edit.cursorPosition()};
}
void setSpan(QLineEdit& edit, Span span) {
    edit.setCursorPosition(span.from);
    if (span.length() > 0) edit.setSelection(span.from, span.length());
}
void replace(QLineEdit& edit, Span span, const QString& by) {
    setSpan(edit, span);
    edit.insert(by);
}
void setWhole(QLineEdit& edit, const QString& text) { edit.setText(text); }
/// A line that loses the focus drops its selection; the person has not taken it away.
bool isPersons(const QLineEdit& edit) {
    const QWidget* focus = edit.window()->focusWidget();
    return focus == &edit || focus == edit.focusProxy();
}

QString textOf(const QPlainTextEdit& area) {
    QString text = area.document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, '\n').replace(QChar::LineSeparator, '\n');
}
int cursorOf(const QPlainTextEdit& area) { return area.textCursor().position(); }
Span spanOf(const QPlainTextEdit& area) {
    return {area.textCursor().selectionStart(), area.textCursor().selectionEnd()};
}
void setSpan(QPlainTextEdit& area, Span span) {
    QTextCursor cursor = area.textCursor();
    cursor.setPosition(span.from);
    cursor.setPosition(span.to, QTextCursor::KeepAnchor);
    area.setTextCursor(cursor);
}
void replace(QPlainTextEdit& area, Span span, const QString& by) {
    setSpan(area, span);
    area.insertPlainText(by);
}
void setWhole(QPlainTextEdit& area, const QString& text) { area.setPlainText(text); }
bool isPersons(const QPlainTextEdit& /*area*/) { return true; }

/// Left alone a line cuts what is pasted at 32,767 characters and does not say so.
constexpr int anyLength = std::numeric_limits<int>::max();

/// Cursor and selection of the record. A text that cannot be written in begins with its first lines in view.
template <class Edit>
void showSpan(Edit& edit, const Control& control) {
    const Showing showing;
    const QString text = toQt(control.text);
    const auto place = [&](int position) {
        return unitsTo(text, lineBreaks::seenPosition(control.text, position));
    };
    const Span wanted{place(control.selStart), place(control.selStart + control.selLength)};
    const bool bare = wanted.length() == 0 && spanOf(edit).length() == 0;
    if (spanOf(edit) != wanted && !(control.readOnly && bare)) setSpan(edit, wanted);
}

/// One key's change is put into the widget as such, so that the widget can undo it; a text that the program
/// sets is none that could be undone.
template <class Edit>
void showText(Edit& edit, const Control& control) {
    const Showing showing;
    const QString has = textOf(edit);
    const QString wanted = toQt(control.text);
    if (has == wanted) return showSpan(edit, control);
    const auto [differs, by] = std::mismatch(has.begin(), has.end(), wanted.begin(), wanted.end());
    const auto [end, byEnd] = std::mismatch(has.rbegin(), std::make_reverse_iterator(differs),
                                            wanted.rbegin(), std::make_reverse_iterator(by));
    const Span gone{static_cast<int>(differs - has.begin()), static_cast<int>(end.base() - has.begin())};
    const QString come = wanted.mid(by - wanted.begin(), byEnd.base() - by);
    constexpr int oneCharacter = 2;  // units at most
    if (isTyping(control) && come.size() <= oneCharacter &&
        gone.length() <= std::max(oneCharacter, spanOf(edit).length())) {
        replace(edit, gone, come);
    } else {
        setWhole(edit, wanted);
    }
    showSpan(edit, control);
}

/// What the widget has done to its text by itself goes to the record; of a text that was pasted over its
/// like, the cursor.
template <class Edit>
void takeText(Edit& edit, Control& control) {
    if (isShowing()) return;
    act([&] {
        const QString text = textOf(edit);
        const int cursor = charactersTo(text, cursorOf(edit));
        if (text != toQt(control.text)) {
            person::edit(control, fromQt(text), cursor);
        } else {
            person::moveCursor(control, cursor, 0);
        }
    });
    showText(edit, control);
}

template <class Edit>
void takeSpan(Edit& edit, Control& control) {
    const QString text = textOf(edit);
    if (isShowing() || text != toQt(control.text)) return;  // a change of the text comes with its own cursor
    if (isPersons(edit)) {
        const Span span = spanOf(edit);
        const int start = charactersTo(text, span.from);
        act([&] { person::moveCursor(control, start, charactersTo(text, span.to) - start); });
    }
    showSpan(edit, control);
}

template <class Edit>
void hookCursor(Edit* edit, Control& control) {
    const auto take = [edit, &control] { takeSpan(*edit, control); };
    edge::connect(edit, &Edit::selectionChanged, take);
    edge::connect(edit, &Edit::cursorPositionChanged, take);
}

QFont areaFont(const Control& control) {
    return control.look.table != 0 ? tableGrid::fontOf(control)
                                   : look::font(control.look, geometry::scaleOf(control));
}

/// A table's rows share the height that there is, so that nothing is left to scroll to.
void makeTable(QPlainTextEdit& area, const Control& control) {
    area.setLineWrapMode(QPlainTextEdit::NoWrap);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tableGrid::hookCells(area.viewport(), control);
}

/// The arrow keys go on from the item that the text names; from a text that names none they begin at the
/// first.
void followText(QComboBox& box, const Control& control) {
    const Showing showing;
    const int named = box.findText(toQt(control.text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (box.currentIndex() != named) box.setCurrentIndex(named);
}

/// The press by which the pointer brings the focus to a combo box leaves its text selected and does no more.
void hookEntry(QComboBox* box) {
    const auto brought = std::make_shared<bool>(false);
    const auto passing = std::make_shared<bool>(false);
    hookEvents(box, [box, brought](QEvent* event) {
        if (event->type() == QEvent::FocusIn)
            *brought = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
        if (event->type() == QEvent::MouseButtonPress) *brought = false;
        return event->type() == QEvent::Wheel &&
               !box->hasFocus();  // only the pointer is here, not the person
    });
    hookEvents(box->lineEdit(), [brought, passing](QEvent* event) {
        const QEvent::Type type = event->type();
        if (type == QEvent::MouseButtonPress) *passing = std::exchange(*brought, false);
        const bool dropped = *passing && (type == QEvent::MouseButtonPress || type == QEvent::MouseMove ||
                                          type == QEvent::MouseButtonRelease);
        if (type == QEvent::MouseButtonRelease) *passing = false;
        return dropped;
    });
}

void showItems(QComboBox& box, const Control& control) {
    const Showing showing;
    box.clear();
    for (const std::string& item : control.items) box.addItem(toQt(item));
    followText(box, control);
    constexpr int margins = 6;  // pixels of the line within, its cursor included
    const QFont font = tableFont::ofChoices(control, comboArrow::fieldOf(box).width() - margins);
    box.setFont(font);
    box.lineEdit()->setFont(font);
    box.view()->setFont(font);
}

}  // namespace

Face lineEdit(Control& control, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setMaxLength(anyLength);
    edge::connect(edit, &QLineEdit::textChanged, [edit, &control] { takeText(*edit, control); });
    hookCursor(edit, control);
    hookKeys(edit, control);
    return {edit,
            [edit, &control](Property property) {
                if (property == Property::Text) showText(*edit, control);
                if (property == Property::Selection) showSpan(*edit, control);
            },
            [edit, &control] {
                edit->setFont(look::font(control.look, geometry::scaleOf(control)));
                showText(*edit, control);
            },
            {}};
}

Face textArea(Control& control, QWidget* parent) {
    auto* area = new QPlainTextEdit(parent);
    area->setReadOnly(control.readOnly);
    area->setTabChangesFocus(true);
    if (control.readOnly)
        area->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (control.look.cells != Look::Cells::None) makeTable(*area, control);
    longWords::watch(*area);
    edge::connect(area, &QPlainTextEdit::textChanged, [area, &control] { takeText(*area, control); });
    hookCursor(area, control);
    hookKeys(area, control);
    const auto setFont = [area, &control] {
        area->setFont(areaFont(control));
        area->viewport()->update();
    };
    return {area,
            [area, &control, setFont](Property property) {
                if (property == Property::Text) setFont();
                if (property == Property::Text) showText(*area, control);
                if (property == Property::Selection) showSpan(*area, control);
            },
            [area, &control, setFont] {
                setFont();
                showText(*area, control);
            },
            {}};
}

Face comboBox(Control& control, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);  // a completion would be a change that nobody typed
    box->setMaxVisibleItems(12);
    box->setFocusPolicy(Qt::StrongFocus);  // the wheel alone gives no focus, and so chooses nothing
    comboArrow::add(box);
    QLineEdit* edit = box->lineEdit();
    edit->setMaxLength(anyLength);
    edit->setPlaceholderText(toQt(control.prompt));
    const auto showChoice = [box, edit, &control] {
        followText(*box, control);
        showText(*edit, control);
    };
    edge::connect(edit, &QLineEdit::textEdited, [edit, &control] { takeText(*edit, control); });
    onPerson(
        box, &QComboBox::activated, [&control](int line) { person::chooseLine(control, line); }, showChoice);
    hookCursor(edit, control);
    hookEntry(box);
    hookKeys(edit, control);
    hookKeys(box, control);
    return {box,
            [box, edit, showChoice, &control](Property property) {
                if (property == Property::Items) showItems(*box, control);
                if (property == Property::Text) showChoice();
                if (property == Property::Selection) showSpan(*edit, control);
            },
            [box, edit, &control] {
                showItems(*box, control);
                showText(*edit, control);
            },
            {}};
}

}  // namespace faces
