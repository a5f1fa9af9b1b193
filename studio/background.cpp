#include "studio/background.h"

#include <QApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QThreadPool>
#include <QTimer>
#include <exception>
#include <memory>
#include <stdexcept>
#include <utility>

#include "studio/safely.h"

namespace background {

namespace {

constexpr int moment = 500;  // ms that nobody takes for waiting

std::timed_mutex& store() {
    static std::timed_mutex held;
    return held;
}

/// One thread, which is waited for when the program ends.
QThreadPool& pool() {
    static auto* const threads = [] {
        auto* const made = new QThreadPool(QCoreApplication::instance());
        made->setMaxThreadCount(1);
        return made;
    }();
    return *threads;
}

}  // namespace

void run(std::function<void()> work, std::function<void(const std::string& problem)> done) {
    pool().start([work = std::move(work), done = std::move(done)] {
        std::string problem;
        try {
            const std::scoped_lock held(store());
            work();
        } catch (const std::exception& error) {
            problem = error.what();
        }
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [done, problem] { safely(done)(problem); }, Qt::QueuedConnection);
    });
}

bool await(const QString& sentence, std::function<void()> work) {
    struct Waiting {
        std::function<void()> stop;
        bool over = false;
        std::string problem = {};
    };
    QEventLoop loop;
    const auto waiting = std::make_shared<Waiting>(Waiting{[&loop] { loop.quit(); }});
    run(std::move(work), [waiting](const std::string& problem) {
        waiting->over = true;
        waiting->problem = problem;
        if (waiting->stop) waiting->stop();
    });
    QTimer::singleShot(moment, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!waiting->over) {
        QProgressDialog box(sentence, "Do not wait", 0, 0, QApplication::activeWindow());
        box.setWindowTitle("Tavix Studio");
        box.setWindowModality(Qt::ApplicationModal);
        box.setMinimumDuration(0);
        QObject::connect(&box, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
        box.show();
        loop.exec();
    }
    waiting->stop = {};
    if (!waiting->problem.empty()) throw std::runtime_error(waiting->problem);
    return waiting->over;
}

std::unique_lock<std::timed_mutex> turn(std::chrono::milliseconds patience) { return {store(), patience}; }

}  // namespace background
