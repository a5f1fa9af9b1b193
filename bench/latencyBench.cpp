// What recording an event costs a running trial: the desktop program with its real windows (no display is
// needed) and real timers at their shortest interval, first without and then with an event every 50 ms.
// Prints how long an event takes to be on the disk, and how many ticks came of those that were due.
#include <fmt/format.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <vector>

#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "platform/host.h"
#include "platform/pictures.h"
#include "platform/randomSource.h"
#include "qt/look.h"
#include "qt/mirror.h"
#include "qt/realTimers.h"
#include "screens/wiring.h"
#include "store/layer/database.h"
#include "store/record/modAppRecord.h"
#include "study/createStore.h"
#include "trial/run/run.h"

namespace {

constexpr int phaseLength = 10000;  // milliseconds
constexpr int eventInterval = 50;
constexpr double frame = 16.7;

/// Signs in as soon as the program waits for it, and sets the fastest clock.
void signIn() {
    if (frmNewSubject.form.visible) {
        person::type(frmNewSubject.txtAge, "30");
        person::choose(frmNewSubject.boxMajor, "Other");
        person::press(frmNewSubject.btnBegin);
    } else {
        person::type(frmLogin.txtName, "bench");
        person::choose(frmLogin.cboType, "Plain");
        person::press(frmLogin.cmdOk);
        setValue(frmOptions.hsbRate, 20);
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

struct Ticks {
    int clock = 0;
    int health = 0;
};

Ticks ticks;

void countTicks(Control& timer, int& count) {
    timer.on.timer = [handler = timer.on.timer, &count] {
        ++count;
        handler();
    };
}

void letPass(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, [&loop] { loop.quit(); });
    loop.exec();
}

void printTicks(const std::string& phase) {
    const int dueHealth = phaseLength / frmTavix.tmrHealth.interval.toInt();
    const int dueClock = phaseLength / frmTavix.tmrClock.interval.toInt();
    std::cout << fmt::format("{:16} health ticks {} of {}   clock ticks {} of {}\n", phase, ticks.health,
                             dueHealth, ticks.clock, dueClock);
    ticks = {};
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tavixLatencyBench";
    std::filesystem::create_directories(folder / "data");
    std::error_code exists;
    std::filesystem::create_directory_symlink(std::filesystem::absolute("tests/Patients"),
                                              folder / "Patients", exists);
    QElapsedTimer clock;
    clock.start();
    wiring::wireForms();
    makeHost(folder.string(), clock);
    for (const std::string& problem : createStore::create("tests/tables", store::path(), true).problems)
        std::cerr << problem << '\n';
    look::apply(false);
    mirror::build();
    realTimers::build();
    run::startApplication();
    randomSource::queueDraws(std::vector<double>(100000, 0.55));  // health stays where it is
    setInterval(frmTavix.tmrClock, 50);
    setInterval(frmTavix.tmrHealth, 12);
    countTicks(frmTavix.tmrClock, ticks.clock);
    countTicks(frmTavix.tmrHealth, ticks.health);

    letPass(phaseLength);
    printTicks("without events");

    std::vector<double> times;
    QTimer events;
    QObject::connect(&events, &QTimer::timeout, [&times] {
        QElapsedTimer taken;
        taken.start();
        modAppRecord::recordEvent("AddSymptom", 1, "short of breath on the stairs", false);
        times.push_back(static_cast<double>(taken.nsecsElapsed()) / 1e6);
    });
    events.start(eventInterval);
    letPass(phaseLength);
    events.stop();
    printTicks("with events");
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) {
        return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
    };
    std::cout << fmt::format(
        "recordEvent      {} events, median {:.2f} ms, p99 {:.2f} ms, maximum {:.2f} ms; a frame is {} ms\n",
        times.size(), at(0.5), at(0.99), at(1.0), frame);
    std::filesystem::remove_all(folder);
    std::cout.flush();
    std::_Exit(0);
}
