// The limits of the desktop program: a program of the toolkit that does nothing else. With "window" it shows
// one and stays; with "timer MILLISECONDS" it prints how late a timer of 12 ms is, in milliseconds, a line
// each.
#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <iostream>
#include <string>

#include "bench/lateness.h"

int main(int argc, char** argv) {
    if (argc == 3 && argv[1] == std::string("timer")) {
        const QCoreApplication app(argc, argv);
        lateness::Record record;
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, [&record] { record.tick(); });
        timer.start(lateness::interval);
        QTimer::singleShot(std::stoi(argv[2]), &timer, [] { QCoreApplication::quit(); });
        QCoreApplication::exec();
        for (const double late : record.late) std::cout << late << '\n';
        return 0;
    }
    const QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle("Bare");
    window.resize(600, 400);
    window.show();
    return QApplication::exec();
}
