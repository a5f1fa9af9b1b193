// tavix-twin: the desktop program played by a script in virtual time, by mouse and keys on its real widgets.
// It takes the same scripts as tavix-headless and prints the same transcript. After each command it looks at
// its widgets (screenRules), and ends with status 4 where they are not as they must be.
#include <CLI/CLI.hpp>
#include <QAbstractButton>
#include <QApplication>
#include <fstream>
#include <iostream>

#include "headless/player.h"
#include "platform/files.h"
#include "platform/randomSource.h"
#include "qt/boxes.h"
#include "qt/edge.h"
#include "qt/look.h"
#include "qt/mirror.h"
#include "qt/screenPicture.h"
#include "screens/wiring.h"
#include "tests/twin/screenRules.h"
#include "tests/twin/widgetPerson.h"
#include "trial/run/run.h"

namespace {

Answer showBox(const Host& scripted, const MessageBox& box) {
    boxes::open(box, scriptedHost::answerBox);
    return scripted.messageBox(box);
}

Host twinHost() {
    Host host = scriptedHost::make();
    host.messageBox = [scripted = host](const MessageBox& box) { return showBox(scripted, box); };
    host.endProgram = [](int status) {
        std::cout.flush();
        std::_Exit(status);
    };
    return host;
}

/// The lines of the script, each handed out after a look at what the one before has left on the screen.
player::Lines watched(player::Lines lines) {
    return [lines = std::move(lines), last = std::string()]() mutable {
        const std::string wrong = last.starts_with("try get ") ? std::string() : screenRules::broken();
        if (!wrong.empty()) {
            std::cout.flush();
            std::cerr << "after \"" << last << "\": " << wrong << std::endl;
            std::_Exit(4);
        }
        const std::optional<std::string> line = lines();
        last = line.value_or("");
        return line;
    };
}

void play() {
    run::startApplication();
    while (true) player::step();
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"Plays Tavix on its real widgets."};
    scriptedHost::Start options{files::folderOfProgram(), "2026-01-05 09:30:00"};
    std::uint64_t seed = 1;
    std::string scriptFile;
    std::string splashPicture;
    bool dark = false;
    app.add_option("--folder", options.folder, "the program's folder, with data and Patients in it");
    app.add_option("--seed", seed, "first state of the random source");
    app.add_option("--now", options.now, "date and time at the start");
    app.add_flag("--dark", dark, "dark windows");
    app.add_option("--splash", splashPicture, "draw the splash into this file");
    app.add_option("SCRIPT", scriptFile, "the script; without it standard input is read");
    CLI11_PARSE(app, argc, argv);

    std::ifstream file(scriptFile);
    if (!scriptFile.empty() && !file) {
        std::cerr << scriptFile << ": cannot be read\n";
        return 1;
    }
    int qtArguments = 1;
    const QApplication application(qtArguments, argv);
    look::apply(dark);
    randomSource::fixState(seed);
    wiring::wireForms();
    if (!player::begin(watched(player::linesOf(scriptFile.empty() ? std::cin : file)), widgetPerson::make(),
                       options)) {
        std::cerr << "--now: \"" << options.now << "\" is no date and time (2026-01-05 09:30:00)\n";
        return 1;
    }
    host() = twinHost();
    host().yield = [splashPicture]() mutable {
        if (!splashPicture.empty()) screenPicture::write(splashPicture);
        splashPicture.clear();
    };
    edge::onError([](const std::string& report) {
        std::cout.flush();
        std::cerr << report << std::endl;
    });
    mirror::build();
    edge::run(play);
    return 0;
}
