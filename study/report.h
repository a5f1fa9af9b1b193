// The report on a study in progress: one page of HTML that carries its data, its plots' library and its style
// and fetches nothing. The same store gives the same page.
#pragma once

#include <functional>
#include <string>

namespace report {

/// Writes the page. An existing page of ours is replaced, another file is refused. `patient`, if not empty,
/// is SUBJECT:TRIAL and chooses whose time line the page opens with; otherwise it is the patient that began
/// last. `told`, if given, hears now and then what share is done, 0 to 1; what it throws ends the work, and
/// no page is written. Throws std::runtime_error, which names file, table or patient.
void write(const std::string& file, const std::string& page, const std::string& patient,
           const std::function<void(double)>& told = {});

}  // namespace report
