#include "studio/tableFiles.h"

#include <QDir>
#include <QFileDialog>
#include <QStatusBar>

#include "studio/notices.h"
#include "studio/workspace.h"
#include "study/bookTables.h"

namespace tableFiles {

namespace {

QString besideStudy() { return QString::fromStdString(workspace::folder()); }

/// Where the tables shall stand in a folder that was chosen; empty for nowhere. Among other files, as those
/// of the study itself, they would be in the way.
QString placeIn(const QString& chosen) {
    const QDir folder(chosen);
    if (folder.isEmpty() || !folder.entryList({"tbl*.csv"}, QDir::Files).isEmpty()) return chosen;
    const QString own = folder.filePath("tables");
    switch (notices::ask("There is something else in this folder.", chosen,
                         {"Write into a folder \"tables\" in it", "Write here", "Go back"})) {
        case 0: return own;
        case 1: return chosen;
        default: return {};
    }
}

}  // namespace

void write(QMainWindow& window) {
    const QString chosen =
        QFileDialog::getExistingDirectory(&window, "Folder for the tables as CSV", besideStudy());
    const QString folder = chosen.isEmpty() ? chosen : placeIn(chosen);
    if (folder.isEmpty()) return;
    writeTables::Outcome outcome = bookTables::write(workspace::book(), folder.toStdString(), false);
    if (outcome.taken) {
        if (notices::ask("There are tables in this folder already.", folder,
                         {"Write over them", "Go back"}) != 0)
            return;
        outcome = bookTables::write(workspace::book(), folder.toStdString(), true);
    }
    if (!outcome.problems.empty()) return notices::list("Nothing was written.", outcome.problems);
    window.statusBar()->showMessage("The tables stand in " + folder, 8000);
    if (!outcome.notes.empty())
        notices::list("The tables were written. What the files cannot give back:", outcome.notes);
}

void take(QMainWindow& window) {
    const QString folder =
        QFileDialog::getExistingDirectory(&window, "Folder with tables as CSV", besideStudy());
    if (folder.isEmpty()) return;
    bookTables::Taken taken;
    workspace::edit("Tables from CSV", [&](book::Book& book) {
        taken = bookTables::take(book, folder.toStdString());
        return std::string(taken.problems.empty() ? "" : "cannot be taken");
    });
    if (!taken.problems.empty())
        return notices::list("The tables were not taken; the study is as it was.", taken.problems);
    QStringList tables;
    for (const std::string& table : taken.tables) tables << QString::fromStdString(table);
    window.statusBar()->showMessage(
        tables.empty() ? "The tables were the same already." : "Taken: " + tables.join(", "), 8000);
    if (!taken.notes.empty()) notices::list("The tables were taken. Left out:", taken.notes);
}

}  // namespace tableFiles
