// tavix-studio: the window in which a study is made, checked, tried, watched and handed over.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QStandardPaths>
#include <QTimer>

#include "platform/privacy.h"
#include "qt/desktopTheme.h"
#include "qt/emblem.h"
#include "qt/look.h"
#include "studio/window.h"
#include "studio/workspace.h"

int main(int argc, char** argv) {
    privacy::begin();
    CLI::App arguments{"Makes, checks, tries and watches studies in a window."};
    std::string study;
    arguments.add_option("STUDY", study, "the folder of a study, or its store; it is opened at once");
    arguments.footer(
        "What is not saved when the program ends is kept, and offered when the study is opened again.");
    CLI11_PARSE(arguments, argc, argv);

    int toolkitArguments = 1;
    const QApplication app(toolkitArguments, argv);
    QApplication::setApplicationName("tavix-studio");
    QApplication::setOrganizationName("tavix");
    look::apply(desktopTheme::isDark());
    QApplication::setWindowIcon(emblem::icon());
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    workspace::setDraftRoot((own + "/drafts").toStdString());
    window::show();
    QTimer::singleShot(0, workspace::sweepFolders);
    if (!study.empty()) QTimer::singleShot(0, [study] { window::open(study); });
    return QApplication::exec();
}
