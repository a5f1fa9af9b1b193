// What people who do not see the screen, or do not use the mouse, are given: names, roles, the order of the
// Tab key, a focus that shows, and colours that can be told from each other.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QMetaEnum>
#include <cmath>
#include <fstream>
#include <sstream>

#include "forms/frmSplash.h"
#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "qt/look.h"
#include "qt/mirror.h"
#include "tests/qt/desk.h"

namespace {

struct Access : testing::Test {
    Access() { desk::lay(); }
    ~Access() override {
        for (Control* form : registry::forms()) setVisible(*form, false);
    }
};

/// Windows in which a person works.
std::vector<Control*> workForms() {
    std::vector<Control*> forms = registry::forms();
    std::erase(forms, &frmSplash.form);
    return forms;
}

/// The development frame never shows; lines and bars are for the eye.
bool saysNothing(const QAccessibleInterface& node) {
    const Control* control = mirror::controlOf(qobject_cast<QWidget*>(node.object()));
    const bool named = control != nullptr && mirror::widgetOf(*control) == node.object();
    if (named && (control == &frmTavix.fraDeleteLater || control->kind == Kind::Line)) return true;
    return node.role() == QAccessible::Button && !named;
}

void tellTree(std::ostream& out, QAccessibleInterface* node, int depth) {
    if (node == nullptr || !node->isValid()) return;
    if (saysNothing(*node)) return;
    const char* roleName = QMetaEnum::fromType<QAccessible::Role>().valueToKey(node->role());
    out << std::string(static_cast<std::size_t>(2 * depth), ' ') << roleName << " \""
        << node->text(QAccessible::Name).toStdString() << "\"";
    const std::string description = node->text(QAccessible::Description).toStdString();
    if (!description.empty()) out << " (" << description << ")";
    out << '\n';
    const auto role = node->role();
    const bool whole =
        role == QAccessible::ComboBox || role == QAccessible::List || role == QAccessible::EditableText;
    for (int i = 0; !whole && i < node->childCount(); ++i) tellTree(out, node->child(i), depth + 1);
}

std::string spokenTree() {
    std::ostringstream out;
    for (Control* form : workForms()) {
        out << "== " << form->form << '\n';
        tellTree(out, QAccessible::queryAccessibleInterface(mirror::widgetOf(*form)), 0);
        out << "-- Tab:";
        for (QWidget* widget : desk::tabOrder(*form)) out << ' ' << mirror::controlOf(widget)->name;
        out << '\n';
    }
    return out.str();
}

TEST_F(Access, TheTreeOfNamesIsTheOneThatWasReviewed) {
    const std::string tree = spokenTree();
    std::ifstream file(TAVIX_TESTS "/qt/spokenTree.txt");
    const std::string reviewed(std::istreambuf_iterator<char>(file), {});
    if (tree == reviewed) return;
    std::ofstream("spokenTree.txt") << tree;
    ADD_FAILURE()
        << "What a screen reader is told has changed: compare tests/qt/spokenTree.txt with spokenTree.txt in "
           "the folder of this run, and take it over if the change is meant.";
}

TEST_F(Access, EverythingThatTakesInputHasAName) {
    for (Control* form : workForms()) {
        for (QWidget* widget : desk::tabOrder(*form)) {
            const auto* spoken = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(spoken, nullptr);
            EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << fullName(*mirror::controlOf(widget));
        }
    }
}

TEST_F(Access, TheTabKeyFollowsTheReadingOrder) {
    for (Control* form : workForms()) {
        desk::showWhole(*form);
        const QWidget* window = mirror::widgetOf(*form);
        const std::vector<QWidget*> order = desk::tabOrder(*form);
        ASSERT_FALSE(order.empty());
        for (std::size_t i = 1; i < order.size(); ++i) {
            const QWidget& one = *order[i - 1];
            if (!one.isVisible() || !order[i]->isVisible()) continue;  // another page
            const QPoint before = one.mapTo(window, QPoint());
            const QPoint end = order[i]->mapTo(window, QPoint(order[i]->width(), order[i]->height()));
            EXPECT_FALSE(end.x() <= before.x() && end.y() <= before.y())
                << fullName(*mirror::controlOf(order[i])) << " stands above and left of "
                << fullName(*mirror::controlOf(order[i - 1])) << " and comes after it";
        }
    }
}

TEST_F(Access, TheFocusShowsOnEveryControl) {
    for (Control* form : workForms()) {
        desk::showWhole(*form);
        QWidget* window = mirror::widgetOf(*form);
        for (QWidget* widget : desk::tabOrder(*form)) {
            const Control& control = *mirror::controlOf(widget);
            if (control.parent == &frmTavix.tabTavix && &control != &frmTavix.tabTavix)
                setValue(frmTavix.tabTavix, Int16(control.page));
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
    return std::max(one, other) / std::min(one, other);
}

TEST_F(Access, TextsStandOutFromTheirGround) {
    constexpr double forText = 4.5;
    constexpr double forSigns = 3.0;
    for (const bool dark : {false, true}) {
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
        EXPECT_GE(contrast(c.accent, c.card), forSigns);
    }
    look::apply(false);
}

}  // namespace
