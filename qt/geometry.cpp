#include "qt/geometry.h"

#include <QFontMetrics>
#include <QPoint>
#include <cstdlib>
#include <map>

#include "qt/look.h"

namespace geometry {

namespace {

constexpr double defaultScale = 1.0 / 15.0;
constexpr double leastShare = 0.6;  // of the designed size

struct Frame {
    double scale = defaultScale;
    QPoint origin;
};

Frame& frameOf(const Control& control) {
    static std::map<const Control*, Frame> frames;
    const Control* root = &control;
    while (root->parent != nullptr) root = root->parent;
    return frames[root];
}

}  // namespace

double scaleOf(const Control& control) { return frameOf(control).scale; }

void setScale(const Control& form, double pixelsPerTwip) { frameOf(form).scale = pixelsPerTwip; }

void setOrigin(const Control& form, QPoint origin) { frameOf(form).origin = origin; }

QRect place(const Control& control) {
    const double scale = scaleOf(control);
    const bool onForm = control.parent != nullptr && control.parent->kind == Kind::Form;
    const QPoint origin = onForm ? frameOf(control).origin : QPoint(0, 0);
    const QPoint topLeft(qRound(control.place.left * scale), qRound(control.place.top * scale));
    const QPoint bottomRight(qRound((control.place.left + control.place.width) * scale),
                             qRound((control.place.top + control.place.height) * scale));
    return QRect(topLeft + origin, bottomRight + origin - QPoint(1, 1));
}

bool wraps(const Control& label) {
    return label.place.height > 2.1F * static_cast<float>(label.look.fontSize);
}

QFont fitted(const QFont& wanted, const std::function<bool(const QFont&)>& fits) {
    QFont font = wanted;
    const int designed = font.pixelSize();
    for (int size = designed; size >= look::leastPixels() && size >= designed * leastShare; --size) {
        font.setPixelSize(size);
        if (fits(font)) break;
    }
    return font;
}

QString cut(QWidget& widget, const QString& text, int width) {
    const QString shown = widget.fontMetrics().elidedText(text, Qt::ElideRight, width);
    const bool isCut = shown != text;
    if (isCut || widget.property("cut").toBool()) widget.setToolTip(isCut ? text : QString());
    widget.setProperty("cut", isCut);
    return shown;
}

bool hasRoom(const QFont& font, const QString& text, QSize room, int flags) {
    const QRect bounds = QFontMetrics(font).boundingRect(QRect(0, 0, room.width(), 1 << 16), flags, text);
    return bounds.width() <= room.width() && bounds.height() <= room.height();
}

QFont fitted(const QFont& wanted, const QString& text, QSize room, int flags) {
    return fitted(wanted, [&](const QFont& at) { return hasRoom(at, text, room, flags); });
}

QString brokenInTwo(const QString& text, const QFont& font, int width) {
    if (QFontMetrics(font).horizontalAdvance(text) <= width) return text;
    const int middle = static_cast<int>(text.size()) / 2;
    int best = -1;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == ' ' && (best < 0 || std::abs(i - middle) < std::abs(best - middle))) best = i;
    }
    if (best < 0) return text;
    QString broken = text;
    broken[best] = '\n';
    return broken;
}

}  // namespace geometry
