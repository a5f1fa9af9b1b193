#include "tests/qt/offscreen.h"

#include <QApplication>

#include "qt/look.h"

namespace offscreen {

void begin() {
    if (qApp != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TAVIX_TESTS "/screen.json");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    static int count = 1;
    static char name[] = "tavix";
    static char* arguments[] = {name, nullptr};
    static const auto* application = new QApplication(count, arguments);
    Q_UNUSED(application);
    look::apply(false);
}

}  // namespace offscreen
