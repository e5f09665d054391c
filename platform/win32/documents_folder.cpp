#include "platform/documents_folder.h"

#include <windows.h>

#include <filesystem>
#include <shlobj.h>

namespace platform {

std::string DocumentsFolder() {
    wchar_t path[MAX_PATH];
    const bool isKnown =
        SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK;
    const std::u8string text =
        (isKnown ? std::filesystem::path{path} : std::filesystem::temp_directory_path()).u8string();
    return {text.begin(), text.end()};
}

}  // namespace platform
