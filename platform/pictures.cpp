#include "platform/pictures.h"

#include <array>
#include <filesystem>
#include <memory>
#include <string_view>

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

}  // namespace

void check(const std::string& path) {
    std::error_code failed;
    std::unique_ptr<std::FILE, Closer> file;
    if (std::filesystem::is_regular_file(path, failed)) file.reset(std::fopen(path.c_str(), "rb"));
    if (!file) raiseFault(FaultNumber::FileNotFound, path);
    if (!isWhole(file.get())) raiseFault(FaultNumber::InvalidPicture, path);
}

}  // namespace pictures
