#include "qt/names.h"

#include "qt/faces.h"

namespace names {

void describe(QWidget& widget, const Control& control) {
    widget.setObjectName(faces::toQt(fullName(control)));
}

}  // namespace names
