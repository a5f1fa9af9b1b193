#include "forms/registry.h"

#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmOptions.h"
#include "forms/frmSplash.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"

namespace registry {

void designForms() {
    windows::reset();
    designFrmTavix();
    designFrmSplash();
    designFrmLogin();
    designFrmNewSubject();
    designFrmDiagnosis();
    designFrmOptions();
}

void reset() {
    designForms();
    for (Control* control : allControls()) control->on = {};
    forgetWatchers();
    forgetPlotWatchers();
}

std::vector<Control*> forms() {
    return {&frmTavix.form,      &frmSplash.form,    &frmLogin.form,
            &frmNewSubject.form, &frmDiagnosis.form, &frmOptions.form};
}

Control* find(const std::string& name) {
    for (Control* control : allControls()) {
        if (fullName(*control) == name) return control;
    }
    return nullptr;
}

std::vector<Control*> childrenOf(const Control& container) {
    std::vector<Control*> children;
    for (Control* control : allControls()) {
        if (control->parent == &container) children.push_back(control);
    }
    return children;
}

}  // namespace registry
