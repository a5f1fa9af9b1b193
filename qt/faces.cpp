#include "qt/faces.h"

#include <QKeyEvent>

namespace faces {

namespace {

int depth = 0;

}  // namespace

QString toQt(const std::string& text) {
    QString result = QString::fromStdString(text);
    return result.replace("\r\n", "\n");
}

std::string fromQt(const QString& text) { return text.toStdString(); }

QString literally(const std::string& text) { return toQt(text).replace("&", "&&"); }

int keyCode(const QKeyEvent& event) {
    constexpr int backspace = 8;
    constexpr int enter = 13;
    switch (event.key()) {
        case Qt::Key_Backspace: return backspace;
        case Qt::Key_Return:
        case Qt::Key_Enter: return enter;
        default: break;
    }
    const bool shortcut =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (shortcut || event.text().isEmpty()) return 0;
    const auto code = static_cast<int>(event.text().toUcs4().front());
    return code >= ' ' && code != 127 ? code : 0;
}

bool swallowsKey(const Control& control, const QKeyEvent& event) {
    const int code = keyCode(event);
    return code != 0 && control.on.key && !control.on.key(code);
}

bool isShowing() { return depth > 0; }
Showing::Showing() { ++depth; }
Showing::~Showing() { --depth; }

}  // namespace faces
