#include "forms/frmLogin.h"

FrmLogin frmLogin;

void designFrmLogin() {
    FrmLogin& f = frmLogin;
    design::form(f.form, "frmLogin", "Login", 5400, 2460);
    const design::Container form{&f.form};
    design::label(form, f.tagName, "tagName", {240, 330, 1200, 255}, "Name:");
    design::place(form, f.txtName, Kind::TextBox, "txtName", {1500, 255, 3660, 405});
    design::label(form, f.tagType, "tagType", {240, 945, 1200, 255}, "Scenario:");
    design::place(form, f.cboType, Kind::ComboBox, "cboType", {1500, 870, 3660, 405});
    design::button(form, f.cmdOk, "cmdOk", {1500, 1695, 1740, 525}, "Ok").enabled = false;
    f.cmdOk.look.primary = true;
    design::button(form, f.cmdQuit, "cmdQuit", {3420, 1695, 1740, 525}, "Quit");
    f.IsNew = false;
    f.QuitMe = false;
    design::finish(f.form);
}
