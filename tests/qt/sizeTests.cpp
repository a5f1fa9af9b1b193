// From a small laboratory screen to a large one: nothing is cut off, nothing stands over anything else, and
// no dialog is larger than the screen.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QtMath>

#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "qt/geometry.h"
#include "qt/mirror.h"
#include "qt/tableGrid.h"
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

const std::string longWord = "Hemmingwoordium";  // the longest that a table holds

std::string times(int count, const std::string& text) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
}

void showDiseases(int count) {
    const std::string numbers = "    0.40" + times(count - 1, std::string(14, ' ') + "0.100") + "     ";
    setCaption(frmTavix.lblSvD, " " + times(count, longWord));
    setCaption(frmTavix.lblBaseRates, numbers + "Base Rates");
    setText(frmTavix.txtSvD, times(6, numbers + longWord + "\r\n"));
}

/// The middle of what the control shows between two columns of pixels; -1 if that is nothing.
double middleOfInk(const QImage& picture, int left, int right) {
    const QRgb ground = picture.pixel(4, 4);
    int first = right, last = left;
    for (int x = left; x < right; ++x)
        for (int y = 4; y < picture.height() - 4; ++y) {
            if (std::abs(qGreen(picture.pixel(x, y)) - qGreen(ground)) < 64) continue;
            first = std::min(first, x);
            last = x;
        }
    return last < first ? -1 : (first + last + 1) / 2.0;
}

QImage pictureOf(const Control& control) {
    QWidget& widget = *mirror::widgetOf(control);
    return widget.parentWidget()->grab(widget.geometry()).toImage();
}

TEST(Tables, NumbersAndRatesStandUnderTheirHeadsAtEverySize) {
    desk::lay();
    desk::showWhole(frmTavix.form);
    setValue(frmTavix.tabTavix, 1);
    QWidget& window = *mirror::widgetOf(frmTavix.form);
    for (int width = window.minimumWidth(); width <= 2000; width += 7) {
        window.resize(width, width * 3 / 4);
        for (int diseases = 2; diseases <= 4; ++diseases) {
            showDiseases(diseases);
            const QImage rates = pictureOf(frmTavix.lblBaseRates), rows = pictureOf(frmTavix.txtSvD);
            const std::vector<tableGrid::Cell> cells = tableGrid::cellsOf(frmTavix.lblSvD);
            const auto middle = [&](std::size_t i) { return QRectF(cells[i].rect).center().x(); };
            const double half = (middle(1) - middle(0)) / 2;
            const QFont font = tableGrid::fontOf(frmTavix.lblSvD);
            for (std::size_t i = 0; i < cells.size(); ++i) {
                const int left = qCeil(middle(i) - half), right = qFloor(middle(i) + half);
                EXPECT_LE(QFontMetrics(font).horizontalAdvance(cells[i].text), cells[i].rect.width());
                EXPECT_NEAR(middleOfInk(rates, left, right), middle(i), 2) << width << ", " << diseases;
                EXPECT_NEAR(middleOfInk(rows, left, right), middle(i), 2) << width << ", " << diseases;
            }
        }
    }
}

int middleOf(const Control& control) { return mirror::widgetOf(control)->geometry().center().y(); }

TEST_P(Sizes, TheFeedbackOfATieIsWholeAndInOneSizeAndEachTestStandsBesideItsChances) {
    FrmTavix& f = frmTavix;
    desk::showWhole(f.form);
    setCaption(f.lblFinalDiagnosis, times(3, longWord + " 25%,  ") + longWord + " 25%");
    setCaption(f.lblAnswer, longWord);
    setCaption(f.lblAllTests, "\r\n" + times(6, longWord + "\r\n"));
    setCaption(f.lblTestResults, "\r\n" + times(6, "Present\r\n"));
    setCaption(f.lblEndSvD, "  H      H     H      H     \r\n" + times(6, "0.05 0.100 0.95 0.00 \r\n"));
    const int size = tableGrid::fontOf(f.lblEndSvD).pixelSize();
    EXPECT_GE(size, qFloor(f.lblEndSvD.look.fontSize * geometry::scaleOf(f.lblEndSvD) * 0.9));
    for (const Control* text : tableGrid::membersOf(f.lblEndSvD)) {
        const QWidget& widget = *mirror::widgetOf(*text);
        EXPECT_EQ(widget.font().pixelSize(), size) << fullName(*text);
        const QSize need = needOf(widget);
        if (text->look.cells == Look::Cells::None) {
            EXPECT_EQ(need.boundedTo(widget.size()), need) << fullName(*text);
        }
    }
    const auto names = tableGrid::cellsOf(f.lblAllTests), chances = tableGrid::cellsOf(f.lblEndSvD);
    for (std::size_t row = 1; row <= 6; ++row)
        for (std::size_t i = 0; i < 4; ++i) {
            const QRect& chance = chances.at(4 * row + i).rect;
            EXPECT_EQ(chance.center().y(), names.at(row - 1).rect.center().y());
            EXPECT_EQ(chance.center().x(), chances[i].rect.center().x());
        }
    EXPECT_NEAR(middleOf(f.lblDiagnosisBelief), mirror::widgetOf(f.Line0)->y(), 2);
    EXPECT_NEAR(middleOf(f.lblDiagChance), mirror::widgetOf(f.Line2)->y(), 2);
}

TEST_P(Sizes, NamesOfDiseasesAreWholeInTheirBoxes) {
    desk::showWhole(frmDiagnosis.form);
    for (Control& box : frmDiagnosis.cboHypothesis) addItem(box, longWord);
    for (const Control& box : frmDiagnosis.cboHypothesis) {
        const auto* line = mirror::widgetOf(box)->findChild<QLineEdit*>();
        constexpr int margins = 4;  // pixels
        const int need = line->fontMetrics().horizontalAdvance(QString::fromStdString(longWord)) + margins;
        EXPECT_LE(need, line->width());
    }
    setVisible(frmDiagnosis.form, false);
}

INSTANTIATE_TEST_SUITE_P(Screens, Sizes,
                         testing::Values(QSize(1024, 700), QSize(1920, 1020), QSize(3840, 2080)));

}  // namespace
