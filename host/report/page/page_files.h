// The files of the report page that are not C++, as they are in this folder.
#pragma once

#include <string_view>

namespace standin {

extern const std::string_view kPageStyle;   // page.css
extern const std::string_view kPageScript;  // page.js

}  // namespace standin
