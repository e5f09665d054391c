#include "host/musicxml/xml/file_bytes.h"

#include <fstream>
#include <sstream>
#include <utility>

namespace standin {

FileBytes ReadFileBytes(const std::filesystem::path& file) {
    std::error_code failed;
    if (std::filesystem::is_directory(file, failed)) {
        return {{}, "the file is a folder"};
    }
    const std::ifstream stream{file, std::ios::binary};
    if (!stream) {
        return {{}, "the file cannot be opened"};
    }
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    if (bytes.bad()) {
        return {{}, "the file cannot be read"};
    }
    return {std::move(bytes).str(), {}};
}

}  // namespace standin
