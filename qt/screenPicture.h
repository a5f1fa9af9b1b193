// A picture of the screen: all windows of the program over each other as they stand.
#pragma once

#include <string>

namespace screenPicture {

/// Writes a PNG; throws Refused if the file cannot be written.
void write(const std::string& file);

}  // namespace screenPicture
