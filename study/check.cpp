#include "study/check.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "store/layer/schema.h"
#include "study/checkRules.h"

namespace check {

namespace fs = std::filesystem;

namespace {

constexpr std::array rules{columns, scenarioNames, pairing, strangers, baseRates, symptoms,    treatments,
                           options, clock,         meters,  words,     people,    testLengths, subjects};

std::ptrdiff_t placeOf(const std::string& table) { return schema::find(table) - schema::tables().data(); }

}  // namespace

std::string folderOf(const std::string& file) {
    std::error_code failed;
    const fs::path place = fs::absolute(file, failed).lexically_normal().parent_path();
    if (place.filename() == "data") return place.parent_path().string();
    return fs::is_directory(place / "Patients", failed) ? place.string() : std::string();
}

std::vector<Finding> look(const std::string& file, const std::string& folder) {
    return look(read(file, folder));
}

std::vector<Finding> look(Study study) {
    for (const auto& rule : rules) rule(study);
    std::ranges::stable_sort(study.findings, [](const Finding& a, const Finding& b) {
        return std::pair(placeOf(a.table), a.row) < std::pair(placeOf(b.table), b.row);
    });
    return study.findings;
}

const char* wordFor(Grade grade) {
    if (grade == Grade::Error) return "error";
    return grade == Grade::Warning ? "warning" : "note";
}

std::string lineOf(const Finding& finding) {
    std::string place = finding.table;
    if (finding.row > 0) place += fmt::format(", row {}", finding.row);
    if (!finding.column.empty()) place += ", " + finding.column;
    return fmt::format("{}: {}: {}", wordFor(finding.grade), place, finding.text);
}

std::string jsonOf(const std::vector<Finding>& findings) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Finding& finding : findings) {
        nlohmann::ordered_json& entry = list.emplace_back();
        entry["grade"] = wordFor(finding.grade);
        entry["table"] = finding.table;
        entry["row"] = nullptr;
        if (finding.row > 0) entry["row"] = finding.row;
        entry["column"] = nullptr;
        if (!finding.column.empty()) entry["column"] = finding.column;
        entry["text"] = finding.text;
    }
    // A text of a store may be no UTF-8.
    return nlohmann::ordered_json{{"findings", list}}.dump(2, ' ', false,
                                                           nlohmann::json::error_handler_t::replace);
}

}  // namespace check
