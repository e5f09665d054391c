#include "shell/entry/folder_check.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace {

constexpr std::string_view kForeignFolders[] = {"Miscellaneous", "Multimeasure Rests", "Staff Sets",
                                                "Transpose"};

bool IsForeign(const std::filesystem::directory_entry& entry) {
    std::error_code error;
    if (!entry.is_directory(error)) {
        return false;
    }
    const std::u8string stem = entry.path().stem().u8string();
    return std::ranges::any_of(kForeignFolders, [&stem](std::string_view name) {
        return std::ranges::equal(name, stem,
                                  [](char a, char8_t b) { return static_cast<char8_t>(a) == b; });
    });
}

}  // namespace

bool HoldsForeignFolder(const std::string& pluginFile) {
    const std::filesystem::path file{std::u8string{pluginFile.begin(), pluginFile.end()}};
    std::error_code error;
    std::filesystem::directory_iterator entry{file.parent_path(), error};
    while (!error && entry != std::filesystem::directory_iterator{}) {
        if (IsForeign(*entry)) {
            return true;
        }
        entry.increment(error);
    }
    return false;
}
