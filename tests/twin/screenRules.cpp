#include "tests/twin/screenRules.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <algorithm>

#include "forms/windows.h"
#include "qt/faces.h"
#include "qt/mirror.h"

namespace screenRules {

namespace {

bool takesInput(const Control& control) {
    return windows::takesFocus(control.kind) || (control.kind == Kind::Label && control.on.doubleClick);
}

bool onPageThatIsUp(const Control& control) {
    for (const Control* at = &control; at != nullptr; at = at->parent) {
        if (at->page >= 0 && at->parent->value != at->page) return false;
    }
    return true;
}

/// A page that is not up hides what stands on it.
std::string notThere(const Control& control, const QWidget& widget) {
    const bool shown = windows::isShown(control) && onPageThatIsUp(control);
    if (widget.isVisible() != shown) return shown ? "is not on the screen" : "is on the screen";
    if (shown && widget.isEnabled() != windows::isUsable(control))
        return widget.isEnabled() ? "takes input that is refused" : "takes no input";
    return {};
}

QString bare(QString text) { return text.remove('&').simplified(); }

/// What was cut ends in an ellipsis and tells the whole as its tool tip.
bool reads(const QWidget& widget, const QString& shown, const std::string& wanted) {
    const QString whole = bare(faces::toQt(wanted)).replace(QChar::Nbsp, ' ');
    return bare(shown).replace(QChar::Nbsp, ' ') == whole || bare(widget.toolTip()) == whole;
}

QString plainText(const QPlainTextEdit& area) { return area.toPlainText().replace(QChar::Nbsp, ' '); }

std::string notText(const Control& control, const QWidget& widget) {
    const QString text = faces::toQt(control.text);
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return line->text() == text ? std::string() : "reads " + line->text().toStdString();
    if (const auto* area = qobject_cast<const QPlainTextEdit*>(&widget))
        return plainText(*area) == QString(text).replace(QChar::Nbsp, ' ') ? std::string()
                                                                           : "has another text";
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        if (combo->currentText() != text)
            return "reads \"" + combo->currentText().toStdString() + "\" and not \"" + control.text + '"';
        return combo->count() == static_cast<int>(control.items.size()) ? std::string() : "has other items";
    }
    return {};
}

std::string notCaption(const Control& control, const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return reads(*label, label->text(), control.caption) ? std::string()
                                                             : "reads " + label->text().toStdString();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        if (!reads(*button, button->text(), control.caption)) return "reads " + button->text().toStdString();
        if (button->isCheckable() && button->isChecked() != (control.value != 0)) return "has another mark";
    }
    return {};
}

std::string notValue(const Control& control, const QWidget& widget) {
    if (const auto* bar = qobject_cast<const QScrollBar*>(&widget)) {
        const bool same = bar->value() == control.value.toInt() && bar->minimum() == control.min.toInt() &&
                          bar->maximum() == control.max.toInt();
        return same ? std::string() : "stands at " + std::to_string(bar->value());
    }
    if (const auto* list = qobject_cast<const QListWidget*>(&widget)) {
        if (list->count() != static_cast<int>(control.items.size())) return "has other lines";
        for (int i = 0; i < list->count(); ++i) {
            const QListWidgetItem& line = *list->item(i);
            const bool same = line.text() == faces::toQt(control.items[static_cast<std::size_t>(i)]) &&
                              line.isSelected() == isSelected(control, i);
            if (!same) return "differs in line " + std::to_string(i);
        }
    }
    return {};
}

/// The mouse hits the widget, or a part of it, in its middle and near its corners.
std::string notInReach(const Control& control, const QWidget& widget) {
    if (!takesInput(control) || !widget.isVisible() || !windows::refusal(control).empty()) return {};
    QWidget* window = widget.window();
    QRect place = widget.rect();
    if (control.kind == Kind::TabControl) place = widget.findChild<QTabBar*>()->geometry();
    const QRect inner = place.adjusted(2, 2, -2, -2);
    for (const QPoint point : {inner.center(), inner.topLeft(), inner.bottomRight()}) {
        const QPoint at = widget.mapTo(window, point);
        if (!window->rect().contains(at)) return "is out of its window";
        const QWidget* hit = window->childAt(at);
        if (hit != &widget && (hit == nullptr || !widget.isAncestorOf(hit)))
            return "is covered by " + (hit == nullptr ? "nothing" : hit->objectName().toStdString());
    }
    return {};
}

using Rule = std::string (*)(const Control&, const QWidget&);
constexpr Rule ofShown[] = {notText, notCaption, notValue, notInReach};

}  // namespace

std::string broken() {
    for (const Control* control : allControls()) {
        const bool drawn =
            control->kind != Kind::Form && control->kind != Kind::Timer && control->kind != Kind::Line;
        if (!drawn) continue;
        const QWidget& widget = *mirror::widgetOf(*control);
        std::string wrong = notThere(*control, widget);
        for (const Rule rule : ofShown) {
            if (wrong.empty() && widget.isVisible()) wrong = rule(*control, widget);
        }
        if (!wrong.empty()) return fullName(*control) + " " + wrong;
    }
    return {};
}

}  // namespace screenRules
