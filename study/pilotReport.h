// The report on simulated subjects: a page of HTML that sets the policies side by side in each scenario. It
// grows with scenarios and policies, and not with subjects.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "study/pilotFigures.h"

namespace pilotReport {

/// What a scenario's tables are found to forbid, each a sentence that names the scenario; nothing where
/// nobody has looked.
using Warnings = std::optional<std::vector<std::string>>;

/// Throws std::runtime_error where the page exists and is no such report, for whoever has long work before
/// it.
void refuseOther(const std::string& page);

/// Writes the page; an existing one is replaced, another file is refused. `store` is the name in its heading.
/// Throws std::runtime_error, which names the file.
void write(const std::string& page, const std::string& store, std::span<const pilotFigures::Outcome> outcomes,
           const Warnings& warnings);

/// The same with the figures of a store, which is only read.
void write(const std::string& page, const std::string& store, const Warnings& warnings);

}  // namespace pilotReport
