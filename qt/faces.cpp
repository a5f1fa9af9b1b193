#include "qt/faces.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <memory>
#include <vector>

#include "forms/keys.h"
#include "forms/lineBreaks.h"
#include "forms/person.h"
#include "qt/eventHook.h"
#include "qt/keyPause.h"

namespace faces {

namespace {

int depth = 0;
const Control* typedIn = nullptr;

bool writes(Qt::KeyboardModifiers modifiers) {
    const bool control = (modifiers & Qt::ControlModifier) != 0;
    const bool alt = (modifiers & Qt::AltModifier) != 0;
    return control == alt && (modifiers & Qt::MetaModifier) == 0;  // both together are the third level
}

std::vector<int> charactersOf(const QString& text) {
    std::vector<int> codes;
    for (const uint code : text.toUcs4()) {
        if (code >= keys::space && code != 127) codes.push_back(static_cast<int>(code));
    }
    return codes;
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
    return charactersOf(event.text());
}

/// False if the record has no use for the keys.
bool typesIn(Control& control, const std::vector<int>& codes) {
    bool taken = true;
    const Control* before = std::exchange(typedIn, &control);
    act([&] {
        for (const int code : codes) taken = person::key(control, code);
    });
    typedIn = before;
    return taken;
}

bool holdsText(const Control& control) {
    return control.kind == Kind::TextBox || control.kind == Kind::ComboBox;
}

/// A key that is held down writes on and presses once; Enter, which leaves a box of one line, presses.
bool isHeldTooLong(const Control& control, const QKeyEvent& event, int code) {
    if (!keyPause::isHeldDown(event)) return false;
    return code == keys::enter ? !control.multiLine : !holdsText(control) && control.kind != Kind::ListBox;
}

/// True if the toolkit has nothing more to do with the key.
bool takesKey(Control& control, const QKeyEvent& event) {
    const std::vector<int> codes = codesOf(event);
    if (codes.empty()) return false;
    return isHeldTooLong(control, event, codes.front()) || typesIn(control, codes);
}

/// What an input method has composed comes in as so many keys, and the rules of keys hold for it.
bool takesComposed(QWidget* widget, Control& control, QInputMethodEvent& event) {
    if (event.commitString().isEmpty() || event.replacementLength() > 0 || !holdsText(control)) return false;
    QInputMethodEvent rest(event.preeditString(), event.attributes());
    QCoreApplication::sendEvent(widget, &rest);
    typesIn(control, charactersOf(event.commitString()));
    return true;
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
    hookEvents(widget, [widget, &control](QEvent* event) {
        if (event->type() == QEvent::InputMethod)
            return takesComposed(widget, control, *static_cast<QInputMethodEvent*>(event));
        return event->type() == QEvent::KeyPress && takesKey(control, *static_cast<QKeyEvent*>(event));
    });
}

bool isTyping(const Control& control) { return typedIn == &control; }

std::function<bool()> hookDoubleClicks(QWidget* widget, Control& control) {
    const auto doubled = std::make_shared<bool>(false);
    hookEvents(widget, [doubled, &control](QEvent* event) {
        if (event->type() == QEvent::MouseButtonPress) *doubled = false;
        if (event->type() != QEvent::MouseButtonDblClick) return false;
        if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) return false;
        *doubled = true;
        act([&control] { person::pressAgain(control); });
        return true;
    });
    return [doubled] { return std::exchange(*doubled, false); };
}

}  // namespace faces
