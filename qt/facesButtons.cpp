// Faces of buttons, tick boxes and option buttons.
#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

#include "forms/person.h"
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

template <class Box>
Face checkable(Control& control, QWidget* parent) {
    auto* box = new Box(parent);
    box->setAutoExclusive(false);
    const auto showValue = [box, &control] { box->setChecked(control.value != 0); };
    const auto endsDoubleClick =
        control.on.doubleClick ? hookDoubleClicks(box, control) : [] { return false; };
    const auto press = [endsDoubleClick, &control] {
        if (!endsDoubleClick()) person::press(control);
    };
    onPerson(box, &QAbstractButton::clicked, press, showValue);
    hookKeys(box, control);
    const auto restyle = [box, &control] {
        const QFont font = look::font(control.look, geometry::scaleOf(control));
        const int mark = font.pixelSize() * 2;  // the box and its gap
        box->setFont(geometry::fitted(font, toQt(control.caption), box->size() - QSize(mark, 0), 0));
        box->setText(geometry::cut(*box, toQt(control.caption), box->width() - mark).replace("&", "&&"));
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
    onPerson(
        button, &QPushButton::clicked, [&control] { person::press(control); }, [] {});
    hookKeys(button, control);
    const auto restyle = [button, &control] { setButtonText(*button, control); };
    return {button,
            [restyle](Property property) {
                if (property == Property::Caption) restyle();
            },
            restyle,
            {}};
}

Face tickBox(Control& control, QWidget* parent) { return checkable<QCheckBox>(control, parent); }

/// The arrow keys choose in the group.
Face optionButton(Control& control, QWidget* parent) {
    Face face = checkable<QRadioButton>(control, parent);
    hookEvents(face.widget, [&control](QEvent* event) {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool on = key == Qt::Key_Down || key == Qt::Key_Right;
        if (!on && key != Qt::Key_Up && key != Qt::Key_Left) return false;
        act([&control, on] { person::chooseBeside(control, on ? 1 : -1); });
        return true;
    });
    return face;
}

}  // namespace faces
