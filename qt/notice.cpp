// tavix-notice TEXT: one text in a box, for tavix-study when it was started where nobody sees a terminal.
#include <QApplication>
#include <QMessageBox>

#include "qt/desktopTheme.h"
#include "qt/emblem.h"
#include "qt/look.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    look::apply(desktopTheme::isDark());
    QApplication::setWindowIcon(emblem::icon());
    QMessageBox(QMessageBox::NoIcon, "Tavix", QApplication::arguments().value(1), QMessageBox::Ok).exec();
    return 0;
}
