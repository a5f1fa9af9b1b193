// Faces of buttons, tick boxes and option buttons.
#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

#include "qt/edge.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"

namespace faces {

namespace {

constexpr int padding = 12;  // pixels at both sides together, the frame included

void setButtonText(QPushButton& button, const Control& control) {
    const QSize room(button.width() - padding, button.height() - padding / 2);
    QFont font = look::font(control.look, geometry::scaleOf(control));
    font.setStyleStrategy(QFont::PreferNoShaping);  // "==>" as it is written and not as an arrow
    const QString caption = toQt(control.caption);
    const QString bare = QString(caption).remove('&');
    const QString broken = geometry::brokenInTwo(bare, font, room.width());
    font = geometry::fitted(font, broken, room, 0);
    button.setFont(font);
    button.setText(broken == bare ? caption : geometry::brokenInTwo(caption, font, 0));
}

/// Keys pass the control's handler first; Enter presses a button as the space bar does.
bool seeKey(QPushButton& button, const Control& control, const QKeyEvent& event) {
    bool swallowed = false;
    edge::run([&] { swallowed = swallowsKey(control, event); });
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!swallowed && enter) button.click();
    return swallowed || enter;
}

template <class Box>
Face checkable(Control& control, QWidget* parent, const std::function<void()>& press) {
    auto* box = new Box(parent);
    box->setAutoExclusive(false);
    const auto showValue = [box, &control] { box->setChecked(control.value != 0); };
    edge::connect(box, &QAbstractButton::clicked, [press, showValue] {
        press();
        showValue();
    });
    const auto restyle = [box, &control] {
        const QFont font = look::font(control.look, geometry::scaleOf(control));
        const int mark = font.pixelSize() * 2;  // the box and its gap
        box->setFont(geometry::fitted(font, toQt(control.caption), box->size() - QSize(mark, 0), 0));
        box->setText(literally(control.caption));
    };
    return {box,
            [showValue, restyle](Property property) {
                if (property == Property::Value) showValue();
                if (property == Property::Caption) restyle();
            },
            [showValue, restyle] {
                restyle();
                showValue();
            },
            {}};
}

}  // namespace

Face button(Control& control, QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setAutoDefault(false);
    if (control.look.primary) button->setProperty("role", "primary");
    edge::connect(button, &QPushButton::clicked, [&control] {
        if (control.on.click) control.on.click();
    });
    hookEvents(button, [button, &control](QEvent* event) {
        if (event->type() != QEvent::KeyPress) return false;
        return seeKey(*button, control, *static_cast<QKeyEvent*>(event));
    });
    const auto restyle = [button, &control] { setButtonText(*button, control); };
    return {button,
            [restyle](Property property) {
                if (property == Property::Caption) restyle();
            },
            restyle,
            {}};
}

Face tickBox(Control& control, QWidget* parent) {
    return checkable<QCheckBox>(control, parent,
                                [&control] { setValue(control, isTicked(control) ? 0 : 1); });
}

Face optionButton(Control& control, QWidget* parent) {
    Face face = checkable<QRadioButton>(control, parent, [&control] { setValue(control, 1); });
    if (!control.on.doubleClick) return face;
    hookEvents(face.widget, [&control](QEvent* event) {
        if (event->type() != QEvent::MouseButtonDblClick) return false;
        edge::run(control.on.doubleClick);
        return true;
    });
    return face;
}

}  // namespace faces
