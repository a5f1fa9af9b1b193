// Whether a picture can be shown. Both programs ask here, so that a study that plays without a screen has no
// picture that fails on one.
#pragma once

#include <string>

namespace pictures {

/// Faults with File not found, or with Invalid picture unless the file is a PNG, JPEG, GIF or BMP picture of
/// at most 50 megapixels that can be decoded to its end.
void check(const std::string& path);

}  // namespace pictures
