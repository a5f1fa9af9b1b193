#include "study/report.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <unordered_map>

#include "platform/numberText.h"
#include "study/courses.h"
#include "study/figures.h"
#include "study/pageFile.h"
#include "study/pageParts.h"
#include "study/readStore.h"
#include "study/simulated.h"

namespace report {

namespace fs = std::filesystem;

namespace {

using courses::Patient;
using courses::Study;
using pageFile::Json;
using pageFile::ofBins;
using pageFile::ofSpread;
using pageFile::orNull;
using pageFile::scriptText;

/// Texts that stand in many rows are written once; the rows hold their places.
struct Words {
    std::unordered_map<std::string, std::size_t> places;
    std::vector<std::string> list;

    std::size_t of(const std::string& word) {
        const auto [found, isNew] = places.emplace(word, list.size());
        if (isNew) list.push_back(word);
        return found->second;
    }
};

/// `subject` is null for all subjects of the scenario; only then are there spreads of scores.
Json ofFigures(std::size_t scenario, const Json& subject, const figures::Figures& found) {
    Json scores = Json::array();
    if (subject.is_null()) {
        for (const figures::Spread& spread : found.scores) scores.push_back(ofSpread(spread));
    }
    return {{"scenario", scenario},
            {"subject", subject},
            {"patients", found.patients},
            {"finished", found.finished},
            {"saved", found.saved},
            {"ends", found.ends},
            {"score", ofSpread(found.score)},
            {"scores", scores},
            {"test", ofSpread(found.firstTest)},
            {"diagnosis", ofSpread(found.firstDiagnosis)},
            {"chance", ofBins(found.chance)},
            {"calibration", ofBins(found.calibration)},
            {"distance", orNull(found.distance)}};
}

using Group = std::vector<const Patient*>;

Json allFigures(const Study& study) {
    std::map<std::size_t, Group> scenarios;
    std::map<std::pair<std::size_t, std::size_t>, Group> subjects;
    for (const Patient& patient : study.patients) {
        scenarios[patient.scenario].push_back(&patient);
        subjects[{patient.scenario, patient.subject}].push_back(&patient);
    }
    Json all = Json::array();
    for (const auto& [scenario, group] : scenarios)
        all.push_back(ofFigures(scenario, nullptr, figures::of(group)));
    for (const auto& [key, group] : subjects)
        all.push_back(ofFigures(key.first, key.second, figures::of(group)));
    return all;
}

/// Rows are plain lists, since there may be hundreds of thousands; page/reportData.js names their places.
Json ofEvent(const courses::Event& event, Words& words) {
    Json row{
        event.second,         words.of(event.clock), orNull(event.health), static_cast<int>(event.action),
        words.of(event.what), event.outcome ? 1 : 0, event.harm ? 1 : 0};
    Json beliefs = Json::array();
    for (const courses::Hypothesis& each : event.beliefs) {
        beliefs.push_back(words.of(each.disease));
        beliefs.push_back(each.belief);
    }
    if (!beliefs.empty()) row.push_back(beliefs);
    return row;
}

Json ofPatient(const Patient& patient, Words& words) {
    Json events = Json::array();
    for (const courses::Event& event : patient.events) events.push_back(ofEvent(event, words));
    return Json::array({patient.subject, patient.scenario, patient.trial, patient.place,
                        words.of(patient.start), static_cast<int>(patient.state), words.of(patient.result),
                        words.of(patient.disease), patient.saved ? 1 : 0, orNull(patient.score),
                        orNull(patient.duration), orNull(patient.health), orNull(patient.belief),
                        orNull(patient.chance), orNull(firstOf(patient, courses::Action::Testing)),
                        orNull(firstOf(patient, courses::Action::Diagnose)), std::move(events)});
}

/// Place of the patient whose time line is shown first, -1 in a store without patients.
int chosen(const Study& study, const std::string& patient) {
    if (patient.empty()) {
        const auto last = std::ranges::max_element(study.patients, {}, &Patient::start);
        return last == study.patients.end() ? -1 : static_cast<int>(last - study.patients.begin());
    }
    const std::size_t colon = patient.rfind(':');
    if (colon == std::string::npos || !numberText::isNumeric(patient.substr(colon + 1)))
        throw std::runtime_error(fmt::format("--patient {}: a patient is named SUBJECT:TRIAL", patient));
    const std::string subject = patient.substr(0, colon);
    const double number = numberText::toNumber(patient.substr(colon + 1));
    const int found = std::abs(number) < 1e9 ? courses::find(study, subject, static_cast<int>(number)) : -1;
    if (found < 0)
        throw std::runtime_error(fmt::format("--patient {}: the subject \"{}\" has no patient {}", patient,
                                             subject, numberText::general(number)));
    return found;
}

constexpr std::size_t patientsBetweenNews = 100;
constexpr double readingShare = 0.6;  ///< of the time, about; the rest is writing

/// Written piece by piece: as one value the patients would take ten times the room.
void writeData(std::ostream& page, const std::string& file, const Study& study, int patient,
               std::size_t simulations, const std::function<void(double)>& told) {
    Words words;
    page << "{\"store\":" << scriptText(fs::path(file).filename().string())
         << ",\"subjects\":" << scriptText(study.subjects) << ",\"scenarios\":" << scriptText(study.scenarios)
         << ",\"simulated\":" << simulations << ",\"chosen\":" << patient
         << ",\n\"figures\":" << scriptText(allFigures(study)) << ",\n\"patients\":[";
    std::size_t written = 0;
    for (const Patient& each : study.patients) {
        page << (&each == study.patients.data() ? "\n" : ",\n") << scriptText(ofPatient(each, words));
        if (told && ++written % patientsBetweenNews == 0)
            told(static_cast<double>(written) / static_cast<double>(study.patients.size()));
    }
    page << "],\n\"words\":" << scriptText(words.list) << "}";
}

}  // namespace

void write(const std::string& file, const std::string& page, const std::string& patient,
           const std::function<void(double)>& told) {
    using Told = std::function<void(double)>;
    const Told reading = told ? Told([&told](double share) { told(readingShare * share); }) : Told();
    const Told writing =
        told ? Told([&told](double share) { told(readingShare + (1 - readingShare) * share); }) : Told();
    pageFile::refuseOther(page, pageParts::frame);
    const engine::Database database = readStore::open(file);
    const Study study = [&] {
        try {
            return courses::read(*database, reading);
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(fmt::format("{}: {}", file, error.what()));
        }
    }();
    const int shown = chosen(study, patient);
    const std::size_t simulations = simulated::subjectsOf(*database).size();
    pageFile::write(page, pageParts::frame, pageParts::script,
                    [&](std::ostream& out) { writeData(out, file, study, shown, simulations, writing); });
}

}  // namespace report
