// Reading a picture file to its end, a reader for each kind. Pixels are decoded row by row and thrown away.
#pragma once

#include <cstdint>
#include <cstdio>

namespace pictureReaders {

/// Pixels of the largest picture that is taken. Size is judged from the header, before anything is decoded.
constexpr std::int64_t mostPixels = 50'000'000;

/// Each stands at the file's first byte when it begins. True if the picture is of a size that is taken, and
/// whole.
bool readPng(std::FILE* file);
bool readJpeg(std::FILE* file);
bool readGif(std::FILE* file);
bool readBitmap(std::FILE* file);

/// Whether a picture of that size is taken.
bool fits(std::int64_t width, std::int64_t height);

}  // namespace pictureReaders
