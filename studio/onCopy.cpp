#include "studio/onCopy.h"

#include <QCoreApplication>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/companion.h"
#include "studio/safely.h"

namespace onCopy {

namespace {

constexpr int mostWait = 2000;  ///< milliseconds for a program that has been killed
constexpr int mostSaid = 2000;  ///< characters

struct Running {
    QProcess* process;
    Wish wish;
};

std::vector<Running>& running() {
    static std::vector<Running> all;
    return all;
}

void removeCopy(const std::string& folder) {
    std::error_code failed;
    std::filesystem::remove_all(folder, failed);
}

void endAll() {
    for (const Running& each : running()) {
        each.process->disconnect();
        each.process->kill();
        each.process->waitForFinished(mostWait);
        removeCopy(each.wish.folder);
    }
    running().clear();
}

/// The program is over, or never was.
void finish(QProcess* process, bool good) {
    const auto found = std::ranges::find(running(), process, &Running::process);
    if (found == running().end()) return;
    const Wish wish = found->wish;
    running().erase(found);
    const QString said = process->error() == QProcess::FailedToStart
                             ? wish.program + ": " + process->errorString()
                             : QString::fromUtf8(process->readAllStandardError()).left(mostSaid).trimmed();
    process->deleteLater();
    if (wish.ended) safely(wish.ended)(good, said);
    removeCopy(wish.folder);
}

}  // namespace

QProcess* start(const Wish& wish) {
    static const bool endsWithUs = [] {
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp, endAll);
        return true;
    }();
    Q_UNUSED(endsWithUs);
    auto* const process = new QProcess;
    process->setChildProcessModifier(companion::endWithMaker);
    QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
    surroundings.insert("QT_LOGGING_RULES", "*.warning=false");  // what the toolkit says is no reason to end
    process->setProcessEnvironment(surroundings);
    running().push_back({process, wish});
    QObject::connect(process, &QProcess::finished, qApp, [process](int status, QProcess::ExitStatus how) {
        finish(process, how == QProcess::NormalExit && status == 0);
    });
    QObject::connect(process, &QProcess::errorOccurred, qApp, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) finish(process, false);
    });
    process->start(wish.program, wish.arguments);
    return process;
}

bool atWork() { return !running().empty(); }

void stop(QProcess* process) {
    const auto found = std::ranges::find(running(), process, &Running::process);
    if (found == running().end()) return;
    found->wish.ended = {};
    process->kill();
}

}  // namespace onCopy
