#include "tests/studio/studioDesk.h"

#include <fmt/format.h>

#include <QApplication>
#include <QTabWidget>
#include <QTemporaryDir>
#include <filesystem>
#include <set>
#include <stdexcept>

#include "qt/look.h"
#include "studio/window.h"
#include "studio/workspace.h"

namespace studioDesk {

namespace fs = std::filesystem;

OwnStudy::OwnStudy() {
    fs::remove(folder + "/Patients");  // a link to the tests' own
    fs::copy(TAVIX_TESTS "/Patients", folder + "/Patients");
}

QMainWindow& lay() {
    static QMainWindow* main = nullptr;
    if (main != nullptr) return *main;
    static const QTemporaryDir own;
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TAVIX_TESTS "/screen.json");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    qputenv("XDG_CONFIG_HOME", own.path().toUtf8());
    static int count = 1;
    static char name[] = "tavix-studio";
    static char* arguments[] = {name, nullptr};
    // Never ended: the window lives as long as the tests.
    static const auto* application = new QApplication(count, arguments);
    Q_UNUSED(application);
    QApplication::setQuitOnLastWindowClosed(false);
    look::apply(false);
    workspace::setDraftRoot((own.path() + "/drafts").toStdString());
    window::show();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* const found = qobject_cast<QMainWindow*>(widget)) main = found;
    }
    main->activateWindow();
    QCoreApplication::processEvents();
    return *main;
}

void open(const TemporaryStudy& study) {
    lay();
    window::open(study.folder);
    QCoreApplication::processEvents();
}

QTreeWidget& tree() { return *named<QTreeWidget>("What the study consists of"); }

void go(const QString& entry, const QString& tab) {
    const auto found = tree().findItems(entry, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) throw std::runtime_error(entry.toStdString() + " is not in the tree");
    tree().setCurrentItem(found.front());
    for (QTabWidget* tabs : lay().findChildren<QTabWidget*>()) {
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->isVisible() && tabs->tabText(i) == tab) tabs->setCurrentIndex(i);
        }
    }
    QCoreApplication::processEvents();
}

QAction& action(const QString& text) {
    for (QAction* each : lay().findChildren<QAction*>()) {
        if (each->text().startsWith(text) && each->parent() == &lay()) return *each;
    }
    throw std::runtime_error(text.toStdString() + " is in no menu");
}

std::string printOf(const TemporaryStudy& study) {
    std::set<std::string> lines;
    for (const auto& entry : fs::recursive_directory_iterator(study.folder)) {
        if (!entry.is_regular_file()) continue;
        lines.insert(fmt::format("{} {} {}\n", entry.path().string(), entry.file_size(),
                                 entry.last_write_time().time_since_epoch().count()));
    }
    std::string all;
    for (const std::string& line : lines) all += line;
    return all;
}

}  // namespace studioDesk
