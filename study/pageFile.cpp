#include "study/pageFile.h"

#include <fmt/format.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "platform/files.h"
#include "platform/onLeave.h"
#include "study/pageParts.h"

namespace pageFile {

namespace fs = std::filesystem;

namespace {

/// The lines before its first part tell whose page a file is.
bool isPage(const fs::path& file, std::string_view frame) {
    const std::string_view mark = frame.substr(0, frame.find('@'));
    std::string begin(mark.size(), '\0');
    std::ifstream(file, std::ios::binary).read(begin.data(), static_cast<std::streamsize>(begin.size()));
    return begin == mark;
}

void writeParts(std::ostream& page, std::string_view frame, std::string_view script,
                const std::function<void(std::ostream&)>& data) {
    for (std::size_t at = frame.find('@'); at != std::string_view::npos; at = frame.find('@')) {
        page << frame.substr(0, at);
        const std::size_t end = frame.find('@', at + 1);
        const std::string_view part = frame.substr(at + 1, end - at - 1);
        if (part == "DATA") data(page);
        if (part == "STYLE") page << pageParts::style;
        if (part == "SCRIPT") page << script;
        if (part == "LIBRARY") page << "/*\n" << pageParts::licence << "*/\n" << pageParts::library;
        frame.remove_prefix(end + 1);
    }
    page << frame;
}

}  // namespace

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

Json ofSpread(const std::optional<figures::Spread>& spread) {
    if (!spread) return {};
    return {{"n", spread->count}, {"marks", spread->marks}};
}

Json ofBins(const figures::Bins& bins) {
    Json all = Json::array();
    for (const figures::Bin& bin : bins)
        all.push_back({{"n", bin.count}, {"x", rounded(bin.across)}, {"y", rounded(bin.up)}});
    return all;
}

double rounded(double value) { return std::round(value * 1000) / 1000; }

void refuseOther(const std::string& page, std::string_view frame) {
    std::error_code failed;
    if (fs::exists(page, failed) && !isPage(page, frame))
        throw std::runtime_error(page + " exists and is no report; it is not replaced");
}

void write(const std::string& page, std::string_view frame, std::string_view script,
           const std::function<void(std::ostream&)>& data) {
    refuseOther(page, frame);
    std::error_code failed;
    const std::string draft = page + ".tavixdb";
    const OnLeave cleared([&] { fs::remove(draft, failed); });
    std::ofstream out(draft, std::ios::binary);
    writeParts(out, frame, script, data);
    out.close();
    if (!out) throw std::runtime_error(page + ": cannot be written");
    try {
        files::moveIntoPlace(draft, page);
    } catch (const fs::filesystem_error& error) {
        throw std::runtime_error(fmt::format("{}: {}", page, error.code().message()));
    }
}

}  // namespace pageFile
