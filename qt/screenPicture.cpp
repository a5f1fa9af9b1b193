#include "qt/screenPicture.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "forms/refused.h"
#include "forms/registry.h"
#include "qt/look.h"
#include "qt/mirror.h"

namespace screenPicture {

namespace {

constexpr int titleHeight = 30;  // pixels

/// The forms in the order in which they stand over each other, message boxes on top.
int rankOf(const QWidget& window) {
    int rank = 0;
    for (const Control* form : registry::forms()) {
        if (mirror::widgetOf(*form) == &window) return rank;
        ++rank;
    }
    return rank;
}

QList<QWidget*> windowsOnShow() {
    QList<QWidget*> shown;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible()) shown.push_back(widget);
    }
    std::stable_sort(shown.begin(), shown.end(),
                     [](QWidget* a, QWidget* b) { return rankOf(*a) < rankOf(*b); });
    return shown;
}

/// The window with a title bar over it, since no desktop draws one here.
QRect withTitle(const QWidget& window) { return window.geometry().adjusted(0, -titleHeight, 0, 0); }

void paintWindow(QPainter& painter, QWidget& window, QPoint at) {
    const QRect bar(at, QSize(window.width(), titleHeight));
    painter.fillRect(bar, look::colours().text);
    painter.setPen(look::colours().window);
    painter.setFont(look::font({210, true}, 1.0 / 15));
    painter.drawText(bar.adjusted(10, 0, -10, 0), Qt::AlignVCenter, window.windowTitle());
    painter.drawPixmap(at + QPoint(0, titleHeight), window.grab());
    painter.setPen(look::colours().text);
    painter.drawRect(QRect(at, window.size() + QSize(0, titleHeight)).adjusted(0, 0, -1, -1));
}

}  // namespace

void write(const std::string& file) {
    QCoreApplication::processEvents();
    QRect whole;
    const QList<QWidget*> windows = windowsOnShow();
    for (const QWidget* window : windows) whole |= withTitle(*window);
    const qreal ratio = windows.isEmpty() ? 1.0 : windows.first()->devicePixelRatioF();
    QPixmap picture(whole.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(look::colours().window);
    QPainter painter(&picture);
    for (QWidget* window : windows)
        paintWindow(painter, *window, withTitle(*window).topLeft() - whole.topLeft());
    painter.end();
    if (!picture.save(QString::fromStdString(file), "PNG"))
        throw Refused{"the picture " + file + " cannot be written"};
}

}  // namespace screenPicture
