#include "qt/mirror.h"

#include <QApplication>
#include <map>

#include "forms/frmTavix.h"
#include "forms/person.h"
#include "forms/registry.h"
#include "qt/edge.h"
#include "qt/faces.h"
#include "qt/formWindow.h"
#include "qt/geometry.h"
#include "qt/keyPause.h"
#include "qt/modality.h"
#include "qt/names.h"
#include "qt/optionGroups.h"
#include "qt/pageKeys.h"
#include "qt/radioSpeech.h"
#include "qt/tableGrid.h"

namespace mirror {

namespace {

std::map<const Control*, Face> faceOf;

Face makeFace(Control& control, QWidget* parent) {
    switch (control.look.drawing) {
        case Look::Drawing::HealthTrace: return faces::monitor(control, parent);
        case Look::Drawing::Emblem: return faces::emblem(parent);
        case Look::Drawing::OfItsKind: break;
    }
    switch (control.kind) {
        case Kind::Frame: return faces::frame(control, parent);
        case Kind::Label: return faces::label(control, parent);
        case Kind::Button: return faces::button(control, parent);
        case Kind::TextBox:
            return control.multiLine ? faces::textArea(control, parent) : faces::lineEdit(control, parent);
        case Kind::TickBox: return faces::tickBox(control, parent);
        case Kind::OptionButton: return faces::optionButton(control, parent);
        case Kind::ComboBox: return faces::comboBox(control, parent);
        case Kind::ListBox: return faces::listBox(control, parent);
        case Kind::ScrollBar: return faces::meter(control, parent);
        case Kind::TabControl: return faces::tabs(control, parent);
        case Kind::Chart: return faces::chart(control, parent);
        case Kind::Picture: return faces::picture(control, parent);
        case Kind::Line: return faces::line(control, parent);
        case Kind::Form:
        case Kind::Timer: break;
    }
    return {};
}

void place(Control& control) {
    const Face& face = faceOf.at(&control);
    face.widget->setGeometry(geometry::place(control));
    face.rescale();
}

/// What one text of a table needs can move the columns of the others, and change the size of all.
void showTable(const Control& control) {
    if (control.look.table == 0) return;
    const bool resized = tableGrid::fit(control);
    for (Control* member : tableGrid::membersOf(control)) {
        const bool moves = member->look.cells != Look::Cells::None && member->page == control.page;
        if (resized || moves) faceOf.at(member).rescale();
    }
}

void layOut(Control& form) {
    const faces::Showing showing;
    for (Control* control : allControls()) {
        const bool stands = control->form == form.form && control->look.table != 0;
        if (stands && tableGrid::membersOf(*control).front() == control) tableGrid::fit(*control);
    }
    for (Control* control : allControls()) {
        if (control->form == form.form && faceOf.contains(control) && control != &form) place(*control);
    }
}

/// Where no key does anything: the tabs of the form, or nowhere.
void giveFocusAway(QWidget& window) {
    for (const auto& [control, face] : faceOf) {
        if (control->kind == Kind::TabControl && face.widget->window() == &window && face.widget->isVisible())
            return face.widget->setFocus();
    }
    if (window.focusWidget() != nullptr) window.focusWidget()->clearFocus();
}

/// What stands on a page that is not up cannot have the keys, and they must not go where they went before.
void giveFocus(const Control& control) {
    QWidget& widget = *faceOf.at(&control).widget;
    const bool pageIsUp = !widget.window()->isVisible() || widget.isVisible();
    pageIsUp ? widget.setFocus() : giveFocusAway(*widget.window());
}

void show(Control& control, Property property) {
    const Face& face = faceOf.at(&control);
    switch (property) {
        case Property::Visible:
            face.widget->setVisible(control.visible);
            if (control.parent->kind == Kind::Form) formWindow::fit(*control.parent);
            if (control.visible && control.comesByItself) keyPause::begin(*face.widget);
            break;
        case Property::Enabled: face.widget->setEnabled(control.enabled); break;
        case Property::Place: place(control); break;
        case Property::Focus: giveFocus(control); break;
        default: face.show(property);
    }
    if (property == Property::Caption) face.widget->setAccessibleName(names::accessibleName(control));
    if (property == Property::Caption || property == Property::Text) showTable(control);
}

/// The whole form as it stands, after its design.
void showAll(Control& form) {
    for (Control* control : allControls()) {
        if (control->form != form.form || !faceOf.contains(control) || control == &form) continue;
        QWidget* widget = faceOf.at(control).widget;
        widget->setVisible(control->visible);
        widget->setEnabled(control->enabled);
        widget->setAccessibleName(names::accessibleName(*control));
    }
    layOut(form);
}

void onChange(Control& control, Property property) {
    if (control.kind == Kind::Timer) return;
    const faces::Showing showing;
    if (control.kind != Kind::Form) {
        QWidget& window = *faceOf.at(&control).widget->window();
        const QWidget* before = window.focusWidget();
        show(control, property);
        // From what is hidden or disabled the toolkit hands the focus on to whatever comes next.
        if (property != Property::Focus && window.focusWidget() != before) giveFocusAway(window);
    } else if (property == Property::Design) {
        showAll(control);
        formWindow::show(control, property);
    } else {
        formWindow::show(control, property);
    }
}

void buildControls(Control& form) {
    for (Control* control : allControls()) {
        if (control->form != form.form || control == &form || control->kind == Kind::Timer) continue;
        const Control& container = *control->parent;
        QWidget* parent =
            container.kind == Kind::Form ? formWindow::of(form) : faceOf.at(&container).inside(control->page);
        Face face = makeFace(*control, parent);
        names::describe(*face.widget, *control);
        faceOf[control] = std::move(face);
    }
}

/// The person moved the focus; what the toolkit moves while the record is being shown does not count.
void takeFocus(QWidget* /*old*/, QWidget* now) {
    Control* control = now == nullptr ? nullptr : controlOf(now);
    if (control != nullptr) faces::act([control] { person::reach(*control); });
}

}  // namespace

void build() {
    radioSpeech::begin();
    for (Control* form : registry::forms()) {
        formWindow::make(*form, [form] { layOut(*form); });
        buildControls(*form);
        showAll(*form);
    }
    watchControls(onChange);
    optionGroups::follow(widgetOf);
    pageKeys::follow(widgetOf);
    modality::enforce();
    edge::connect(qApp, &QApplication::focusChanged, takeFocus);
}

QWidget* widgetOf(const Control& control) {
    return control.kind == Kind::Form ? formWindow::of(control) : faceOf.at(&control).widget;
}

Control* controlOf(QWidget* widget) {
    for (QWidget* at = widget; at != nullptr; at = at->parentWidget()) {
        for (const auto& [control, face] : faceOf) {
            if (face.widget == at) return const_cast<Control*>(control);
        }
    }
    return nullptr;
}

}  // namespace mirror
