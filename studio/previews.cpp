#include "studio/previews.h"

#include <QDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <filesystem>
#include <memory>

#include "platform/files.h"
#include "qt/look.h"
#include "studio/onCopy.h"
#include "studio/safely.h"

namespace previews {

namespace {

constexpr int moment = 500;         ///< milliseconds without a change
constexpr int longestPlay = 30000;  ///< milliseconds
constexpr int darkBelow = 128;      ///< lightness of a window, of 255

struct State {
    QWidget* owner;
    std::function<std::optional<Wish>()> wish;
    Listener listener;
    QTimer* soon;
    QTimer* late;
    QProcess* process = nullptr;
    std::optional<workspace::Part> part = {};  ///< of what is drawn or being drawn
    book::Book book = {};
};

void stop(State& state) {
    state.soon->stop();
    state.late->stop();
    if (state.process != nullptr) onCopy::stop(state.process);
    state.process = nullptr;
}

/// A line for each picture: its file and its title.
void readPictures(State& state, QProcess& process) {
    while (process.canReadLine()) {
        const QString line = QString::fromUtf8(process.readLine()).trimmed();
        const QImage picture(line.section('\t', 0, 0));
        if (!picture.isNull()) state.listener.drawn(line.section('\t', 1), picture);
    }
}

void end(State& state, bool good, const QString& said) {
    state.process = nullptr;
    state.late->stop();
    state.listener.ended(good             ? QString()
                         : said.isEmpty() ? QString("The program ended without a word.")
                                          : said);
}

/// The words of the program itself, without those of the toolkit.
QString ownWords(const QString& said) {
    QStringList lines = said.split('\n');
    lines.removeIf([](const QString& line) {
        return line.startsWith("QStandardPaths:") || line.startsWith("This plugin") || line.startsWith("qt.");
    });
    return lines.join('\n');
}

void begin(const std::shared_ptr<State>& state) {
    const std::optional<Wish> wish = state->wish();
    if (!wish || !state->owner->isVisible()) {
        state->part.reset();
        return;
    }
    std::string folder;
    try {
        folder = workspace::rehearsal(wish->part);
        std::filesystem::create_directory(folder + "/pictures");
    } catch (const std::exception& error) {
        return end(*state, false, error.what());
    }
    const QString place = QString::fromStdString(folder);
    QStringList arguments{place, place + "/pictures"};
    if (wish->onlyPatient) arguments << "--patient";
    if (look::colours().window.lightness() < darkBelow) arguments << "--dark";
    QProcess* const process =
        onCopy::start({folder, QString::fromStdString(files::folderOfProgram() + "/tavix-preview"), arguments,
                       [state](bool good, const QString& said) { end(*state, good, ownWords(said)); }});
    state->process = process;
    state->late->start();
    QObject::connect(process, &QProcess::readyReadStandardOutput, state->owner, safely([state, process] {
                         if (state->process == process) readPictures(*state, *process);
                     }));
}

void refresh(const std::shared_ptr<State>& state) {
    const std::optional<Wish> wish = state->wish();
    if (wish && state->part == wish->part && book::same(state->book, workspace::book())) return;
    stop(*state);
    state->part.reset();
    state->listener.begun();
    if (!wish) return;
    state->part = wish->part;
    state->book = workspace::book();
    state->soon->start();
}

}  // namespace

Refresh make(QWidget* owner, const std::function<std::optional<Wish>()>& wish, const Listener& listener) {
    const auto state =
        std::make_shared<State>(State{owner, wish, listener, new QTimer(owner), new QTimer(owner)});
    state->soon->setSingleShot(true);
    state->soon->setInterval(moment);
    state->late->setSingleShot(true);
    state->late->setInterval(longestPlay);
    QObject::connect(state->soon, &QTimer::timeout, owner, safely([state] { begin(state); }));
    QObject::connect(state->late, &QTimer::timeout, owner, safely([state] {
                         stop(*state);
                         state->listener.ended("The scenario takes too long to be drawn.");
                     }));
    return [state] { refresh(state); };
}

void enlarge(QWidget* parent, const QString& title, const QImage& picture) {
    QDialog window(parent);
    auto* const shown = new QLabel;
    auto* const column = new QVBoxLayout(&window);
    const QSize room = parent->screen()->availableSize() * 9 / 10;
    const double ratio = parent->devicePixelRatioF();
    const QSize size = picture.size().scaled(picture.size().boundedTo(room * ratio), Qt::KeepAspectRatio);
    QPixmap pixmap =
        QPixmap::fromImage(picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    shown->setPixmap(pixmap);
    shown->setAccessibleName(title);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(shown);
    window.setWindowTitle(title);
    window.exec();
}

}  // namespace previews
