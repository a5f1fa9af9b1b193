#include "studio/pilotRuns.h"

#include <QPointer>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>
#include <algorithm>
#include <memory>
#include <set>

#include "platform/files.h"
#include "studio/onCopy.h"
#include "studio/workspace.h"
#include "study/readStore.h"
#include "study/simulated.h"

namespace pilotRuns {

namespace {

constexpr int firstSubjects = 20;  // enough for a first picture

struct State {
    Hearers hearers;
    Wish wish = {};
    int begun = 0;  ///< counts the wishes, so that nobody hears of an earlier one
    QPointer<QProcess> process = {};
    QString said = {};
};

void stop(State& state) {
    ++state.begun;
    if (state.process) onCopy::stop(state.process);
    state.process.clear();
}

QStringList argumentsOf(const Wish& wish, const std::string& folder, const std::string& output,
                        int subjects) {
    QStringList policies;
    for (const std::string& policy : wish.policies) policies << QString::fromStdString(policy);
    const int jobs = std::max(1, QThread::idealThreadCount() - 1);
    return QStringList{"--scenario=" + QString::fromStdString(wish.scenario)}
           << "--folder" << QString::fromStdString(folder) << "--out" << QString::fromStdString(output)
           << "--policy" << policies.join(',') << "--subjects" << QString::number(subjects) << "--trials"
           << QString::number(wish.patients) << "--jobs" << QString::number(jobs);
}

/// A message without the place of the copy, which means nothing to the person.
QString plain(const std::string& folder, const QString& message) {
    return message.trimmed().replace(QString::fromStdString(folder) + '/', QString());
}

/// A fault ends a session: what the faults say, each once, and how many sessions they ended.
QString faultsOf(engine::Connection& store) {
    constexpr qsizetype mostTold = 3;
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
        .arg(all.mid(0, mostTold).join("; "));
}

int allOf(const Wish& wish) { return wish.subjects * static_cast<int>(wish.policies.size()); }

/// What the program says on its way: "1200 of 3200 subjects, ...". The rest may say why it ended.
void hearProgress(State& state) {
    static const QRegularExpression count(R"((\d+) of \d+ subjects)");
    const QString said = QString::fromUtf8(state.process->readAllStandardError());
    const QRegularExpressionMatch match = count.match(said);
    if (match.hasMatch())
        state.hearers.progress(match.captured(1).toInt(), allOf(state.wish));
    else
        state.said += said;
}

void run(const std::shared_ptr<State>& state, int subjects);

/// Reads what was played, and goes on to all subjects.
void take(const std::shared_ptr<State>& state, const std::string& folder, const std::string& output,
          int subjects) {
    try {
        const engine::Database store = readStore::open(output);
        const bool last = subjects >= state->wish.subjects;
        state->hearers.news({pilotFigures::of(*store), subjects, plain(folder, faultsOf(*store)), last});
        state->hearers.progress(subjects * static_cast<int>(state->wish.policies.size()), allOf(state->wish));
        if (!last) run(state, state->wish.subjects);
    } catch (const std::exception& error) {
        state->hearers.problem(plain(folder, error.what()));
    }
}

void run(const std::shared_ptr<State>& state, int subjects) {
    const int begun = state->begun;
    const std::string folder = workspace::rehearsal({state->wish.scenario});
    const std::string output = folder + "/pilot.mdb";
    state->said.clear();
    const auto ended = [=](bool good, const QString& said) {
        if (begun != state->begun) return;
        if (good) return take(state, folder, output, subjects);
        const QString why = plain(folder, state->said + said);
        state->hearers.problem(why.isEmpty() ? "The pilot ended before its work." : why);
    };
    state->process = onCopy::start({folder, QString::fromStdString(files::folderOfProgram() + "/tavix-pilot"),
                                    argumentsOf(state->wish, folder, output, subjects), ended});
    // One that was stopped may still say something before it ends.
    QObject::connect(state->process, &QProcess::readyReadStandardError, state->process, [=] {
        if (begun == state->begun) hearProgress(*state);
    });
}

void start(const std::shared_ptr<State>& state, const Wish& wish) {
    stop(*state);
    state->wish = wish;
    try {
        state->hearers.progress(0, 0);
        run(state, std::min(firstSubjects, wish.subjects));
    } catch (const std::exception& error) {
        state->hearers.problem(error.what());
    }
}

}  // namespace

Runner make(const Hearers& hearers) {
    const auto state = std::make_shared<State>(State{hearers});
    return {[state](const Wish& wish) { start(state, wish); }, [state] { stop(*state); }};
}

}  // namespace pilotRuns
