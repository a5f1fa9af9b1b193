// drawPage STUDY FILE [ENTRY [TAB]]: the window as a picture for the documents, at an entry of its tree and a
// tab of that page, once whatever is made for it in the background stands there. Without ENTRY it is the page
// that the window begins with.
#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QProgressBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "qt/look.h"
#include "studio/onCopy.h"
#include "studio/window.h"
#include "studio/workspace.h"

namespace {

constexpr qint64 still = 1500;      ///< milliseconds in which nothing has changed
constexpr qint64 longest = 300000;  ///< milliseconds

QMainWindow* mainWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* const main = qobject_cast<QMainWindow*>(widget)) return main;
    }
    return nullptr;
}

bool choose(const QMainWindow& main, const QString& entry, const QString& tab) {
    QTreeWidgetItem* chosen = nullptr;
    for (QTreeWidget* tree : main.findChildren<QTreeWidget*>()) {
        const QList<QTreeWidgetItem*> found = tree->findItems(entry, Qt::MatchExactly | Qt::MatchRecursive);
        if (chosen == nullptr && !found.isEmpty()) chosen = found.front();
    }
    if (chosen == nullptr) return false;
    chosen->treeWidget()->setCurrentItem(chosen);
    if (tab.isEmpty()) return true;
    for (QTabWidget* tabs : main.findChildren<QTabWidget*>()) {
        for (int i = 0; i < tabs->count() && tabs->isVisible(); ++i) {
            if (tabs->tabText(i) != tab) continue;
            tabs->setCurrentIndex(i);
            return true;
        }
    }
    return false;
}

bool isAtWork(const QMainWindow& main) {
    const QList<QProgressBar*> bars = main.findChildren<QProgressBar*>();
    return onCopy::atWork() || std::ranges::any_of(bars, &QWidget::isVisible);
}

/// The window once it has come to rest; null if it does not.
QImage atRest(QMainWindow& main) {
    QElapsedTimer all;
    QElapsedTimer rest;
    QImage shown;
    all.start();
    rest.start();
    while (all.elapsed() < longest) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
        const QImage now = main.grab().toImage();
        if (isAtWork(main) || now != shown) rest.restart();
        if (rest.elapsed() > still) return now;
        shown = now;
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    const QStringList given = QApplication::arguments();
    QApplication::setApplicationName("tavix-studio");
    look::apply(qEnvironmentVariableIsSet("TAVIX_DARK"));
    window::show();
    QMainWindow& main = *mainWindow();
    if (given.size() > 3) {
        workspace::setDraftRoot(given[1].toStdString() + "/drafts");
        window::open(given[1].toStdString());
        if (!choose(main, given[3], given.value(4))) {
            std::cerr << "The window has no " << given[3].toStdString() << ' ' << given.value(4).toStdString()
                      << '\n';
            std::_Exit(1);
        }
    }
    const bool drawn = atRest(main).save(given.value(2));
    if (!drawn) std::cerr << given.value(2).toStdString() << " was not drawn\n";
    std::_Exit(drawn ? 0 : 1);
}
