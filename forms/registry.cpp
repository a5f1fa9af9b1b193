#include "forms/registry.h"

#include <unordered_map>

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
    static std::unordered_map<std::string, Control*> byName;
    if (byName.size() != allControls().size()) {
        for (Control* control : allControls()) byName[fullName(*control)] = control;
    }
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : found->second;
}

std::vector<Control*> childrenOf(const Control& container) {
    std::vector<Control*> children;
    for (Control* control : allControls()) {
        if (control->parent == &container) children.push_back(control);
    }
    return children;
}

}  // namespace registry
