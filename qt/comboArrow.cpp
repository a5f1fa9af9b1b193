#include "qt/comboArrow.h"

#include <QPainter>
#include <QStyleOptionComboBox>

#include "qt/eventHook.h"
#include "qt/look.h"

namespace comboArrow {

namespace {

void paint(QWidget* area) {
    QPainter painter(area);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(area->isEnabled() ? look::colours().text : look::colours().disabledText);
    const QPointF middle = QRectF(area->rect()).center();
    const double reach = area->height() / 7.0;
    painter.drawPolygon(QPolygonF({middle + QPointF(-reach, -reach / 2), middle + QPointF(reach, -reach / 2),
                                   middle + QPointF(0, reach * 0.8)}));
}

void place(const QComboBox& box, QWidget& arrow) {
    const int field = fieldOf(box).right();
    arrow.setGeometry(field, 0, box.width() - field, box.height());
    arrow.raise();
}

}  // namespace

QRect fieldOf(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = true;
    return box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
}

void add(QComboBox* box) {
    auto* const arrow = new QWidget(box);
    arrow->setAttribute(Qt::WA_TransparentForMouseEvents);
    hookPainting(arrow, paint);
    hookEvents(box, [box, arrow](QEvent* event) {
        const QEvent::Type type = event->type();
        if (type == QEvent::Resize || type == QEvent::Show || type == QEvent::StyleChange)
            place(*box, *arrow);
        return false;
    });
}

}  // namespace comboArrow
