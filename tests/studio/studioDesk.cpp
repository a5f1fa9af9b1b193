#include "tests/studio/studioDesk.h"

#include <fmt/format.h>

#include <QApplication>
#include <QTabWidget>
#include <QTemporaryDir>
#include <filesystem>
#include <set>
#include <stdexcept>

#include "studio/window.h"
#include "studio/workspace.h"
#include "tests/qt/offscreen.h"

namespace studioDesk {

namespace fs = std::filesystem;

OwnStudy::OwnStudy() {
    fs::remove(folder + "/Patients");  // a link to the tests' own
    fs::copy(TAVIX_TESTS "/Patients", folder + "/Patients");
}

namespace {

QMainWindow* shownWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* const found = qobject_cast<QMainWindow*>(widget)) return found;
    }
    throw std::runtime_error("there is no window");
}

}  // namespace

QMainWindow& lay() {
    static QMainWindow* main = nullptr;
    if (main != nullptr) return *main;
    static const QTemporaryDir own;
    qputenv("XDG_CONFIG_HOME", own.path().toUtf8());
    offscreen::begin();
    QApplication::setQuitOnLastWindowClosed(false);
    workspace::setDraftRoot((own.path() + "/drafts").toStdString());
    window::show();
    main = shownWindow();
    main->activateWindow();
    QCoreApplication::processEvents();
    return *main;
}

book::Book bookNow() { return workspace::book(); }

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
