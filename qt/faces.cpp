#include "qt/faces.h"

#include <QKeyEvent>
#include <memory>
#include <vector>

#include "forms/keys.h"
#include "forms/lineBreaks.h"
#include "forms/person.h"
#include "qt/eventHook.h"

namespace faces {

namespace {

int depth = 0;
const Control* typedIn = nullptr;

bool writes(Qt::KeyboardModifiers modifiers) {
    const bool control = (modifiers & Qt::ControlModifier) != 0;
    const bool alt = (modifiers & Qt::AltModifier) != 0;
    return control == alt && (modifiers & Qt::MetaModifier) == 0;  // both together are the third level
}

/// Character codes of a key press; none for a key that writes nothing.
std::vector<int> codesOf(const QKeyEvent& event) {
    if (!writes(event.modifiers())) return {};
    switch (event.key()) {
        case Qt::Key_Backspace: return {keys::backspace};
        case Qt::Key_Return:
        case Qt::Key_Enter: return {keys::enter};
        default: break;
    }
    std::vector<int> codes;
    for (const uint code : event.text().toUcs4()) {
        if (code >= keys::space && code != 127) codes.push_back(static_cast<int>(code));
    }
    return codes;
}

bool holdsText(const Control& control) {
    return control.kind == Kind::TextBox || control.kind == Kind::ComboBox;
}

/// True if the toolkit has nothing more to do with the key. One that is held down writes on and presses once.
bool takesKey(Control& control, const QKeyEvent& event) {
    const std::vector<int> codes = codesOf(event);
    if (codes.empty()) return false;
    if (event.isAutoRepeat() && !holdsText(control) && control.kind != Kind::ListBox) return true;
    bool taken = true;
    const Control* before = std::exchange(typedIn, &control);
    act([&] {
        for (const int code : codes) taken = person::key(control, code);
    });
    typedIn = before;
    return taken;
}

}  // namespace

QString toQt(const std::string& text) { return QString::fromStdString(lineBreaks::seen(text)); }

std::string fromQt(const QString& text) { return text.toStdString(); }

QString literally(const std::string& text) { return toQt(text).replace("&", "&&"); }

bool isShowing() { return depth > 0; }
Showing::Showing() { ++depth; }
Showing::~Showing() { --depth; }

void act(const std::function<void()>& deed) {
    if (isShowing()) return;
    edge::run([&deed] {
        try {
            deed();
        } catch (const Refused&) {
            return;  // as on any screen, nothing happens
        }
    });
}

void hookKeys(QWidget* widget, Control& control) {
    hookEvents(widget, [&control](QEvent* event) {
        return event->type() == QEvent::KeyPress && takesKey(control, *static_cast<QKeyEvent*>(event));
    });
}

bool isTyping(const Control& control) { return typedIn == &control; }

std::function<bool()> hookDoubleClicks(QWidget* widget, Control& control) {
    const auto doubled = std::make_shared<bool>(false);
    hookEvents(widget, [doubled, &control](QEvent* event) {
        if (event->type() == QEvent::MouseButtonPress) *doubled = false;
        if (event->type() != QEvent::MouseButtonDblClick) return false;
        *doubled = true;
        act([&control] { person::pressAgain(control); });
        return true;
    });
    return [doubled] { return std::exchange(*doubled, false); };
}

}  // namespace faces
