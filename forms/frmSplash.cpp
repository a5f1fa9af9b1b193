#include "forms/frmSplash.h"

FrmSplash frmSplash;

void designFrmSplash() {
    FrmSplash& f = frmSplash;
    design::form(f.form, "frmSplash", "", 7380, 4245).window = WindowKind::Splash;
    const design::Container form{&f.form};
    design::place(form, NAMED(f, fraMainFrame), Kind::Frame, {120, 120, 7140, 4005});
    const design::Container frame{&f.fraMainFrame};
    design::place(frame, NAMED(f, Picture1), Kind::Picture, {240, 360, 2775, 3285}).look.drawing =
        Look::Drawing::Emblem;
    design::label(frame, NAMED(f, lblProductName), {3240, 900, 3660, 1050}, "Tavix*").look = {840, true};
    design::label(frame, NAMED(f, lblVersion), {3240, 2160, 3660, 330}, "Version 1.0").look = {240};
    design::label(frame, NAMED(f, lblPlatform), {3240, 2550, 3660, 330}, "Windows XP/Vista").look = {240};
    design::finish(f.form);
}
