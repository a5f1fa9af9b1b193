#include "study/pseudonyms.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "platform/files.h"
#include "platform/text.h"
#include "study/csv.h"
#include "study/datasetFile.h"

namespace pseudonyms {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t fewestDigits = 2;  // of a trial in an identifier
constexpr std::size_t mostDigits = 5;
constexpr const char* head = "Pseudonym,Subject\n";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

void place(Key& key, Subject subject) {
    key.places.emplace(text::folded(subject.name), key.subjects.size());
    key.spellings.emplace(subject.name, key.subjects.size());
    key.subjects.push_back(std::move(subject));
}

std::optional<std::size_t> find(const Key& key, const std::string& name) {
    if (const auto known = key.spellings.find(name); known != key.spellings.end()) return known->second;
    const auto found = key.places.find(text::folded(name));
    if (found == key.places.end()) return {};
    return found->second;
}

/// Whose identifier begins with this stem (name and trial), and how long the name is. A subject that had the
/// trial comes before one that had not, a longer name before a shorter one.
std::optional<std::pair<std::size_t, std::size_t>> ownerOf(const Key& key, const std::string& stem) {
    std::optional<std::pair<std::size_t, std::size_t>> without;
    for (std::size_t digits = fewestDigits; digits <= std::min(mostDigits, stem.size()); ++digits) {
        const std::size_t length = stem.size() - digits;
        if (!std::all_of(stem.begin() + static_cast<std::ptrdiff_t>(length), stem.end(), isDigit)) break;
        if (digits > fewestDigits && stem[length] == '0') continue;
        const std::optional<std::size_t> subject = find(key, stem.substr(0, length));
        if (!subject) continue;
        if (key.subjects[*subject].trials.contains(std::stoll(stem.substr(length))))
            return std::pair(*subject, length);
        if (!without) without = std::pair(*subject, length);
    }
    return without;
}

void readLine(Key& key, const csv::Line& line) {
    if (line.fields.size() != 2 || line.fields[0].text.empty())
        throw csv::Problem{line.number, "has not one pseudonym and one name"};
    const std::string& name = line.fields[1].text;
    if (find(key, name) || !key.taken.insert(line.fields[0].text).second)
        throw csv::Problem{line.number, "has a pseudonym or a name that stands above"};
    place(key, {name, line.fields[0].text});
}

}  // namespace

Key read(const std::string& file) {
    Key key;
    const std::optional<std::string> bytes = files::tryRead(file);
    if (!bytes) {
        if (fs::exists(file)) throw std::runtime_error(file + ": cannot be read");
        return key;
    }
    if (!bytes->starts_with(head)) throw std::runtime_error(file + " is no key file of an export");
    const std::string lines = bytes->substr(std::string_view(head).size());
    try {
        for (const csv::Line& line : csv::parse(lines)) readLine(key, line);
    } catch (const csv::Problem& problem) {
        throw std::runtime_error(fmt::format("{}, line {}: {}", file, problem.line + 1, problem.text));
    }
    return key;
}

void write(const Key& key, const std::string& file) {
    const std::string draft = file + ".new";
    std::string bytes = head;
    for (const Subject& subject : key.subjects)
        bytes += subject.pseudonym + ',' + datasetFile::field(subject.name) + '\n';
    datasetFile::write(draft, "");
    fs::permissions(draft, fs::perms::owner_read | fs::perms::owner_write);
    datasetFile::write(draft, bytes);
    files::moveIntoPlace(draft, file);
}

void add(Key& key, const std::string& name) {
    if (const std::optional<std::size_t> known = find(key, name)) {
        key.spellings.emplace(name, *known);
        return;
    }
    place(key, {name, {}});
}

void addTrial(Key& key, const std::string& name, std::int64_t trial) {
    if (const std::optional<std::size_t> known = find(key, name)) key.subjects[*known].trials.insert(trial);
}

void number(Key& key) {
    std::size_t next = 1;
    for (Subject& subject : key.subjects) {
        while (subject.pseudonym.empty()) {
            std::string pseudonym = fmt::format("P{:04}", next++);
            if (!key.places.contains(text::folded(pseudonym)) && key.taken.insert(pseudonym).second)
                subject.pseudonym = std::move(pseudonym);
        }
    }
}

std::string ofSubject(const Key& key, const std::string& name) {
    return key.subjects.at(find(key, name).value()).pseudonym;
}

std::string ofIdentifier(Key& key, const std::string& identifier) {
    const std::size_t line = identifier.rfind('_');
    const bool whole =
        line != std::string::npos && line + 1 < identifier.size() &&
        std::all_of(identifier.begin() + static_cast<std::ptrdiff_t>(line) + 1, identifier.end(), isDigit);
    const std::string stem = whole ? identifier.substr(0, line) : identifier;
    const std::string number = whole ? identifier.substr(line) : std::string();
    if (const auto owner = ownerOf(key, stem))
        return key.subjects[owner->first].pseudonym + stem.substr(owner->second) + number;
    // Nobody's: what stands before the number could be a name all the same.
    const auto [found, isNew] = key.unknown.try_emplace(text::folded(stem));
    if (isNew) found->second = fmt::format("unknown{}", key.unknown.size());
    return found->second + number;
}

}  // namespace pseudonyms
