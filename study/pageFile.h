// A page of HTML with figures, as a file: it carries its data, its plots' library and its style and fetches
// nothing.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

#include "study/figures.h"

namespace pageFile {

using Json = nlohmann::json;

/// As text that can stand in a script element: no sign of it begins a tag or a comment.
std::string scriptText(const Json& data);

Json ofSpread(const std::optional<figures::Spread>& spread);
Json ofBins(const figures::Bins& bins);

template <class Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

/// To three decimals, which is finer than a plot shows.
double rounded(double value);

/// Throws std::runtime_error where the file exists and is no page of this frame.
void refuseOther(const std::string& page, std::string_view frame);

/// Writes the page beside itself and moves it into its place when it is whole; an existing page of the same
/// frame is replaced. `data` writes what stands for @DATA@. Throws std::runtime_error, which names the file.
void write(const std::string& page, std::string_view frame, std::string_view script,
           const std::function<void(std::ostream&)>& data);

}  // namespace pageFile
