// Faces of belief meters and of the bars of the options: scroll bars with an arrow at each end.
#include "qt/faceMeter.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QWheelEvent>
#include <algorithm>

#include "forms/person.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"

namespace {

constexpr float thumbLength = 150;   // twips; an arrow is as long as the bar is high
constexpr double leastTravel = 102;  // device pixels, what rounding takes included

float travel(const Control& meter) { return meter.place.width - 2 * meter.place.height - thumbLength; }

void showRange(QScrollBar& bar, const Control& control) {
    const faces::Showing showing;
    bar.setRange(control.min.toInt(), control.max.toInt());
    bar.setValue(control.value.toInt());
}

/// One step a notch, whatever the desktop scrolls elsewhere; and none for a wheel that only passes over.
void hookWheel(QScrollBar* bar, Control& control) {
    hookEvents(bar, [bar, &control](QEvent* event) {
        if (event->type() != QEvent::Wheel) return false;
        if (!bar->hasFocus()) return true;
        const int notches =
            static_cast<QWheelEvent*>(event)->angleDelta().y() / QWheelEvent::DefaultDeltasPerStep;
        faces::act([&control, notches] { person::step(control, notches); });
        return true;
    });
}

void shareOut(QScrollBar& bar, const Control& control) {
    const double scale = geometry::scaleOf(control);
    bar.setStyleSheet(QString("QScrollBar { margin: 0px %1px; }"
                              "QScrollBar::sub-line { subcontrol-origin: margin; subcontrol-position: left; "
                              "width: %1px; height: %2px; }"
                              "QScrollBar::add-line { subcontrol-origin: margin; subcontrol-position: right; "
                              "width: %1px; height: %2px; }"
                              "QScrollBar::handle { min-width: %3px; }")
                          .arg(qRound(control.place.height * scale))
                          .arg(bar.height())
                          .arg(qRound(thumbLength * scale)));
}

QRect part(const QScrollBar& bar, QStyle::SubControl which) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Horizontal;
    option.state |= QStyle::State_Horizontal;
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = option.sliderValue = bar.sliderPosition();
    option.singleStep = bar.singleStep();
    option.pageStep = bar.pageStep();
    option.subControls = QStyle::SC_All;
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, which, &bar);
}

void paintArrow(QPainter& painter, const QRectF& button, double direction) {
    const look::Colours& c = look::colours();
    painter.setPen(QPen(c.border, 1));
    painter.setBrush(c.card);
    painter.drawRoundedRect(button.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    const double reach = std::min(button.width(), button.height()) / 4;
    const QPointF middle = button.center();
    const QPointF tip(middle.x() + direction * reach * 0.7, middle.y());
    const double back = middle.x() - direction * reach * 0.7;
    painter.setPen(Qt::NoPen);
    painter.setBrush(c.text);
    painter.drawPolygon(QPolygonF({tip, {back, middle.y() - reach}, {back, middle.y() + reach}}));
}

/// The trough is filled up to the value. A meter that only shows has neither thumb nor arrows to press.
void paint(QScrollBar& bar) {
    const look::Colours& c = look::colours();
    QPainter painter(&bar);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF trough = part(bar, QStyle::SC_ScrollBarGroove);
    const QRectF thumb = part(bar, QStyle::SC_ScrollBarSlider);
    const double inset = trough.height() * 0.28;
    trough.adjust(0, inset, 0, -inset);
    painter.setPen(Qt::NoPen);
    painter.setBrush(c.border);
    painter.drawRoundedRect(trough, 3, 3);
    painter.setBrush(bar.isEnabled() ? c.accent : c.faint);
    const double share = static_cast<double>(bar.value()) / std::max(1, bar.maximum());
    trough.setRight(bar.isEnabled() ? thumb.center().x() : trough.left() + trough.width() * share);
    painter.drawRoundedRect(trough, 3, 3);
    if (!bar.isEnabled()) return;
    painter.setBrush(c.text);
    painter.drawRoundedRect(thumb, 3, 3);
    paintArrow(painter, part(bar, QStyle::SC_ScrollBarSubLine), -1);
    paintArrow(painter, part(bar, QStyle::SC_ScrollBarAddLine), 1);
    if (!bar.hasFocus()) return;
    painter.setPen(QPen(c.accent, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(bar.rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace

namespace faceMeter {

double leastScale(const Control& form, double pixelRatio) {
    double least = 0;
    for (const Control* control : allControls()) {
        if (control->form != form.form || control->kind != Kind::ScrollBar || !control->enabled) continue;
        least = std::max(least, leastTravel / (pixelRatio * travel(*control)));
    }
    return least;
}

}  // namespace faceMeter

namespace faces {

Face meter(Control& control, QWidget* parent) {
    auto* bar = new QScrollBar(Qt::Horizontal, parent);
    bar->setSingleStep(control.smallChange);
    bar->setPageStep(control.largeChange);
    bar->setFocusPolicy(Qt::StrongFocus);
    bar->setInvertedControls(false);  // Left lowers, Up raises
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    const auto show = [bar, &control] { showRange(*bar, control); };
    onPerson(
        bar, &QScrollBar::valueChanged, [&control](int value) { person::slide(control, value); }, show);
    hookWheel(bar, control);
    hookKeys(bar, control);
    hookPainting(bar, [bar](QWidget*) { paint(*bar); });
    return {bar,
            [show](Property property) {
                if (property == Property::Value || property == Property::Range) show();
            },
            [bar, show, &control] {
                shareOut(*bar, control);
                show();
            },
            {}};
}

}  // namespace faces
