#include "studio/pilotRuns.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>
#include <utility>

#include "platform/companion.h"
#include "platform/files.h"
#include "studio/workspace.h"
#include "study/readStore.h"
#include "study/simulated.h"

namespace pilotRuns {

namespace {

constexpr int firstSubjects = 20;  // enough for a first picture
constexpr int patience = 3000;     // milliseconds for a killed process to be gone

struct State {
    QObject* owner;
    Hearers hearers;
    Wish wish = {};
    std::string folder = {};  ///< the copy that is played on; empty without one
    QProcess* process = nullptr;
    int subjects = 0;  ///< of each policy, of the process at work
};

std::string outputOf(const State& state) { return state.folder + "/pilot.mdb"; }

void stop(State& state) {
    if (QProcess* const process = std::exchange(state.process, nullptr)) {
        process->disconnect();
        process->kill();
        process->waitForFinished(patience);
        process->deleteLater();
    }
    std::error_code failed;
    if (!state.folder.empty()) std::filesystem::remove_all(state.folder, failed);
    state.folder.clear();
}

QStringList argumentsOf(const State& state) {
    QStringList policies;
    for (const std::string& policy : state.wish.policies) policies << QString::fromStdString(policy);
    return {"--folder",
            QString::fromStdString(state.folder),
            "--scenario=" + QString::fromStdString(state.wish.scenario),
            "--subjects",
            QString::number(state.subjects),
            "--trials",
            QString::number(state.wish.patients),
            "--policy",
            policies.join(','),
            "--jobs",
            QString::number(std::max(1, QThread::idealThreadCount() - 1)),
            "--out",
            QString::fromStdString(outputOf(state))};
}

/// A fault ends a session: what the faults say, each once, and how many sessions they ended.
QString faultsOf(engine::Connection& store) {
    std::set<std::string> faults;
    int ended = 0;
    const auto subjects = simulated::subjectsOf(store);
    for (const auto& [name, subject] : subjects) {
        if (!subject.ended.starts_with("fault ")) continue;
        faults.insert("run-time error" + subject.ended.substr(5));
        ++ended;
    }
    if (faults.empty()) return {};
    QStringList all;
    for (const std::string& fault : faults) all << QString::fromStdString(fault);
    return QString("%1 of %2 sessions were ended by %3")
        .arg(ended)
        .arg(subjects.size())
        .arg(all.mid(0, 3).join("; "));
}

/// A message without the place of the copy, which means nothing to the person.
QString plain(const State& state, const QString& message) {
    return message.trimmed().replace(QString::fromStdString(state.folder) + '/', QString());
}

/// What the program says on its way: "1200 of 3200 subjects, ...".
void hearProgress(State& state) {
    static const QRegularExpression count(R"((\d+) of \d+ subjects)");
    const QString said = QString::fromUtf8(state.process->readAllStandardError());
    const QRegularExpressionMatch match = count.match(said);
    if (match.hasMatch())
        state.hearers.progress(match.captured(1).toInt(),
                               state.wish.subjects * static_cast<int>(state.wish.policies.size()));
    else
        state.process->setProperty("said", state.process->property("said").toString() + said);
}

void run(const std::shared_ptr<State>& state, int subjects);

void take(const std::shared_ptr<State>& state) {
    const engine::Database store = readStore::open(outputOf(*state));
    state->hearers.news({.outcomes = pilotFigures::of(*store),
                         .subjects = state->subjects,
                         .faults = plain(*state, faultsOf(*store)),
                         .last = state->subjects >= state->wish.subjects});
    state->hearers.progress(state->subjects * static_cast<int>(state->wish.policies.size()),
                            state->wish.subjects * static_cast<int>(state->wish.policies.size()));
}

void finished(const std::shared_ptr<State>& state, bool well) {
    try {
        hearProgress(*state);
        const QString said = plain(*state, state->process->property("said").toString());
        if (!well) {
            stop(*state);
            return state->hearers.problem(said.isEmpty() ? "The pilot ended before its work." : said);
        }
        take(state);
        if (state->subjects < state->wish.subjects)
            run(state, state->wish.subjects);
        else
            stop(*state);
    } catch (const std::exception& error) {
        const QString said = plain(*state, error.what());
        stop(*state);
        state->hearers.problem(said);
    }
}

void run(const std::shared_ptr<State>& state, int subjects) {
    std::error_code failed;
    std::filesystem::remove(outputOf(*state), failed);
    if (state->process != nullptr) state->process->deleteLater();
    state->subjects = subjects;
    auto* const process = new QProcess(state->owner);
    state->process = process;
    process->setChildProcessModifier(companion::endWithMaker);
    process->setStandardOutputFile(QProcess::nullDevice());
    QObject::connect(process, &QProcess::readyReadStandardError, process, [state] { hearProgress(*state); });
    QObject::connect(process, &QProcess::finished, process, [state](int code, QProcess::ExitStatus status) {
        finished(state, status == QProcess::NormalExit && code == 0);
    });
    QObject::connect(process, &QProcess::errorOccurred, process, [state](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart) return;
        const QString said = state->process->errorString();
        stop(*state);
        state->hearers.problem("tavix-pilot cannot be started: " + said);
    });
    process->start(QString::fromStdString(files::folderOfProgram() + "/tavix-pilot"), argumentsOf(*state));
}

void start(const std::shared_ptr<State>& state, const Wish& wish) {
    stop(*state);
    state->wish = wish;
    try {
        state->folder = workspace::rehearsal({wish.scenario});
    } catch (const std::exception& error) {
        return state->hearers.problem(error.what());
    }
    state->hearers.progress(0, 0);
    run(state, std::min(firstSubjects, wish.subjects));
}

}  // namespace

Runner make(QObject* owner, const Hearers& hearers) {
    const auto state = std::make_shared<State>(State{owner, hearers});
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, owner,
                     [state] { stop(*state); });
    return {[state](const Wish& wish) { start(state, wish); }, [state] { stop(*state); }};
}

}  // namespace pilotRuns
