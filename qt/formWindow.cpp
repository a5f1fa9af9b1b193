#include "qt/formWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <algorithm>
#include <map>

#include "forms/person.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"

namespace formWindow {

namespace {

struct Shown {
    QWidget* widget;
    std::function<void()> layOut;
};
std::map<const Control*, Shown> windows;
const Control* mainForm = nullptr;

constexpr double shareOfScreen = 0.94;  // what the main screen takes at first, window frame left aside
constexpr double dialogShare = 0.9;     // what a dialog takes of the screen at most
constexpr double twipsPerPixel = 15;    // at the base scale
constexpr int frameHeight = 40;         // pixels of a title bar, about

bool isMain(const Control& form) { return form.window == WindowKind::Main; }

double scaleThatFits(const Control& form, QSize room) {
    return std::min(room.width() / static_cast<double>(form.place.width),
                    room.height() / static_cast<double>(form.place.height));
}

QSize sizeAt(const Control& form, double scale) {
    return {qRound(form.place.width * scale), qRound(form.place.height * scale)};
}

QRect screenOf(const QWidget& widget) {
    const QScreen* screen = widget.screen() != nullptr ? widget.screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

/// The content fills the window at one scale and stands in its middle.
void fitContent(const Control& form) {
    const Shown& window = windows.at(&form);
    const double scale = scaleThatFits(form, window.widget->size());
    const QSize content = sizeAt(form, scale);
    geometry::setScale(form, scale);
    if (isMain(form)) look::setUnit(scale * twipsPerPixel);
    geometry::setOrigin(form, {(window.widget->width() - content.width()) / 2,
                               (window.widget->height() - content.height()) / 2});
    window.layOut();
}

void toggleFullScreen(QWidget& widget) { widget.setWindowState(widget.windowState() ^ Qt::WindowFullScreen); }

void makeMain(Control& form, QWidget& widget) {
    const QRect screen = screenOf(widget);
    const QSize room(qRound(screen.width() * shareOfScreen),
                     qRound(screen.height() * shareOfScreen) - frameHeight);
    geometry::setScale(form, scaleThatFits(form, room));
    widget.resize(sizeAt(form, geometry::scaleOf(form)));
    widget.setMinimumSize(sizeAt(form, 1.0 / 20));
    hookEvents(&widget, [&form, &widget](QEvent* event) {
        if (event->type() == QEvent::Resize) fitContent(form);
        const bool key = event->type() == QEvent::KeyPress;
        if (!key || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F11) return false;
        toggleFullScreen(widget);
        return true;
    });
}

/// The window goes when the record says so.
void hookClosing(QWidget& widget, Control& form) {
    hookEvents(&widget, [&form](QEvent* event) {
        if (event->type() != QEvent::Close) return false;
        faces::act([&form] { person::close(form); });
        event->ignore();
        return true;
    });
}

Qt::WindowFlags flagsOf(const Control& form) {
    if (isMain(form)) return Qt::Window;
    if (form.window == WindowKind::Splash) return Qt::SplashScreen | Qt::FramelessWindowHint;
    Qt::WindowFlags flags =
        Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::MSWindowsFixedSizeDialogHint;
    if (form.on.close) flags |= Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint;
    return flags;
}

/// Dialogs stand in the middle of the screen, at the scale of the main window and with a size that is fixed.
void openDialog(const Control& form, QWidget& widget) {
    const QWidget& main = *mainWindow();
    const QRect screen = screenOf(main);
    const double scale =
        std::min(geometry::scaleOf(*mainForm), scaleThatFits(form, screen.size() * dialogShare));
    widget.setFixedSize(sizeAt(form, scale));
    fitContent(form);
    QRect place(QPoint(0, 0), widget.size());
    place.moveCenter(screen.center());
    widget.move(place.topLeft());
}

}  // namespace

void make(Control& form, std::function<void()> layOut) {
    if (isMain(form)) mainForm = &form;
    QWidget* parent = isMain(form) ? nullptr : mainWindow();
    auto* widget = new QWidget(parent, flagsOf(form));
    widget->setObjectName(faces::toQt(form.form));
    widget->setWindowTitle(faces::toQt(form.caption));
    windows[&form] = {widget, std::move(layOut)};
    hookClosing(*widget, form);
    if (isMain(form)) makeMain(form, *widget);
}

QWidget* of(const Control& form) { return windows.at(&form).widget; }

QWidget* mainWindow() { return of(*mainForm); }

void show(Control& form, Property property) {
    QWidget& widget = *windows.at(&form).widget;
    if (property == Property::Caption) widget.setWindowTitle(faces::toQt(form.caption));
    if (property != Property::Visible) return;
    if (form.visible && !isMain(form)) openDialog(form, widget);
    widget.setVisible(form.visible);
    if (!form.visible) return;
    widget.raise();
    widget.activateWindow();
}

}  // namespace formWindow
