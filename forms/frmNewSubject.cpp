#include "forms/frmNewSubject.h"

FrmNewSubject frmNewSubject;

void designFrmNewSubject() {
    FrmNewSubject& f = frmNewSubject;
    design::form(f.form, "frmNewSubject", "Subject Info", 6600, 5700);
    const design::Container form{&f.form};
    design::label(form, NAMED(f, tagLogin), {240, 270, 1200, 255}, "Login:");
    design::label(form, NAMED(f, lblLogin), {1500, 255, 4860, 300}).look = {225, true};
    design::label(form, NAMED(f, tagMajor), {240, 795, 1200, 255}, "Major:");
    design::place(form, NAMED(f, boxMajor), Kind::ComboBox, {1500, 720, 4860, 405}, "Major");
    design::label(form, NAMED(f, lblGender), {240, 1365, 1200, 255}, "Gender:");
    design::place(form, NAMED(f, optFemale), Kind::OptionButton, {1500, 1320, 1500, 345}, "Female").value = 1;
    design::place(form, NAMED(f, optMale), Kind::OptionButton, {3120, 1320, 1500, 345}, "Male");
    design::label(form, NAMED(f, tagAge), {240, 1935, 1200, 255}, "Age:");
    design::place(form, NAMED(f, txtAge), Kind::TextBox, {1500, 1860, 1500, 405});
    design::label(form, NAMED(f, lblHistory), {240, 2490, 6120, 255},
                  "Briefly describe your familiarity with the medical field.");
    design::place(form, NAMED(f, txtHistory), Kind::TextBox, {240, 2820, 6120, 1875}).multiLine = true;
    design::button(form, NAMED(f, btnBegin), {2700, 4935, 1740, 525}, "Begin").look.primary = true;
    design::button(form, NAMED(f, btnCancel), {4620, 4935, 1740, 525}, "Cancel");
    f.Cleared = false;
    design::finish(f.form);
}
