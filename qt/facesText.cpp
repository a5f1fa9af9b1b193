// Faces of text boxes and combo boxes. Text and selection go both ways; positions in the record count
// characters with each line break as two, in the widget UTF-16 units with each break as one.
#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTextCursor>

#include "platform/text.h"
#include "qt/edge.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"
#include "qt/tableFont.h"

namespace faces {

namespace {

/// Position in the widget's text as a position in the record's.
int recordPosition(const QString& widgetText, int position) {
    const QString before = widgetText.left(position);
    return static_cast<int>(before.toUcs4().size() + before.count('\n'));
}

int widgetPosition(const std::string& recordText, int position) {
    return static_cast<int>(toQt(text::left(recordText, position)).size());
}

/// The widget's text as the record holds it, with a carriage return before each line feed.
std::string recordText(const Control& control, QString widgetText) {
    if (control.multiLine) widgetText.replace("\n", "\r\n");
    return fromQt(widgetText);
}

/// The person changed the text: the record takes it and runs its handlers; then the widget takes what the
/// handlers made of it.
void takeText(Control& control, const QString& widgetText, int cursor) {
    if (isShowing()) return;
    edge::run([&] {
        const std::string typed = recordText(control, widgetText);
        if (typed != control.text) setTextTyped(control, typed, recordPosition(widgetText, cursor));
    });
}

void hookKeys(QWidget* widget, const Control& control) {
    hookEvents(widget, [&control](QEvent* event) {
        if (event->type() != QEvent::KeyPress) return false;
        bool swallowed = false;
        edge::run([&] { swallowed = swallowsKey(control, *static_cast<QKeyEvent*>(event)); });
        return swallowed;
    });
}

void showInLineEdit(QLineEdit& edit, const Control& control) {
    const Showing showing;
    const QString wanted = toQt(control.text);
    if (edit.text() != wanted) edit.setText(wanted);
    const int start = widgetPosition(control.text, control.selStart);
    edit.setCursorPosition(start);
    if (control.selLength > 0) {
        edit.setSelection(start, widgetPosition(control.text, control.selStart + control.selLength) - start);
    }
}

void takeLineSelection(Control& control, const QLineEdit& edit) {
    if (isShowing()) return;
    const int start = edit.hasSelectedText() ? edit.selectionStart() : edit.cursorPosition();
    control.selStart = recordPosition(edit.text(), start);
    control.selLength = static_cast<int>(edit.selectedText().toUcs4().size());
}

void showInArea(QPlainTextEdit& area, const Control& control) {
    const Showing showing;
    const QString wanted = toQt(control.text);
    if (area.toPlainText() != wanted) area.setPlainText(wanted);
    QTextCursor cursor = area.textCursor();
    cursor.setPosition(
        control.readOnly && control.selLength == 0 ? 0 : widgetPosition(control.text, control.selStart));
    cursor.setPosition(widgetPosition(control.text, control.selStart + control.selLength),
                       QTextCursor::KeepAnchor);
    if (control.readOnly && control.selLength == 0) cursor.setPosition(0);
    area.setTextCursor(cursor);
}

void takeAreaSelection(Control& control, const QPlainTextEdit& area) {
    if (isShowing()) return;
    const QTextCursor cursor = area.textCursor();
    const QString text = area.toPlainText();
    control.selStart = recordPosition(text, cursor.selectionStart());
    control.selLength = recordPosition(text, cursor.selectionEnd()) - control.selStart;
}

constexpr int areaMargin = 24;  // pixels of an area's frame and its own margins

QFont areaFont(const Control& control, int width) {
    if (control.look.fixedWidth) return tableFont::of(control, width - areaMargin);
    return look::font(control.look, geometry::scaleOf(control));
}

/// The style sheet leaves the drop-down bare; its arrow is drawn here, sharp at every scale.
void paintArrow(QWidget* area) {
    QPainter painter(area);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(area->isEnabled() ? look::colours().text : look::colours().disabledText);
    const QPointF middle = QRectF(area->rect()).center();
    const double reach = area->height() / 7.0;
    painter.drawPolygon(QPolygonF({middle + QPointF(-reach, -reach / 2), middle + QPointF(reach, -reach / 2),
                                   middle + QPointF(0, reach * 0.8)}));
}

QWidget* makeArrow(QComboBox* box) {
    auto* arrow = new QWidget(box);
    arrow->setAttribute(Qt::WA_TransparentForMouseEvents);
    hookPainting(arrow, paintArrow);
    return arrow;
}

/// The arrow keys go on from the item that the text names; from a text that names none they begin at the
/// first.
void followText(QComboBox& box, const Control& control) {
    const Showing showing;
    const int named = box.findText(toQt(control.text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (box.currentIndex() != named) box.setCurrentIndex(named);
    if (box.currentText() != toQt(control.text)) box.setEditText(toQt(control.text));
}

void showItems(QComboBox& box, const Control& control) {
    const Showing showing;
    box.clear();
    for (const std::string& item : control.items) box.addItem(toQt(item));
    followText(box, control);
}

}  // namespace

Face lineEdit(Control& control, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edge::connect(edit, &QLineEdit::textChanged, [edit, &control](const QString& typed) {
        takeText(control, typed, edit->cursorPosition());
    });
    const auto takeSelection = [edit, &control] { takeLineSelection(control, *edit); };
    edge::connect(edit, &QLineEdit::selectionChanged, takeSelection);
    edge::connect(edit, &QLineEdit::cursorPositionChanged, takeSelection);
    hookKeys(edit, control);
    return {edit,
            [edit, &control](Property property) {
                if (property == Property::Text || property == Property::Selection)
                    showInLineEdit(*edit, control);
            },
            [edit, &control] {
                edit->setFont(look::font(control.look, geometry::scaleOf(control)));
                showInLineEdit(*edit, control);
            },
            {}};
}

Face textArea(Control& control, QWidget* parent) {
    auto* area = new QPlainTextEdit(parent);
    area->setReadOnly(control.readOnly);
    area->setTabChangesFocus(true);
    if (control.readOnly)
        area->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (control.look.fixedWidth) area->setLineWrapMode(QPlainTextEdit::NoWrap);
    edge::connect(area, &QPlainTextEdit::textChanged, [area, &control] {
        takeText(control, area->toPlainText(), area->textCursor().position());
    });
    const auto takeSelection = [area, &control] { takeAreaSelection(control, *area); };
    edge::connect(area, &QPlainTextEdit::selectionChanged, takeSelection);
    edge::connect(area, &QPlainTextEdit::cursorPositionChanged, takeSelection);
    hookKeys(area, control);
    const auto setFont = [area, &control] { area->setFont(areaFont(control, area->width())); };
    return {area,
            [area, &control, setFont](Property property) {
                if (property == Property::Text) setFont();
                if (property == Property::Text || property == Property::Selection) showInArea(*area, control);
            },
            [area, &control, setFont] {
                setFont();
                showInArea(*area, control);
            },
            {}};
}

Face comboBox(Control& control, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);  // a completion would be a change that nobody typed
    box->setMaxVisibleItems(12);
    QWidget* arrow = makeArrow(box);
    edge::connect(box->lineEdit(), &QLineEdit::textEdited, [box, &control](const QString& typed) {
        takeText(control, typed, box->lineEdit()->cursorPosition());
    });
    edge::connect(box, &QComboBox::activated, [&control](int index) {
        if (!isShowing()) edge::run([&] { setListIndex(control, index); });
    });
    hookKeys(box->lineEdit(), control);
    hookKeys(box, control);
    return {box,
            [box, &control](Property property) {
                if (property == Property::Items) showItems(*box, control);
                if (property == Property::Text) followText(*box, control);
                if (property == Property::Text || property == Property::Selection) {
                    showInLineEdit(*box->lineEdit(), control);
                }
            },
            [box, arrow, &control] {
                arrow->setGeometry(box->width() - box->height(), 0, box->height(), box->height());
                arrow->raise();
                const QFont font = look::font(control.look, geometry::scaleOf(control));
                box->setFont(font);
                box->lineEdit()->setFont(font);
                box->view()->setFont(font);
                showItems(*box, control);
            },
            {}};
}

}  // namespace faces
