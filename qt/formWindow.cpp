#include "qt/formWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <map>
#include <utility>

#include "forms/person.h"
#include "forms/registry.h"
#include "qt/edge.h"
#include "qt/eventHook.h"
#include "qt/faceMeter.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/keyPause.h"
#include "qt/look.h"
#include "qt/realTimers.h"

namespace formWindow {

namespace {

struct Shown {
    QWidget* widget;
    std::function<void()> layOut;
    QSizeF content;       ///< twips, at the last layout
    bool placed = false;  ///< a dialog: it has come up since its design
};
std::map<const Control*, Shown> windows;
const Control* mainForm = nullptr;

constexpr double shareOfScreen = 0.94;      // what the main screen takes at first, window frame left aside
constexpr double dialogShare = 0.9;         // what a dialog takes of the screen at most
constexpr double twipsPerPixel = 15;        // at the base scale
constexpr double leastScale = 1.0 / 15.25;  // device pixels per twip: the smallest texts can just be read
constexpr int frameHeight = 40;             // pixels of a title bar, about

bool isMain(const Control& form) { return form.window == WindowKind::Main; }

/// What a window shows of its form, twips: all of a dialog; of the main screen what is in use, which ends at
/// the right and below as far from its controls as it begins at the left.
QSizeF contentOf(const Control& form) {
    if (!isMain(form)) return {form.place.width, form.place.height};
    QSizeF content = {form.content.width, form.content.height};
    for (const Control* child : registry::childrenOf(form)) {
        const double bottom = child->place.top + child->place.height + form.content.left;
        if (child->visible) content.setHeight(std::max(content.height(), bottom));
    }
    return content;
}

double scaleThatFits(const Control& form, QSize room) {
    const QSizeF content = contentOf(form);
    return std::min(room.width() / content.width(), room.height() / content.height());
}

QSize sizeAt(const Control& form, double scale) { return (contentOf(form) * scale).toSize(); }

QRect screenOf(const QWidget& widget) {
    const QScreen* screen = widget.screen() != nullptr ? widget.screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

/// The content fills the window at one scale and stands in its middle.
void fitContent(const Control& form) {
    Shown& window = windows.at(&form);
    window.content = contentOf(form);
    const double scale = scaleThatFits(form, window.widget->size());
    const QSize content = sizeAt(form, scale);
    geometry::setScale(form, scale);
    if (isMain(form)) look::setUnit(scale * twipsPerPixel);
    geometry::setOrigin(form, {(window.widget->width() - content.width()) / 2,
                               (window.widget->height() - content.height()) / 2});
    window.layOut();
}

/// F11 is the main screen's, whichever window hears it.
void hookFullScreen(QWidget& widget) {
    hookEvents(&widget, [](QEvent* event) {
        const bool key = event->type() == QEvent::KeyPress;
        if (!key || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F11) return false;
        QWidget* main = mainWindow();
        main->setWindowState(main->windowState() ^ Qt::WindowFullScreen);
        return true;
    });
}

void makeMain(Control& form, QWidget& widget) {
    const QRect screen = screenOf(widget);
    const QSize room(qRound(screen.width() * shareOfScreen),
                     qRound(screen.height() * shareOfScreen) - frameHeight);
    geometry::setScale(form, scaleThatFits(form, room));
    widget.resize(sizeAt(form, geometry::scaleOf(form)));
    widget.setMinimumSize(sizeAt(form, leastScale / widget.devicePixelRatioF()));
    hookEvents(&widget, [&form](QEvent* event) {
        if (event->type() == QEvent::Resize) fitContent(form);
        return false;
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

/// Dialogs stand in the middle of the screen, or where they were moved since their design, at the scale of
/// the main window and with a size that is fixed.
void openDialog(const Control& form, QWidget& widget) {
    const QWidget& main = *mainWindow();
    const QRect screen = screenOf(main);
    const double wanted =
        std::max(geometry::scaleOf(*mainForm), faceMeter::leastScale(form, widget.devicePixelRatioF()));
    const double scale = std::min(wanted, scaleThatFits(form, screen.size() * dialogShare));
    widget.setFixedSize(sizeAt(form, scale));
    fitContent(form);
    bool& placed = windows.at(&form).placed;
    if (std::exchange(placed, true)) return;
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
    windows[&form] = {widget, std::move(layOut), {}, false};
    hookClosing(*widget, form);
    hookFullScreen(*widget);
    if (isMain(form)) {
        makeMain(form, *widget);
    } else {
        keepUp(*widget);
    }
}

void keepUp(QWidget& widget) {
    hookEvents(&widget, [&widget](QEvent* event) {
        if (event->type() != QEvent::WindowStateChange || !widget.isMinimized()) return false;
        QTimer::singleShot(0, &widget, [&widget] {
            edge::guard([&widget] {
                if (!widget.isVisible()) return;
                widget.setWindowState(widget.windowState() & ~Qt::WindowMinimized);
                widget.activateWindow();
            });
        });
        return false;
    });
}

void fit(Control& form) {
    if (isMain(form) && windows.at(&form).content != contentOf(form)) fitContent(form);
}

QWidget* of(const Control& form) { return windows.at(&form).widget; }

QWidget* mainWindow() { return of(*mainForm); }

void show(Control& form, Property property) {
    QWidget& widget = *windows.at(&form).widget;
    if (property == Property::Design) windows.at(&form).placed = false;
    if (property == Property::Caption) widget.setWindowTitle(faces::toQt(form.caption));
    if (property != Property::Visible) return;
    if (form.visible && !isMain(form)) openDialog(form, widget);
    if (form.visible && (form.comesByItself || realTimers::isFiring())) {
        keyPause::begin(widget);
    } else {
        keyPause::end(widget);
    }
    widget.setVisible(form.visible);
    if (!form.visible) return;
    widget.raise();
    widget.activateWindow();
}

}  // namespace formWindow
