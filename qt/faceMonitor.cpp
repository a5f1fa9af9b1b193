// The health monitor's panel and the trace of the patient's health upon it.
#include <QPainter>
#include <QPointer>

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

void paintTrace(QWidget& overlay, const Control& panel) {
    const double scale = geometry::scaleOf(panel);
    const QPointF origin(frmTavix.lblHealthBorder.place.left, frmTavix.lblHealthBorder.place.top);
    QPainter painter(&overlay);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(QColor(0x00, 0xFF, 0x00), std::max(1.5, traceWidth * scale), Qt::SolidLine, Qt::RoundCap));
    const auto point = [origin, scale](float x, float y) { return (QPointF(x, y) - origin) * scale; };
    for (const PlotSegment& segment : frmTavix.linHealth) {
        if (segment.visible) painter.drawLine(point(segment.x1, segment.y1), point(segment.x2, segment.y2));
    }
}

}  // namespace

Face monitor(Control& control, QWidget* parent) {
    auto* panel = new QWidget(parent);
    hookPainting(panel, [](QWidget* target) { QPainter(target).fillRect(target->rect(), Qt::black); });
    auto* overlay = new QWidget(parent);
    overlay->setAttribute(Qt::WA_TransparentForMouseEvents);
    hookPainting(overlay, [&control](QWidget* target) { paintTrace(*target, control); });
    watchPlot([overlay](int) {
        overlay->raise();
        overlay->update();
    });
    return {panel,
            [](Property) {},
            [overlay, &control] {
                overlay->setGeometry(overlayPlace(control));
                overlay->raise();
            },
            {}};
}

}  // namespace faces
