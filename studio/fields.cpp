#include "studio/fields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <utility>

#include "platform/numberText.h"
#include "qt/comboArrow.h"
#include "qt/eventHook.h"
#include "store/layer/schema.h"
#include "studio/givenText.h"
#include "studio/workspace.h"

namespace fields {

namespace {

std::function<void(const QString&)>& listener() {
    static std::function<void(const QString&)> told = [](const QString&) {};
    return told;
}

QString textAt(const book::Place& place) {
    return QString::fromStdString(book::textAt(workspace::book(), place));
}

std::string keyOf(const book::Place& place) {
    return place.table + "/" + std::to_string(place.row) + "/" + place.column;
}

void markProblem(QWidget& widget, bool problem) {
    if (widget.property("problem").toBool() == problem) return;
    widget.setProperty("problem", problem);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

/// False where the column cannot hold the text.
bool put(QWidget& widget, const Where& where, const Words& words, const QString& text) {
    const std::optional<book::Place> place = where();
    if (!place) return false;
    const std::string problem = workspace::edit(
        words.name.toStdString(),
        [&](book::Book& book) { return book::put(book, *place, text.toStdString()); }, keyOf(*place));
    markProblem(widget, !problem.empty());
    tellProblem(problem.empty()
                    ? QString()
                    : QString("%1: \"%2\" %3")
                          .arg(words.name, givenText::shortened(text), QString::fromStdString(problem)));
    return problem.empty();
}

void describe(QWidget& widget, const Words& words) {
    widget.setAccessibleName(words.name);
    widget.setAccessibleDescription(words.help);
    widget.setToolTip(words.help);
}

/// What stands in the widget may be on its way: a blank at the end, a sign that makes no number yet.
bool isOnItsWay(const QWidget& widget, const QString& shown, const QString& wanted) {
    if (!widget.hasFocus()) return false;
    return widget.property("problem").toBool() || shown.trimmed() == wanted;
}

}  // namespace

void passWheelOn(QWidget* widget) {
    widget->setFocusPolicy(Qt::StrongFocus);
    hookEvents(widget, [](QEvent* event) {
        if (event->type() != QEvent::Wheel) return false;
        event->ignore();
        return true;
    });
}

void tellProblemsTo(std::function<void(const QString&)> told) { listener() = std::move(told); }
void tellProblem(const QString& text) { listener()(text); }

void leaveUndoToStudy(QWidget& editor) {
    hookEvents(&editor, [&editor](QEvent* event) {
        if (event->type() != QEvent::ShortcutOverride) return false;
        // A text that could not be taken is the editor's own matter.
        const QWidget* const around = editor.parentWidget();
        if (editor.property("problem").toBool() ||
            (around != nullptr && around->property("problem").toBool()))
            return false;
        const auto* const key = static_cast<QKeyEvent*>(event);
        if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo)) return false;
        event->ignore();
        return true;
    });
}

Words wordsOf(const std::string& table, const std::string& column, const QString& caption) {
    QString name = caption;
    if (name.endsWith(':')) name.chop(1);
    QString help;
    for (const schema::Column& known : schema::find(table)->columns) {
        if (known.name == column)
            help = QString::fromUtf8(known.meaning.data(), static_cast<qsizetype>(known.meaning.size()));
    }
    if (!help.isEmpty()) help = help.left(1).toUpper() + help.mid(1) + '.';
    return {name, help};
}

Field line(const Where& where, const Words& words) {
    auto* const edit = new QLineEdit;
    describe(*edit, words);
    leaveUndoToStudy(*edit);
    QObject::connect(edit, &QLineEdit::textEdited, edit,
                     [=](const QString& text) { put(*edit, where, words, text); });
    const auto refresh = [=] {
        const std::optional<book::Place> place = where();
        edit->setEnabled(place.has_value());
        const QString wanted = place ? textAt(*place) : QString();
        if (edit->text() == wanted || isOnItsWay(*edit, edit->text(), wanted)) return;
        markProblem(*edit, false);
        edit->setText(wanted);
    };
    // Leaving a text that could not be taken brings back what stands in the study.
    QObject::connect(edit, &QLineEdit::editingFinished, edit, [=] {
        markProblem(*edit, false);
        const std::optional<book::Place> place = where();
        if (place && edit->text() != textAt(*place)) edit->setText(textAt(*place));
    });
    return {edit, where, refresh};
}

Field tick(const Where& where, const Words& words) {
    auto* const box = new QCheckBox(words.name);
    describe(*box, words);
    QObject::connect(box, &QCheckBox::clicked, box,
                     [=](bool on) { put(*box, where, words, on ? "yes" : "no"); });
    return {
        box, where, [=] {
            const std::optional<book::Place> place = where();
            box->setEnabled(place.has_value());
            const QSignalBlocker quiet(box);
            box->setChecked(place &&
                            book::sheetOf(workspace::book(), place->table).isTrue(place->row, place->column));
        }};
}

Field slider(const Where& where, const Words& words, int least, int most) {
    auto* const whole = new QWidget;
    auto* const row = new QHBoxLayout(whole);
    auto* const bar = new QSlider(Qt::Horizontal);
    const Field number = line(where, words);
    bar->setRange(least, most);
    passWheelOn(bar);
    bar->setFocusPolicy(Qt::ClickFocus);  // the Tab key goes to the line beside it
    describe(*bar, words);
    number.widget->setMaximumWidth(64);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(bar, 1);
    row->addWidget(number.widget);
    whole->setFocusProxy(number.widget);
    QObject::connect(bar, &QSlider::valueChanged, bar,
                     [=](int value) { put(*number.widget, where, words, QString::number(value)); });
    return {whole, where, [=] {
                number.refresh();
                const std::optional<book::Place> place = where();
                bar->setEnabled(place.has_value());
                const QSignalBlocker quiet(bar);
                if (place) bar->setValue(numberText::nearestShort(textAt(*place).toStdString()));
            }};
}

Field choice(const Where& where, const Words& words, const std::function<QStringList()>& items) {
    auto* const box = new QComboBox;
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);  // it would show more than the study has
    comboArrow::add(box);
    passWheelOn(box);
    leaveUndoToStudy(*box->lineEdit());
    describe(*box, words);
    QObject::connect(box, &QComboBox::textActivated, box,
                     [=](const QString& text) { put(*box, where, words, text); });
    QObject::connect(box->lineEdit(), &QLineEdit::textEdited, box,
                     [=](const QString& text) { put(*box, where, words, text); });
    QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, box, [=] {
        if (!box->property("problem").toBool()) return;
        markProblem(*box, false);
        if (const std::optional<book::Place> place = where()) box->setEditText(textAt(*place));
    });
    return {box, where, [=] {
                const std::optional<book::Place> place = where();
                box->setEnabled(place.has_value());
                const QSignalBlocker quiet(box);
                const QStringList wanted = items();
                QStringList shown;
                for (int i = 0; i < box->count(); ++i) shown << box->itemText(i);
                const QString text = place ? textAt(*place) : QString();
                const bool onItsWay = isOnItsWay(*box, box->currentText(), text);
                const QString typed = box->currentText();
                if (shown != wanted) {
                    box->clear();
                    box->addItems(wanted);
                }
                box->setEditText(onItsWay ? typed : text);
            }};
}

Field named(const Where& where, const Words& words, const std::vector<Choice>& choices) {
    auto* const box = new QComboBox;
    const auto known = static_cast<int>(choices.size());
    for (const Choice& choice : choices) box->addItem(choice.name, choice.value);
    comboArrow::add(box);
    passWheelOn(box);
    describe(*box, words);
    QObject::connect(box, &QComboBox::activated, box,
                     [=](int at) { put(*box, where, words, box->itemData(at).toString()); });
    return {box, where, [=] {
                const std::optional<book::Place> place = where();
                const QSignalBlocker quiet(box);
                const QString value = place ? textAt(*place) : QString();
                box->setEnabled(place.has_value());
                while (box->count() > known) box->removeItem(known);
                if (box->findData(value) < 0) box->addItem(value, value);
                box->setCurrentIndex(box->findData(value));
            }};
}

}  // namespace fields
