#include "qt/tableFont.h"

#include <QSize>

#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"

namespace tableFont {

namespace {

QFont fitting(const Control& control, const std::string& lines, int width) {
    const QFont font = look::font(control.look, geometry::scaleOf(control));
    return geometry::fitted(font, faces::toQt(lines), QSize(width, 1 << 16), 0);
}

std::string linesOf(const Control& control) {
    std::string lines;
    for (const std::string& item : control.items) lines += item + "\n";
    return lines;
}

}  // namespace

QFont of(const Control& control, int width) { return fitting(control, linesOf(control), width); }

QFont ofChoices(const Control& control, int width) {
    std::string lines;
    for (const Control* other : allControls()) {
        if (other->form == control.form && other->name == control.name) lines += linesOf(*other);
    }
    return fitting(control, lines, width);
}

}  // namespace tableFont
