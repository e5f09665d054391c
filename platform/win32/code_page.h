// How Windows is asked to convert text to a code page.
#pragma once

#include <windows.h>

namespace platform {

// Windows takes no flag for best-fit mapping with UTF-8, which some systems have as their own code
// page, and refuses the conversion.
constexpr DWORD FlagsToCodePage(UINT codePage) noexcept {
    return codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
}

}  // namespace platform
