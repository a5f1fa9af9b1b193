// tavix-preview: draws what a subject will see of a study, without a display: it signs in as a new subject,
// plays the first patient in virtual time and writes each screen as a PNG, with a line on standard output for
// each. The study is written to, so it has to be a copy.
#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <set>

#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "forms/windows.h"
#include "platform/randomSource.h"
#include "qt/edge.h"
#include "qt/look.h"
#include "qt/mirror.h"
#include "qt/screenPicture.h"
#include "screens/wiring.h"
#include "stage/openBoxes.h"
#include "stage/scriptedHost.h"
#include "stage/virtualTime.h"
#include "store/record/Options.h"
#include "trial/run/run.h"

namespace {

constexpr int cannotGoOn = 1;
constexpr int mostSteps = 60;  ///< presses in dialogs; more of them lead nowhere
constexpr std::int64_t longestTrial = std::int64_t{3} * 60 * 60 * 1000;  ///< virtual milliseconds

/// One screen of a usual size, whatever the station has.
constexpr const char* screen = R"({ "screens": [ { "name": "preview", "x": 0, "y": 0, "width": 1440,
    "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 } ] })";

struct Preview {
    std::string folder;
    bool onlyPatient;
    std::set<std::string> drawn = {};
    std::set<std::string> said = {};
    int steps = 0;
};

Preview preview;

[[noreturn]] void end(int status) {
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(status);
}

/// Each screen is drawn once, when it is first seen.
void draw(const std::string& name, const std::string& title) {
    if (!preview.drawn.insert(name).second) return;
    const std::string file = preview.folder + "/" + name + ".png";
    screenPicture::write(file);
    std::cout << file << '\t' << title << std::endl;
}

/// What a screen does not let a subject do in this scenario is left out.
bool tryTo(const std::function<void()>& deed) {
    try {
        deed();
    } catch (const Refused&) {
        return false;
    }
    return true;
}

void answerBox(const MessageBox& box) {
    // The words stand where somebody looks for them if the play ends here; a box that comes again has said
    // them.
    const std::string words = (box.title.empty() ? std::string() : box.title + ": ") + box.text;
    if (preview.said.insert(words).second) std::cerr << words << '\n';
    scriptedHost::answerBox(box.buttons == Buttons::Ok ? Answer::Ok : Answer::No);
}

void signIn() {
    person::paste(frmLogin.txtName, "Kim");
    draw("1-signIn", "Sign-in");
    person::press(frmLogin.cmdOk);
}

void answerQuestionnaire() {
    person::choose(frmNewSubject.boxMajor, "Other");
    person::paste(frmNewSubject.txtAge, "30");
    person::press(frmNewSubject.btnBegin);
}

/// A guess, and the way out that there is.
void diagnose() {
    FrmDiagnosis& f = frmDiagnosis;
    if (!Options.DiagnoseAllDiseases) tryTo([&] { person::chooseLine(f.cboHypothesis[0], 0); });
    tryTo([&] { person::slide(f.hsbBelief[0], 60); });
    draw("4-diagnosis", "Diagnosis");
    for (Control* way : {&f.cmdDiagnose, &f.cmdTests, &f.cmdCancel}) {
        if (f.form.visible) tryTo([way] { person::press(*way); });
    }
}

/// Answers whatever the program waits in.
void step() {
    if (++preview.steps > mostSteps) {
        std::cerr << "The preview comes to no end of the dialogs.\n";
        end(cannotGoOn);
    }
    if (windows::boxInFront()) return answerBox(openBoxes::newest()->box);
    const Control* form = windows::topModal();
    if (form == &frmLogin.form) return signIn();
    if (form == &frmNewSubject.form) return answerQuestionnaire();
    if (form == &frmDiagnosis.form) return diagnose();
    draw("2-options", "Options, before the patient");
    person::press(frmOptions.cmdStart);
}

/// Lets time pass until the patient's end, at most.
void pass(std::int64_t duration) {
    virtualTime::pass(duration, [] { return frmTavix.cmdNextPatient.visible; });
}

void play() {
    constexpr std::int64_t moment = 2000;
    run::startApplication();
    pass(moment);
    draw("3-patient", "Page \"Patient\"");
    if (preview.onlyPatient) end(EXIT_SUCCESS);
    FrmTavix& f = frmTavix;
    person::turnTo(f.tabTavix, 1);
    tryTo([&] { person::doublePress(f.optTest[0]); });
    pass(moment);
    person::turnTo(f.tabTavix, 1);
    draw("3-tests", "Page \"Tests\"");
    tryTo([&] { person::press(f.cmdDiagnosis); });
    // Without a treatment stage the diagnosis has been the end.
    if (!f.cmdNextPatient.visible) {
        person::turnTo(f.tabTavix, 2);
        tryTo([&] { person::pick(f.lstTreatments, {1}); });
        draw("5-treatments", "Page \"Treatments\"");
        pass(longestTrial);
    }
    person::turnTo(f.tabTavix, 0);
    if (f.cmdNextPatient.visible) draw("6-feedback", "After the patient");
    end(EXIT_SUCCESS);
}

/// The toolkit's surroundings: no display, one screen, pixels as they are.
void prepareScreen(const std::string& folder) {
    const QString file = QString::fromStdString(folder + "/screen.json");
    QFile json(file);
    if (!json.open(QIODevice::WriteOnly) || json.write(screen) < 0) {
        std::cerr << folder << ": no file can be written there\n";
        end(cannotGoOn);
    }
    json.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + folder + "/screen.json").c_str());
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    qputenv("QT_SCALE_FACTOR", "1");
}

void prepareProgram(const std::string& study) {
    wiring::wireForms();
    randomSource::fixState(1);
    scriptedHost::begin({study, "2026-01-05 09:30:00"}, {step, {}});
    host() = scriptedHost::make();
    host().endProgram = end;
    edge::onError([](const std::string& report) { std::cerr << report << std::endl; });
    mirror::build();
}

}  // namespace

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    QCommandLineParser parser;
    parser.addPositionalArgument("STUDY", "the folder of a study, which is played on and changed");
    parser.addPositionalArgument("PICTURES", "the folder for the pictures");
    parser.addOptions({{"dark", "dark windows"}, {"patient", "no further than the page \"Patient\""}});
    if (!parser.parse(arguments) || parser.positionalArguments().size() != 2) {
        std::cerr << "tavix-preview [--dark] [--patient] STUDY PICTURES\n";
        return cannotGoOn;
    }
    preview = {parser.positionalArguments().value(1).toStdString(), parser.isSet("patient")};
    prepareScreen(preview.folder);
    int qtArguments = 1;
    const QApplication application(qtArguments, argv);
    look::apply(parser.isSet("dark"));
    prepareProgram(parser.positionalArguments().value(0).toStdString());
    edge::run(play);
    return 0;
}
