#include "forms/frmLogin.h"

FrmLogin frmLogin;

void designFrmLogin() {
    FrmLogin& f = frmLogin;
    design::form(f.form, "frmLogin", "Login", 5400, 2460);
    const design::Container form{&f.form};
    design::label(form, NAMED(f, tagName), {240, 330, 1200, 255}, "Name:");
    design::place(form, NAMED(f, txtName), Kind::TextBox, {1500, 255, 3660, 405});
    design::label(form, NAMED(f, tagType), {240, 945, 1200, 255}, "Scenario:");
    design::place(form, NAMED(f, cboType), Kind::ComboBox, {1500, 870, 3660, 405});
    design::button(form, NAMED(f, cmdOk), {1500, 1695, 1740, 525}, "Ok").enabled = false;
    f.cmdOk.look.primary = true;
    design::button(form, NAMED(f, cmdQuit), {3420, 1695, 1740, 525}, "Quit");
    f.IsNew = false;
    f.QuitMe = false;
    design::finish(f.form);
}
