// What a page of the report is made of besides its data. The build writes the source of these from the files
// in study/page/ and from the plots' library of the distribution.
#pragma once

#include <string_view>

namespace pageParts {

extern const std::string_view frame;  ///< HTML with the places @STYLE@, @DATA@, @LIBRARY@, @SCRIPT@
extern const std::string_view style;
extern const std::string_view library;
extern const std::string_view licence;  ///< of the library; the page carries it
extern const std::string_view script;

}  // namespace pageParts
