// BMP pictures. No library of the distribution tells a whole one from a cut one; but their rows are so plain
// that the header says where the last one ends. Compressed rows are walked.
#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "platform/pictureReaders.h"

namespace pictureReaders {

namespace {

enum Compression : std::uint32_t { Plain = 0, RunLength8 = 1, RunLength4 = 2, Masks = 3 };

struct Header {
    std::int64_t width, height;
    std::uint32_t planes, bits, compression, colours;
    std::int64_t rows;   ///< offset of the first row in the file
    std::int64_t start;  ///< offset behind header, masks and colour table
};

using Bytes = std::array<unsigned char, 54>;

std::uint32_t number(const Bytes& bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) value = (value << 8U) | bytes[at + i];
    return value;
}

/// The oldest form, or one of those that begin like the most common one.
std::optional<Header> readHeader(std::FILE* file) {
    Bytes bytes{};
    const std::size_t had = std::fread(bytes.data(), 1, bytes.size(), file);
    const std::uint32_t size = number(bytes, 14, 4);
    const bool old = size == 12;
    if (had < (old ? 26 : bytes.size()) || (!old && size != 40 && size != 64 && size != 108 && size != 124))
        return std::nullopt;
    Header header{};
    header.rows = number(bytes, 10, 4);
    if (old) {
        header.width = number(bytes, 18, 2);
        header.height = number(bytes, 20, 2);
        header.planes = number(bytes, 22, 2);
        header.bits = number(bytes, 24, 2);
    } else {
        header.width = static_cast<std::int32_t>(number(bytes, 18, 4));
        // Negative: the rows stand from the top down.
        header.height = std::abs(std::int64_t{static_cast<std::int32_t>(number(bytes, 22, 4))});
        header.planes = number(bytes, 26, 2);
        header.bits = number(bytes, 28, 2);
        header.compression = number(bytes, 30, 4);
        header.colours = number(bytes, 46, 4);
    }
    if (header.bits <= 8 && header.colours == 0) header.colours = 1U << header.bits;
    if (header.bits > 8) header.colours = 0;
    header.start = 14 + size + std::int64_t{header.colours} * (old ? 3 : 4);
    if (size == 40 && header.compression == Masks) header.start += 12;
    return header;
}

bool isKnown(const Header& h) {
    constexpr std::array depths{1U, 4U, 8U, 16U, 24U, 32U};
    if (h.planes != 1 || h.colours > 256 || std::ranges::find(depths, h.bits) == depths.end()) return false;
    switch (h.compression) {
        case Plain: return true;
        case RunLength8: return h.bits == 8;
        case RunLength4: return h.bits == 4;
        case Masks: return h.bits == 16 || h.bits == 32;
        default: return false;
    }
}

/// A pair of bytes is a run, or behind a 0 one of: 0 end of the row, 1 end of the picture, 2 a jump with two
/// further bytes, otherwise that many pixels as they stand, padded to an even number of bytes.
bool walkRuns(std::FILE* file, const Header& header) {
    for (std::int64_t rows = 0; rows < header.height;) {
        const int count = std::fgetc(file);
        const int value = std::fgetc(file);
        if (value == EOF) return false;
        if (count != 0) continue;
        if (value == 1) return true;
        if (value == 0) {
            ++rows;
        } else if (value == 2) {
            std::fgetc(file);
            rows += std::max(0, std::fgetc(file));
        } else {
            const int bytes = header.bits == 8 ? value : (value + 1) / 2;
            for (int i = 0; i < bytes + bytes % 2; ++i) std::fgetc(file);
        }
    }
    return std::feof(file) == 0;
}

}  // namespace

bool readBitmap(std::FILE* file) {
    const std::optional<Header> header = readHeader(file);
    if (!header || !isKnown(*header) || !fits(header->width, header->height)) return false;
    const std::int64_t rows = std::max(header->rows, header->start);
    if (header->compression == RunLength8 || header->compression == RunLength4)
        return std::fseek(file, static_cast<long>(rows), SEEK_SET) == 0 && walkRuns(file, *header);
    const std::int64_t rowBytes = (header->width * header->bits + 31) / 32 * 4;
    return std::fseek(file, 0, SEEK_END) == 0 && std::ftell(file) >= rows + rowBytes * header->height;
}

}  // namespace pictureReaders
