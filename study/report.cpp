#include "study/report.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <unordered_map>

#include "platform/numberText.h"
#include "platform/onLeave.h"
#include "study/courses.h"
#include "study/figures.h"
#include "study/pageParts.h"
#include "study/readStore.h"
#include "study/simulated.h"

namespace report {

namespace fs = std::filesystem;

namespace {

using courses::Patient;
using courses::Study;
using Json = nlohmann::json;

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

/// As text that can stand in a script element: no sign of it begins a tag or a comment.
std::string scriptText(const Json& data) {
    const std::string plain = data.dump(-1, ' ', true, Json::error_handler_t::replace);
    std::string safe;
    safe.reserve(plain.size());
    for (const char c : plain) {
        if (c == '<') {
            safe += "\\u003c";
        } else {
            safe += c;
        }
    }
    return safe;
}

template <class Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

Json ofSpread(const std::optional<figures::Spread>& spread) {
    if (!spread) return {};
    return {{"n", spread->count}, {"marks", spread->marks}};
}

Json ofBins(const figures::Bins& bins) {
    Json all = Json::array();
    for (const figures::Bin& bin : bins)
        all.push_back({{"n", bin.count},
                       {"x", std::round(bin.across * 1000) / 1000},
                       {"y", std::round(bin.up * 1000) / 1000}});
    return all;
}

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

/// Rows are plain lists, since there may be hundreds of thousands; page/report.js names their places.
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

/// Written piece by piece: as one value the patients would take ten times the room.
void writeData(std::ostream& page, const std::string& store, const Study& study, int patient) {
    Words words;
    page << "{\"store\":" << scriptText(store) << ",\"subjects\":" << scriptText(study.subjects)
         << ",\"scenarios\":" << scriptText(study.scenarios) << ",\"chosen\":" << patient
         << ",\n\"figures\":" << scriptText(allFigures(study)) << ",\n\"patients\":[";
    for (const Patient& each : study.patients)
        page << (&each == study.patients.data() ? "\n" : ",\n") << scriptText(ofPatient(each, words));
    page << "],\n\"words\":" << scriptText(words.list) << "}";
}

void writePage(std::ostream& page, const std::string& store, const Study& study, int patient) {
    std::string_view rest = pageParts::frame;
    for (std::size_t at = rest.find('@'); at != std::string_view::npos; at = rest.find('@')) {
        page << rest.substr(0, at);
        const std::size_t end = rest.find('@', at + 1);
        const std::string_view part = rest.substr(at + 1, end - at - 1);
        if (part == "DATA") writeData(page, store, study, patient);
        if (part == "STYLE") page << pageParts::style;
        if (part == "SCRIPT") page << pageParts::script;
        if (part == "LIBRARY") page << "/*\n" << pageParts::licence << "*/\n" << pageParts::library;
        rest.remove_prefix(end + 1);
    }
    page << rest;
}

/// Whether the file is a page of ours: by the lines before its first data.
bool isReport(const fs::path& file) {
    const std::string_view mark = pageParts::frame.substr(0, pageParts::frame.find('@'));
    std::string begin(mark.size(), '\0');
    std::ifstream(file, std::ios::binary).read(begin.data(), static_cast<std::streamsize>(begin.size()));
    return begin == mark;
}

}  // namespace

void write(const std::string& file, const std::string& page, const std::string& patient) {
    std::error_code failed;
    if (fs::exists(page, failed) && !isReport(page))
        throw std::runtime_error(page + " exists and is no report; it is not replaced");
    const engine::Database database = readStore::open(file);
    const Study study = [&] {
        try {
            return courses::read(*database);
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(fmt::format("{}: {}", file, error.what()));
        }
    }();
    const int shown = chosen(study, patient);
    // Written beside the page and moved over it when whole.
    const std::string draft = page + ".tavixdb";
    const OnLeave cleared([&] { fs::remove(draft, failed); });
    std::ofstream out(draft, std::ios::binary);
    std::string store = fs::path(file).filename().string();
    if (simulated::isMarked(*database)) store += fmt::format(" ({})", simulated::called);
    writePage(out, store, study, shown);
    out.close();
    if (!out) throw std::runtime_error(page + ": cannot be written");
    fs::rename(draft, page, failed);
    if (failed) throw std::runtime_error(fmt::format("{}: {}", page, failed.message()));
}

}  // namespace report
