// Files that a test writes and reads.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

inline std::string Content(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream{file, std::ios::binary}.rdbuf();
    return text.str();
}

// An empty folder for as long as it lives.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directory(m_path);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }

    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path =
        std::filesystem::temp_directory_path() / ("plyweld_test_" + std::to_string(getpid()));
};
