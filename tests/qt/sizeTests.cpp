// From a small laboratory screen to a large one: nothing is cut off, nothing stands over anything else, and
// no dialog is larger than the screen.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScreen>

#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "qt/mirror.h"
#include "tests/qt/desk.h"

namespace {

struct Sizes : testing::TestWithParam<QSize> {
    Sizes() {
        desk::lay();
        mirror::widgetOf(frmTavix.form)->resize(GetParam());
    }
};

/// What a label's or button's text needs, pixels.
QSize needOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        const int flags = label->wordWrap() ? Qt::TextWordWrap : 0;
        const QRect room(0, 0, label->contentsRect().width(), 100000);
        return label->fontMetrics().boundingRect(room, flags, label->text()).size();
    }
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    if (button == nullptr) return {};
    return button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
}

TEST_P(Sizes, EveryCaptionHasRoomAndEveryDialogFits) {
    constexpr QSize rounding(2, 2);  // pixels
    for (Control* form : registry::forms()) {
        desk::showWhole(*form);
        const QWidget& window = *mirror::widgetOf(*form);
        EXPECT_TRUE(form == &frmTavix.form || window.height() < window.screen()->size().height())
            << form->form;
        for (Control* control : allControls()) {
            if (control->form != form->form || control->kind == Kind::Timer || control->look.clips) continue;
            const QWidget& widget = *mirror::widgetOf(*control);
            const QSize need = needOf(widget);
            if (!widget.isVisible() || need.isEmpty()) continue;
            const QSize room = widget.contentsRect().size() + rounding;
            EXPECT_EQ(need.boundedTo(room), need) << fullName(*control);
        }
        setVisible(*form, false);
    }
}

/// What a widget covers of its parent: a label no more than its text.
QRect groundOf(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label == nullptr) return widget.geometry();
    QRect text(QPoint(), needOf(widget));
    text.moveTopLeft(widget.geometry().topLeft());
    if ((label->alignment() & Qt::AlignRight) != 0) text.moveRight(widget.geometry().right());
    return text.adjusted(1, 1, -1, -1);
}

/// Frames and lines stand around others, and the monitor's labels under its plot.
bool mayBeCovered(const Control& control) {
    return control.look.framed || control.kind == Kind::Line || control.kind == Kind::Timer;
}

TEST_P(Sizes, NothingThatTakesInputIsCovered) {
    for (Control* form : desk::workForms()) {
        desk::showWhole(*form);
        for (QWidget* taker : desk::tabOrder(*form)) {
            const Control& control = *mirror::controlOf(taker);
            const QRect ground = groundOf(*mirror::widgetOf(control));
            for (Control* other : registry::childrenOf(*control.parent)) {
                if (other == &control || other->page != control.page || mayBeCovered(*other)) continue;
                const QWidget& neighbour = *mirror::widgetOf(*other);
                if (!neighbour.isVisible() || !mirror::widgetOf(control)->isVisible()) continue;
                EXPECT_FALSE(ground.intersects(groundOf(neighbour)))
                    << fullName(control) << " and " << fullName(*other);
            }
        }
        setVisible(*form, false);
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, Sizes,
                         testing::Values(QSize(1024, 700), QSize(1920, 1020), QSize(3840, 2080)));

}  // namespace
