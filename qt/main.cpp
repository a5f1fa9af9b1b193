// tavix: the desktop program.
#include <QApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QEventLoop>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "platform/files.h"
#include "platform/host.h"
#include "platform/pictures.h"
#include "platform/privacy.h"
#include "platform/randomSource.h"
#include "qt/boxes.h"
#include "qt/desktopTheme.h"
#include "qt/edge.h"
#include "qt/emblem.h"
#include "qt/formWindow.h"
#include "qt/heldInput.h"
#include "qt/keyPause.h"
#include "qt/look.h"
#include "qt/mirror.h"
#include "qt/paintPace.h"
#include "qt/pressEcho.h"
#include "qt/realTimers.h"
#include "screens/wiring.h"
#include "trial/run/run.h"

namespace {

/// Ends at once, from however deep: the run leaves nothing open that would have to be closed.
void endNow(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

void waitWhile(const std::function<bool()>& open) {
    QEventLoop loop;
    while (open()) loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

Host desktopHost() {
    static QElapsedTimer sinceStart;
    sinceStart.start();
    Host host;
    host.waitWhile = waitWhile;
    host.messageBox = boxes::show;
    host.yield = heldInput::yield;
    host.milliseconds = [] { return static_cast<std::uint32_t>(sinceStart.elapsed()); };
    host.today = [] { return QDate::currentDate().toString(Qt::ISODate).toStdString(); };
    host.timeOfDay = [] { return QTime::currentTime().toString("hh:mm:ss").toStdString(); };
    host.programFolder = files::folderOfProgram;
    host.checkPicture = pictures::check;
    host.endProgram = endNow;
    return host;
}

}  // namespace

int main(int argc, char** argv) {
    privacy::begin();
    QApplication app(argc, argv);
    QApplication::setApplicationName("Tavix");
    QApplication::setQuitOnLastWindowClosed(false);
    look::apply(desktopTheme::isDark());
    QApplication::setWindowIcon(emblem::icon());
    edge::onError(boxes::showError);
    wiring::wireForms();
    host() = desktopHost();
    std::random_device chance;
    randomSource::fixState((std::uint64_t{chance()} << 32U) | chance());
    mirror::build();
    paintPace::limit(*formWindow::mainWindow());
    pressEcho::begin();
    realTimers::build();
    keyPause::enforce();
    heldInput::enforce();
    edge::run([] { run::startApplication(); });
    return QApplication::exec();
}
