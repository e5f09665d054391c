// The bytes of a file.
#pragma once

#include <filesystem>
#include <string>

namespace standin {

struct FileBytes {
    std::string bytes;
    std::string problem;  // why it failed; empty on success
};

FileBytes ReadFileBytes(const std::filesystem::path& file);

}  // namespace standin
