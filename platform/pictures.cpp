#include "platform/pictures.h"

#include <array>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "platform/fault.h"
#include "platform/pictureReaders.h"

namespace pictures {

namespace {

using namespace std::string_view_literals;

struct Kind {
    std::string_view signature;
    bool (*read)(std::FILE* file);
};

constexpr std::array kinds{Kind{"\x89PNG\r\n\x1A\n"sv, pictureReaders::readPng},
                           Kind{"\xFF\xD8\xFF"sv, pictureReaders::readJpeg},
                           Kind{"GIF8"sv, pictureReaders::readGif}, Kind{"BM"sv, pictureReaders::readBitmap}};

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

bool isWhole(std::FILE* file) {
    std::array<char, 8> bytes{};
    const std::string_view start(bytes.data(), std::fread(bytes.data(), 1, bytes.size(), file));
    std::rewind(file);
    for (const Kind& kind : kinds) {
        if (start.starts_with(kind.signature)) return kind.read(file);
    }
    return false;
}

/// What a file is known by: it has been changed if one of them has.
struct Stamp {
    std::filesystem::file_time_type written;
    std::uintmax_t bytes = 0;

    friend bool operator==(const Stamp&, const Stamp&) = default;
};

struct Judged {
    Stamp stamp;
    bool whole;
};

/// Of an ordinary file; nothing where there is none.
std::optional<Stamp> stampOf(const std::string& path) {
    std::error_code failed;
    if (!std::filesystem::is_regular_file(path, failed)) return std::nullopt;
    return Stamp{std::filesystem::last_write_time(path, failed), std::filesystem::file_size(path, failed)};
}

/// The pictures come again with every round of the roster and with every look at a study, and reading one
/// takes milliseconds. What one thread has read is known to all.
struct Known {
    std::mutex turn;
    std::unordered_map<std::string, Judged> judged;
};

Known known;

std::optional<bool> remembered(const std::string& path, const Stamp& stamp) {
    const std::lock_guard turn(known.turn);
    const auto found = known.judged.find(path);
    if (found == known.judged.end() || found->second.stamp != stamp) return {};
    return found->second.whole;
}

}  // namespace

void check(const std::string& path) {
    const std::optional<Stamp> stamp = stampOf(path);
    std::unique_ptr<std::FILE, Closer> file;
    if (stamp) file.reset(std::fopen(path.c_str(), "rb"));
    if (!file) raiseFault(FaultNumber::FileNotFound, path);
    std::optional<bool> whole = remembered(path, *stamp);
    if (!whole) {
        whole = isWhole(file.get());
        const std::lock_guard turn(known.turn);
        known.judged.insert_or_assign(path, Judged{*stamp, *whole});
    }
    if (!*whole) raiseFault(FaultNumber::InvalidPicture, path);
}

}  // namespace pictures
