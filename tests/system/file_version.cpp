#include "tests/system/file_version.h"

#include <windows.h>

#include <vector>

namespace system_test {

FileVersion VersionOf(const std::filesystem::path& file) {
    FileVersion version;
    DWORD ignored = 0;
    std::vector<BYTE> block(GetFileVersionInfoSizeW(file.c_str(), &ignored));
    if (block.empty() ||
        GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) == 0) {
        return version;
    }
    void* found = nullptr;
    UINT size = 0;
    if (VerQueryValueW(block.data(), L"\\", &found, &size) != 0) {
        const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
        version.major = HIWORD(fixed->dwFileVersionMS);
        version.minor = LOWORD(fixed->dwFileVersionMS);
    }
    if (VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\FileVersion", &found, &size) !=
        0) {
        version.text = static_cast<const wchar_t*>(found);
    }
    return version;
}

}  // namespace system_test
