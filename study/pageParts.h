// What the pages of the reports are made of besides their data. The build writes the source of these from the
// files in study/page/ and from the plots' library of the distribution.
#pragma once

#include <string_view>

namespace pageParts {

extern const std::string_view frame;       ///< HTML with the places @STYLE@, @DATA@, @LIBRARY@, @SCRIPT@
extern const std::string_view pilotFrame;  ///< of simulated subjects, with the same places
extern const std::string_view style;
extern const std::string_view library;
extern const std::string_view licence;  ///< of the library; the page carries it
extern const std::string_view script;
extern const std::string_view pilotScript;

}  // namespace pageParts
