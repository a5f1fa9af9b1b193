// The health monitor's panel and the trace of the patient's health upon it. A step of the trace paints only
// what it drew: at the fastest clock there are 22 a second.
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "forms/frmTavix.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"

namespace faces {

namespace {

constexpr double traceWidth = 24;  // twips

/// Nothing clips the trace at the panel: a trial that outruns its plan leaves it at the right, a health
/// below nothing at the bottom. The overlay is the monitor's frame, as far as the window goes.
QRect overlayPlace(const Control& panel) {
    Control frame = frmTavix.lblHealthBorder;
    frame.parent = panel.parent;
    frame.place.width = frmTavix.form.place.width - frame.place.left;
    return geometry::place(frame);
}

/// From twips of the form to pixels of the overlay.
struct Scale {
    double pixelsPerTwip;
    QPointF origin;
    double penWidth;
};

Scale scaleOf(const Control& panel) {
    const double scale = geometry::scaleOf(panel);
    const Place& frame = frmTavix.lblHealthBorder.place;
    return {scale, QPointF(frame.left, frame.top), std::max(1.5, traceWidth * scale)};
}

QLineF lineOf(const PlotSegment& segment, const Scale& scale) {
    return {(QPointF(segment.x1, segment.y1) - scale.origin) * scale.pixelsPerTwip,
            (QPointF(segment.x2, segment.y2) - scale.origin) * scale.pixelsPerTwip};
}

/// The pixels that a segment can touch: half the pen's width on every side, and one for smoothed edges.
QRect reachOf(const PlotSegment& segment, const Scale& scale) {
    if (!segment.visible) return {};
    const QLineF line = lineOf(segment, scale);
    const double edge = scale.penWidth / 2 + 1;
    const QRectF spine = QRectF(line.p1(), line.p2()).normalized();
    return spine.adjusted(-edge, -edge, edge, edge).toAlignedRect();
}

void paintTrace(QWidget& overlay, const Control& panel, const QRect& exposed) {
    const Scale scale = scaleOf(panel);
    QPainter painter(&overlay);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x00, 0xFF, 0x00), scale.penWidth, Qt::SolidLine, Qt::RoundCap));
    for (const PlotSegment& segment : frmTavix.linHealth) {
        if (reachOf(segment, scale).intersects(exposed)) painter.drawLine(lineOf(segment, scale));
    }
}

/// On a screen of 1.25 or 1.5 pixels to a unit only every fourth or second unit ends on a pixel: what is
/// painted anew begins and ends there, or a row of old pixels would stay.
QRect onWholePixels(const QRect& area, const QPoint& origin) {
    constexpr int step = 4;
    const auto down = [](int at) { return at - ((at % step) + step) % step; };
    const QRect inWindow = area.translated(origin);
    const QPoint first(down(inWindow.left()), down(inWindow.top()));
    const QPoint end(down(inWindow.right()) + step, down(inWindow.bottom()) + step);
    return QRect(first, end - QPoint(1, 1)).translated(-origin);
}

// What was last told of, as it stood then.
int lastIndex = -1;
PlotSegment last;

/// Paints a segment anew, and where it stood before: once all are used the last one's far end follows the
/// trace.
void updateSegment(QWidget& overlay, const Control& panel, int index) {
    const int indexBefore = std::exchange(lastIndex, index);
    if (index < 0) return overlay.update();
    const PlotSegment before = std::exchange(last, frmTavix.linHealth[index]);
    const Scale scale = scaleOf(panel);
    QRect touched = reachOf(last, scale);
    if (index == indexBefore) touched |= reachOf(before, scale);
    if (touched.isEmpty()) return;
    overlay.update(onWholePixels(touched, overlay.mapTo(overlay.window(), QPoint(0, 0))));
}

}  // namespace

Face monitor(Control& control, QWidget* parent) {
    auto* panel = new QWidget(parent);
    panel->setAttribute(Qt::WA_OpaquePaintEvent);
    hookPainting(panel, [](QWidget* target) { QPainter(target).fillRect(target->rect(), Qt::black); });
    auto* overlay = new QWidget(parent);
    overlay->setAttribute(Qt::WA_TransparentForMouseEvents);
    hookEvents(overlay, [overlay, &control](QEvent* event) {
        if (event->type() != QEvent::Paint) return false;
        paintTrace(*overlay, control, static_cast<QPaintEvent*>(event)->rect());
        return true;
    });
    watchPlot([overlay, &control](int segment) { updateSegment(*overlay, control, segment); });
    return {panel,
            [](Property) {},
            [overlay, &control] {
                overlay->setGeometry(overlayPlace(control));
                overlay->raise();
            },
            {}};
}

}  // namespace faces
