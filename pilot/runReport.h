// What a run tells when it is whole: the summary on the terminal and, if wanted, the page.
#pragma once

#include <ostream>
#include <string>

namespace runReport {

/// Writes the summary of the store that was made to `out`, and the page unless `page` is empty. `folder` is
/// the program's. Throws std::runtime_error, which names the file.
void tell(std::ostream& out, const std::string& store, const std::string& folder, const std::string& page);

}  // namespace runReport
