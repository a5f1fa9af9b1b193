#include "studio/handOver.h"

#include <fmt/format.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <stop_token>
#include <utility>

#include "studio/background.h"
#include "studio/exportDialog.h"
#include "studio/notices.h"
#include "studio/safely.h"
#include "studio/workspace.h"
#include "study/plainCopy.h"
#include "study/report.h"

namespace handOver {

namespace fs = std::filesystem;

namespace {

constexpr int whole = 100;

struct Bar {
    QWidget* line;
    QLabel* text;
    QProgressBar* bar;
    QPushButton* stop;
    std::vector<QPushButton*> starts;
};

Bar bar;
QString work;  ///< what is being made
std::stop_source stopping;

using Progress = std::function<void(double)>;

void showWork(const QString& what) {
    static QPointer<QWidget> pressed;
    static QPointer<QWidget> meanwhile;  ///< to which the toolkit hands the focus of a button that goes off
    QWidget* const focus = QApplication::focusWidget();
    if (!what.isEmpty()) pressed = std::ranges::find(bar.starts, focus) != bar.starts.end() ? focus : nullptr;
    work = what;
    bar.line->setVisible(!what.isEmpty());
    bar.text->setText(what);
    bar.bar->setRange(0, whole);
    bar.bar->setValue(0);
    bar.stop->setEnabled(true);
    for (QPushButton* button : bar.starts) button->setEnabled(what.isEmpty());
    if (!what.isEmpty())
        meanwhile = QApplication::focusWidget();
    else if (pressed && meanwhile == focus)
        std::exchange(pressed, {})->setFocus();
}

/// Tells the bar, and ends the work when it is to stop. Called in the thread of the work.
Progress progress() {
    return [token = stopping.get_token(), shown = -1](double done) mutable {
        if (token.stop_requested()) throw std::runtime_error("stopped");
        const int percent = std::clamp(static_cast<int>(done * whole), 0, whole);
        if (percent == shown) return;
        shown = percent;
        QMetaObject::invokeMethod(
            bar.bar, [percent] { bar.bar->setValue(percent); }, Qt::QueuedConnection);
    };
}

void begin(const QString& what, const std::function<void(const Progress&)>& make,
           const std::function<void()>& made) {
    stopping = std::stop_source();
    showWork(what);
    background::run([make, told = progress()] { make(told); },
                    [made, token = stopping.get_token()](const std::string& problem) {
                        showWork({});
                        if (token.stop_requested() && !problem.empty()) return;
                        if (problem.empty()) return made();
                        notices::tell("That could not be done.", QString::fromStdString(problem));
                    });
}

/// A name for what is made of this study, beside its folder.
std::string beside(const char* ending) { return workspace::folder() + ending; }

/// A folder of this program's own for the page, which goes when the program ends: it holds names.
std::string reportFolder() {
    static const auto folder = [] {
        const std::string made = workspace::ownFolder();
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, [made] {
            std::error_code failed;
            fs::remove_all(made, failed);
        });
        return made;
    }();
    return folder;
}

void report(const std::string& patient) {
    const std::string page = reportFolder() + "/report.html";
    begin(
        "Making the report",
        [store = workspace::store(), page, patient](const Progress& told) {
            report::write(store, page, patient, told);
        },
        [page] {
            const QString file = QString::fromStdString(page);
            if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
                notices::tell(
                    "No browser could be started. The report stands there until this window is closed:",
                    file);
        });
}

exportDataset::Request& lastRequest() {
    static exportDataset::Request request;
    static std::string wanted;  // as it was before a number came behind it
    static std::string offered;
    if (request.file != workspace::store())
        request = {
            .file = workspace::store(), .folder = beside("-dataset"), .pseudonyms = beside("-key.csv")};
    if (request.folder != offered) wanted = request.folder;
    // What an export has made is never written over.
    offered = wanted;
    for (int i = 2; fs::exists(offered); ++i) offered = fmt::format("{}-{}", wanted, i);
    request.folder = offered;
    return request;
}

void exportAll(QWidget* parent) {
    const std::optional<exportDataset::Request> request = exportDialog::ask(parent, lastRequest());
    if (!request) return;
    lastRequest() = *request;
    const auto notes = std::make_shared<std::vector<std::string>>();
    begin(
        "Making the dataset",
        [request = *request, notes](const Progress& told) { *notes = exportDataset::write(request, told); },
        [folder = QString::fromStdString(request->folder), notes] {
            QStringList lines{folder};
            for (const std::string& note : *notes) lines << QString::fromStdString(note);
            if (notices::ask("The dataset was made.", lines.join('\n'), {"OK", "Show the folder", "OK"}) == 1)
                QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
        });
}

void plain(QWidget* parent) {
    const QString place = QFileDialog::getSaveFileName(
        parent, "Plain copy of the store", QString::fromStdString(beside(".sqlite")),
        "Plain stores (*.sqlite);;All files (*)", nullptr, QFileDialog::DontConfirmOverwrite);
    if (place.isEmpty()) return;
    begin(
        "Making the plain copy",
        [store = workspace::store(), copy = place.toStdString()](const Progress& told) {
            plainCopy::write(store, copy, told);
        },
        [place] {
            notices::tell("The copy was made. Whoever has it can read it: it has no password.", place);
        });
}

}  // namespace

QWidget* make(const std::function<std::string()>& patient) {
    auto* const both = new QWidget;
    auto* const row = new QHBoxLayout(both);
    bar = {new QWidget, new QLabel, new QProgressBar, new QPushButton("Stop"), {}};
    const auto button = [&](const QString& caption, const QString& help, const std::function<void()>& act) {
        auto* const made = new QPushButton(caption);
        made->setToolTip(help);
        made->setAccessibleDescription(help);
        QObject::connect(made, &QPushButton::clicked, made, safely([act](bool) { act(); }));
        row->addWidget(made);
        bar.starts.push_back(made);
    };
    button("Report in the browser", "A page of plots and tables of the results so far.",
           [patient] { report(patient()); });
    button("Export…", "The results as a dataset of CSV files that others can read.",
           [both] { exportAll(both); });
    button("Plain copy…", "The whole store as one file without a password, for R, Python and other programs.",
           [both] { plain(both); });
    auto* const line = new QHBoxLayout(bar.line);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(bar.text);
    line->addWidget(bar.bar, 1);
    line->addWidget(bar.stop);
    bar.bar->setAccessibleName("How far the work is");
    bar.stop->setAccessibleDescription("Ends the work; nothing of it is left.");
    QObject::connect(bar.stop, &QPushButton::clicked, bar.stop, [] {
        stopping.request_stop();
        bar.stop->setEnabled(false);
        bar.text->setText("Stopping");
    });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, [] { stopping.request_stop(); });
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(bar.line, 1);
    row->addStretch();
    showWork({});
    return both;
}

QString atWork() { return work; }

void stop() { stopping.request_stop(); }

}  // namespace handOver
