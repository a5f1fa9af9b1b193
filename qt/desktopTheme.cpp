#include "qt/desktopTheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#include <optional>

namespace desktopTheme {

namespace {

constexpr int patience = 150;  // milliseconds that a start may wait for the answer
constexpr uint preferDark = 1;

/// The desktop's own setting, where a settings service answers on the session's bus.
std::optional<uint> colourScheme() {
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return std::nullopt;
    QDBusMessage question =
        QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                       "org.freedesktop.portal.Settings", "Read");
    question << "org.freedesktop.appearance"
             << "color-scheme";
    const QDBusMessage reply = QDBusConnection::sessionBus().call(question, QDBus::Block, patience);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return std::nullopt;
    const QVariant outer = reply.arguments().first().value<QDBusVariant>().variant();
    return outer.canConvert<QDBusVariant>() ? outer.value<QDBusVariant>().variant().toUInt() : outer.toUInt();
}

}  // namespace

bool isDark() {
    const std::optional<uint> scheme = colourScheme();
    if (scheme && *scheme != 0) return *scheme == preferDark;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

}  // namespace desktopTheme
