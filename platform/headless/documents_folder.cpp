#include "platform/documents_folder.h"

#include <cstdlib>
#include <filesystem>

namespace platform {

std::string DocumentsFolder() {
    const char* home = std::getenv("HOME");
    return home != nullptr ? std::string{home} : std::filesystem::temp_directory_path().string();
}

}  // namespace platform
