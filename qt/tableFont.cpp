#include "qt/tableFont.h"

#include <QSize>

#include "forms/frmTavix.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"

namespace tableFont {

namespace {

constexpr double headerShare = 18.0 / 15.0;

bool isOnTestsPage(const Control& control) {
    return &control == &frmTavix.lblBaseRates || &control == &frmTavix.lblSvD || &control == &frmTavix.txtSvD;
}

QString textOf(const Control& control) {
    if (isOnTestsPage(control))
        return faces::toQt(frmTavix.lblBaseRates.caption + "\n" + frmTavix.txtSvD.text);
    if (control.kind == Kind::ListBox) {
        std::string lines;
        for (const std::string& item : control.items) lines += item + "\n";
        return faces::toQt(lines);
    }
    return faces::toQt(control.kind == Kind::TextBox ? control.text : control.caption);
}

}  // namespace

QFont of(const Control& control, int width) {
    QFont font = look::font(control.look, geometry::scaleOf(control));
    font = geometry::fitted(font, textOf(control), QSize(width, 1 << 16), 0);
    if (&control == &frmTavix.lblSvD) {
        font.setPixelSize(qRound(font.pixelSize() * headerShare));
        font.setBold(true);
    }
    return font;
}

}  // namespace tableFont
