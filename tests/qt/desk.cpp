#include "tests/qt/desk.h"

#include <QApplication>

#include "forms/frmSplash.h"
#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "qt/mirror.h"
#include "screens/wiring.h"
#include "tests/qt/offscreen.h"

namespace desk {

void lay() {
    if (qApp != nullptr) return;
    offscreen::begin();
    wiring::wireForms();
    mirror::build();
}

std::vector<Control*> workForms() {
    std::vector<Control*> forms = registry::forms();
    std::erase(forms, &frmSplash.form);
    return forms;
}

/// Buttons that the toolkit keeps ready inside a widget and does not show.
bool isHiddenPart(QWidget& widget) {
    const Control* control = mirror::controlOf(&widget);
    return control == nullptr || (mirror::widgetOf(*control) != &widget && widget.isHidden());
}

void showWhole(Control& form) {
    for (Control* control : allControls()) {
        const bool development = control == &frmTavix.fraDeleteLater;
        if (control->form == form.form && control->kind != Kind::Timer && !development)
            setVisible(*control, true);
    }
    setVisible(form, true);
    QCoreApplication::processEvents();
}

std::vector<QWidget*> tabOrder(const Control& form) {
    std::vector<QWidget*> order;
    QWidget* window = mirror::widgetOf(form);
    const QWidget* development = mirror::widgetOf(frmTavix.fraDeleteLater);
    for (QWidget* at = window->nextInFocusChain(); at != window; at = at->nextInFocusChain()) {
        const bool reached = (at->focusPolicy() & Qt::TabFocus) != 0 && at->focusProxy() == nullptr;
        if (!reached || at->window() != window || development->isAncestorOf(at)) continue;
        if (!isHiddenPart(*at)) order.push_back(at);
    }
    return order;
}

}  // namespace desk
