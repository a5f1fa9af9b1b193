#include "study/bookPeople.h"

#include <fmt/format.h>

#include <filesystem>
#include <set>
#include <utility>

#include "platform/text.h"

namespace bookPeople {

namespace fs = std::filesystem;

namespace {

constexpr const char* table = "tblPatients";
constexpr int longestName = 100;  ///< characters of a file's name, so that a prefix has room

std::string freeName(const Book& book, const std::string& wanted) {
    std::string name = wanted;
    for (int i = 2; book::rowOf(book, table, "Name", name); ++i) name = fmt::format("{} {}", wanted, i);
    return name;
}

/// Names of files that are there or on their way, or that a table expects.
std::set<std::string> takenFiles(const Book& book, const std::string& folder) {
    std::set<std::string> taken;
    std::error_code failed;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder + "/Patients", failed))
        taken.insert(text::folded(entry.path().filename().string()));
    for (const auto& [name, place] : book.files) taken.insert(text::folded(name));
    const book::Sheet& people = book::sheetOf(book, table);
    for (int row = 0; row < people.size(); ++row) {
        for (const char* column : {"Picture", "Intro"}) taken.insert(text::folded(people.text(row, column)));
    }
    return taken;
}

/// Without signs that some file system or shell takes for its own.
std::string plain(std::string name) {
    for (char& c : name) {
        const bool unfit = static_cast<unsigned char>(c) < ' ' ||
                           std::string_view("/\\:*?\"<>|'").find(c) != std::string_view::npos;
        if (unfit) c = '_';
    }
    return name;
}

}  // namespace

void add(Book& book, int at) {
    const std::string name = freeName(book, "New person");
    book::addRow(book, table, at);
    book::set(book, {table, at, "Name"}, name);
    for (const auto& [column, value] :
         {std::pair("Age", 40), {"Male?", 0}, {"Height", 67}, {"Weight", 150}, {"Health", 75}})
        book::set(book, {table, at, column}, std::int64_t{value});
}

void copy(Book& book, int row) {
    const std::string name = freeName(book, book::sheetOf(book, table).text(row, "Name") + " copy");
    book::copyRow(book, table, row);
    book::set(book, {table, row + 1, "Name"}, name);
}

void keepOnly(Book& book, int row) {
    for (int other = book::sheetOf(book, table).size() - 1; other >= 0; --other) {
        if (other != row) book::removeRow(book, table, other);
    }
}

std::vector<std::string> sharers(const Book& book, int row, const char* column) {
    const book::Sheet& people = book::sheetOf(book, table);
    const std::string file = people.text(row, column);
    std::vector<std::string> names;
    for (int other = 0; other < people.size(); ++other) {
        if (other != row && !file.empty() && people.text(other, column) == file)
            names.push_back(people.text(other, "Name"));
    }
    return names;
}

std::string freeFile(const Book& book, const std::string& folder, const std::string& wanted) {
    const fs::path path = plain(wanted);
    std::string stem = text::trim(text::left(path.stem().string(), longestName));
    stem.erase(0, stem.find_first_not_of('.'));
    if (stem.empty()) stem = "person";
    const std::string ending = text::left(path.extension().string(), longestName);
    const std::set<std::string> taken = takenFiles(book, folder);
    std::string name = stem + ending;
    for (int i = 2; taken.contains(text::folded(name)); ++i) name = fmt::format("{} {}{}", stem, i, ending);
    return name;
}

}  // namespace bookPeople
