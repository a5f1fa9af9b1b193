#include "studio/play.h"

#include <QProcess>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "platform/files.h"
#include "studio/notices.h"
#include "studio/onCopy.h"
#include "studio/workspace.h"

namespace play {

namespace fs = std::filesystem;

namespace {

bool underWay = false;
std::function<void(const QString&)> said = [](const QString&) {};

/// The program looks for its study beside itself.
QString programIn(const std::string& folder) {
    const std::string place = folder + "/tavix";
    fs::copy_file(files::folderOfProgram() + "/tavix", place);
    return QString::fromStdString(place);
}

}  // namespace

void tellTo(std::function<void(const QString&)> told) { said = std::move(told); }

void start(const std::string& scenario) {
    if (!workspace::isOpen()) return;
    if (underWay) return said("The program is open already; close it to play another scenario.");
    const std::string folder = workspace::rehearsal({scenario});
    QString program;
    try {
        program = programIn(folder);
    } catch (const fs::filesystem_error& error) {
        fs::remove_all(folder);
        return notices::tell("The program could not be started.", error.what());
    }
    underWay = true;
    said("Playing on a copy: sign in with any name. Nothing of it is kept.");
    onCopy::start({folder, program, {}, [](bool good, const QString& words) {
                       underWay = false;
                       said("The program has ended, and what it wrote was thrown away.");
                       if (!good)
                           notices::tell("The program has ended by itself.",
                                         words.isEmpty() ? "What is found in the study may say why." : words);
                   }});
}

void forSubject() {
    if (!workspace::isOpen()) return;
    // It puts the program into the folder, and says in a box what is against it.
    QProcess starter;
    starter.setProgram(QString::fromStdString(files::folderOfProgram() + "/../../bin/tavix-study"));
    starter.setArguments({QString::fromStdString(workspace::folder())});
    starter.setStandardInputFile(QProcess::nullDevice());
    starter.setStandardOutputFile(QProcess::nullDevice());
    starter.setStandardErrorFile(QProcess::nullDevice());
    if (!starter.startDetached()) throw std::runtime_error("tavix-study is not installed with this program.");
    said("The program starts in the study's folder. What the subject does is kept.");
}

}  // namespace play
