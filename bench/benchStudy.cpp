#include "bench/benchStudy.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "forms/frmLogin.h"
#include "knowledge/caseDraw.h"
#include "knowledge/modSymptom.h"
#include "knowledge/modTests.h"
#include "platform/host.h"
#include "platform/randomSource.h"
#include "screens/signIn.h"
#include "screens/wiring.h"
#include "state/TrialState.h"
#include "store/loading/modAppLoad.h"
#include "study/createStore.h"

namespace benchStudy {

namespace {

constexpr const char* scenario = "1 First practice";

}  // namespace

void begin() {
    wiring::wireForms();
    randomSource::fixState(1);
    Host& h = host();
    h.waitWhile = [](const std::function<bool()>&) {};
    h.messageBox = [](const MessageBox& box) {
        std::cerr << box.text << '\n';
        return Answer::No;
    };
    h.yield = [] {};
    h.milliseconds = [] { return std::uint32_t{0}; };
    h.today = [] { return "2026-01-05"; };
    h.timeOfDay = [] { return "09:30:00"; };
    h.checkPicture = [](const std::string&) {};
    h.endProgram = [](int status) { std::_Exit(status == 0 ? 1 : status); };
}

Study::Study(const std::string& name)
    : folder((std::filesystem::temp_directory_path() / ("tavixBench-" + name)).string()) {
    std::filesystem::create_directories(folder + "/data");
    for (const std::string& problem : createStore::create("sample/tables", file(), true).problems)
        std::cerr << problem << '\n';
}

Study::~Study() {
    std::error_code failed;
    std::filesystem::remove_all(folder, failed);
}

void Study::use() const {
    host().programFolder = [this] { return folder; };
}

void signIn(const std::string& subject) {
    trialState.subjectName = subject;
    modAppLoad::listSettings();
    setText(frmLogin.cboType, scenario);
    trialState.settingIndex = findItem(frmLogin.cboType, scenario);
    trialState.settingName = scenario;
    frmLogin.IsNew = signIn::isNewSubject();
    modAppLoad::loadOptions();
    modAppLoad::loadCaseData();
}

void drawCase() {
    modPatient::drawDisease();
    modPatient::drawFindings();
    modTests::resetTests();
    modSymptom::resetSymptomNotes();
}

double milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Times::at(double share) const {
    std::vector<double> sorted = all;
    std::sort(sorted.begin(), sorted.end());
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

void print(const char* letter, const std::string& what, const Times& times, double ratio,
           const std::string& limit) {
    std::cout << fmt::format("ROW\t{}\t{}\t{:.2f}\tms\t{}\t{}\t{:.2f}\t{:.2f}\n", letter, what,
                             times.median(), limit.empty() ? "" : fmt::format("{:.2f}", ratio), limit,
                             times.at(0.99), times.at(1.0))
              << std::flush;
}

}  // namespace benchStudy
