// The version resource of a file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace system_test {

struct FileVersion {
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::wstring text;  // in English
};

// Zeros and no text when the file carries none.
FileVersion VersionOf(const std::filesystem::path& file);

}  // namespace system_test
