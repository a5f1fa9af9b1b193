#include "study/datasetFile.h"

#include <fmt/format.h>

#include <stdexcept>

#include "platform/text.h"

namespace datasetFile {

namespace {

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"') result += '"';
        result += c;
    }
    return result + '"';
}

void check(const File& file) {
    if (!file.bytes) throw std::runtime_error(file.path + ": cannot be written");
}

}  // namespace

std::string field(const engine::Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    if (const auto* number = std::get_if<double>(&value)) return fmt::format("{}", *number);
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr) return {};
    if (!text::isUtf8(*text)) return field(text::fromFileBytes(*text));
    const bool plain = !text->empty() && text->find_first_of(",;\"\r\n") == std::string::npos &&
                       text->front() != ' ' && text->back() != ' ';
    return plain ? *text : quoted(*text);
}

File begin(const std::string& path, const std::vector<std::string>& columns) {
    File file{path, columns.size(), std::ofstream(path, std::ios::binary)};
    add(file, std::vector<engine::Value>(columns.begin(), columns.end()));
    return file;
}

void add(File& file, std::span<const engine::Value> row) {
    if (row.size() != file.columns) throw std::logic_error(file.path + ": a row is ragged");
    std::string line;
    for (const engine::Value& value : row) line += field(value) + ',';
    line.back() = '\n';
    if (line == "\n") line = "\"\"\n";
    file.bytes << line;
    check(file);
}

void finish(File& file) {
    file.bytes.close();
    check(file);
}

void write(const std::string& path, const std::string& bytes) {
    File file{path, 0, std::ofstream(path, std::ios::binary)};
    file.bytes << bytes;
    finish(file);
}

}  // namespace datasetFile
