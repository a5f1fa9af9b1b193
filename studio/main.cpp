// tavix-studio: the window in which a study is made, checked, tried, watched and handed over.
#include <QApplication>
#include <QStandardPaths>
#include <QTimer>

#include "qt/desktopTheme.h"
#include "qt/emblem.h"
#include "qt/look.h"
#include "studio/window.h"
#include "studio/workspace.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("tavix-studio");
    QApplication::setOrganizationName("tavix");
    look::apply(desktopTheme::isDark());
    QApplication::setWindowIcon(emblem::icon());
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    workspace::setDraftRoot((own + "/drafts").toStdString());
    window::show();
    QTimer::singleShot(0, workspace::sweepRehearsals);
    const QString study = QApplication::arguments().value(1);
    if (!study.isEmpty()) QTimer::singleShot(0, [study] { window::open(study.toStdString()); });
    return QApplication::exec();
}
