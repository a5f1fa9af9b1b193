#include "bench/silentPatients.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "platform/randomSource.h"
#include "screens/wiring.h"
#include "stage/scriptedHost.h"
#include "stage/virtualTime.h"
#include "state/TrialState.h"
#include "study/createStore.h"
#include "trial/run/run.h"

namespace silentPatients {

namespace {

constexpr const char* scenario = "3 One treatment";
constexpr std::int64_t hour = 3'600'000;

void answerSignIn() {
    if (frmNewSubject.form.visible) {
        person::type(frmNewSubject.txtAge, "30");
        person::choose(frmNewSubject.boxMajor, "Other");
        person::press(frmNewSubject.btnBegin);
    } else {
        person::type(frmLogin.txtName, "bench");
        person::choose(frmLogin.cboType, scenario);
        person::press(frmLogin.cmdOk);
    }
}

void untilDeath() {
    virtualTime::pass(hour, [] { return frmTavix.cmdNextPatient.visible; });
}

}  // namespace

void makeStudy(const std::string& folder) {
    std::filesystem::create_directories(folder + "/data");
    std::error_code exists;
    std::filesystem::create_directory_symlink(std::filesystem::absolute("sample/Patients"),
                                              folder + "/Patients", exists);
    const std::string file = folder + "/data/TavixData.mdb";
    for (const std::string& problem : createStore::create("sample/tables", file, true).problems)
        std::cerr << problem << '\n';
}

void begin(const std::string& folder) {
    wiring::wireForms();
    randomSource::fixState(1);
    scriptedHost::begin({folder, "2026-01-05 09:30:00"}, {answerSignIn, {}});
    host() = scriptedHost::make();
    host().messageBox = [](const MessageBox& box) {
        return box.buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
    };
    host().endProgram = [](int status) { std::_Exit(status); };
    run::startApplication();
    for (Patient& patient : trialState.patients) patient.health = startHealth;
    untilDeath();
}

void play(int count) {
    for (int i = 0; i < count; ++i) {
        person::press(frmTavix.cmdNextPatient);
        untilDeath();
    }
}

}  // namespace silentPatients
