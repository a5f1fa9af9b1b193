// How late the 12 ms timer of a running patient is at one recorded event a second. The desktop
// program with its windows and real timers, on the screen there is (bench/desktopBench brings one) or none,
// in turns with a bare timer in a process that does nothing else (bench/bareProgram).
#include <fmt/format.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <vector>

#include "bench/lateness.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "platform/host.h"
#include "platform/pictures.h"
#include "platform/randomSource.h"
#include "qt/formWindow.h"
#include "qt/look.h"
#include "qt/mirror.h"
#include "qt/paintPace.h"
#include "qt/realTimers.h"
#include "screens/wiring.h"
#include "store/layer/database.h"
#include "store/record/modAppRecord.h"
#include "study/createStore.h"
#include "trial/run/run.h"

namespace {

constexpr int runs = 5;
constexpr int runLength = 9000;  // milliseconds; all runs end before the patient's time limit
constexpr int eventInterval = 1000;
constexpr double allowed = 1;  // milliseconds over the bare timer's 99th percentile

/// Signs in as soon as the program waits for it.
void signIn() {
    if (frmNewSubject.form.visible) {
        person::type(frmNewSubject.txtAge, "30");
        person::choose(frmNewSubject.boxMajor, "Other");
        person::press(frmNewSubject.btnBegin);
    } else {
        person::type(frmLogin.txtName, "bench");
        person::choose(frmLogin.cboType, "Plain");
        person::press(frmLogin.cmdOk);
    }
}

void makeHost(const std::string& folder, QElapsedTimer& clock) {
    Host& h = host();
    h.waitWhile = [](const std::function<bool()>& open) {
        while (open()) signIn();
    };
    h.messageBox = [](const MessageBox& box) {
        std::cerr << box.text << '\n';
        return Answer::No;
    };
    h.yield = [] {};
    h.milliseconds = [&clock] { return static_cast<std::uint32_t>(clock.elapsed()); };
    h.today = [] { return "2026-01-05"; };
    h.timeOfDay = [] { return "09:30:00"; };
    h.programFolder = [folder] { return folder; };
    h.checkPicture = pictures::check;
    h.endProgram = [](int status) { std::_Exit(status); };
}

void letPass(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, [&loop] { loop.quit(); });
    loop.exec();
}

void append(std::vector<double>& all, const std::vector<double>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

std::vector<double> bareTimer(const QString& program) {
    QProcess process;
    process.start(program, {"timer", QString::number(runLength)});
    process.waitForFinished(2 * runLength);
    std::vector<double> late;
    for (const QByteArray& line : process.readAllStandardOutput().split('\n'))
        if (!line.isEmpty()) late.push_back(line.toDouble());
    return late;
}

struct Results {
    std::vector<double> bare, desktop;  ///< lateness of ticks, milliseconds
    std::vector<double> events;         ///< what recording one took, milliseconds
    double due = 0;
};

/// One stretch of the running patient.
void play(Results& results) {
    lateness::Record record;
    frmTavix.tmrHealth.on.timer = [handler = frmTavix.tmrHealth.on.timer, &record] {
        record.tick();
        handler();
    };
    QTimer events;
    QObject::connect(&events, &QTimer::timeout, [&results] {
        const auto start = lateness::Clock::now();
        modAppRecord::recordEvent("AddSymptom", 1, "short of breath on the stairs", false);
        results.events.push_back(lateness::Milliseconds(lateness::Clock::now() - start).count());
    });
    setInterval(frmTavix.tmrHealth, lateness::interval + 1);
    setInterval(frmTavix.tmrHealth, lateness::interval);
    const auto start = lateness::Clock::now();
    events.start(eventInterval);
    letPass(runLength);
    results.due +=
        std::floor(lateness::Milliseconds(lateness::Clock::now() - start).count() / lateness::interval);
    append(results.desktop, record.late);
}

void printRow(const char* what, const std::vector<double>& values, double ratio, const char* limit) {
    std::cout << fmt::format("ROW\td\t{}\t{:.3f}\tms\t{:.2f}\t{}\t{:.3f}\t{:.3f}\n", what,
                             lateness::at(values, 0.5), ratio, limit, lateness::at(values, 0.99),
                             lateness::at(values, 1));
}

void print(const Results& results) {
    const double limit = lateness::at(results.bare, 0.99) + allowed;
    printRow("lateness of a bare 12 ms timer", results.bare, lateness::at(results.bare, 0.99) / limit,
             "its p99 + 1 ms");
    printRow("lateness of the 12 ms timer, an event a second", results.desktop,
             lateness::at(results.desktop, 0.99) / limit, "p99 of the bare timer + 1 ms");
    printRow("recordEvent on the event thread", results.events,
             lateness::at(results.events, 0.5) / lateness::interval, "12 ms, a tick");
    const auto handled = static_cast<double>(results.desktop.size());
    std::cout << fmt::format("ROW\td\tticks handled of {:.0f} due\t{:.0f}\tticks\t{:.4f}\tall\t\t\n",
                             results.due, handled, handled / results.due);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    const QString bareProgram = QCoreApplication::applicationDirPath() + "/bareProgram";
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tavixLatencyBench";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder / "data");
    std::filesystem::create_directory_symlink(std::filesystem::absolute("tests/Patients"),
                                              folder / "Patients");
    QElapsedTimer clock;
    clock.start();
    wiring::wireForms();
    makeHost(folder.string(), clock);
    for (const std::string& problem : createStore::create("tests/tables", store::path(), true).problems)
        std::cerr << problem << '\n';
    look::apply(false);
    mirror::build();
    paintPace::limit(*formWindow::mainWindow());
    realTimers::build();
    run::startApplication();
    randomSource::queueDraws(std::vector<double>(100000, 0.55));  // health stays where it is
    setInterval(frmTavix.tmrClock, 50);
    setInterval(frmTavix.tmrHealthMonitor, 45);  // 22 steps of the trace a second

    const auto healthTick = frmTavix.tmrHealth.on.timer;
    Results results;
    for (int i = 0; i < runs; ++i) {
        append(results.bare, bareTimer(bareProgram));
        play(results);
        frmTavix.tmrHealth.on.timer = healthTick;
    }
    print(results);
    std::filesystem::remove_all(folder);
    std::cout.flush();
    std::_Exit(0);
}
