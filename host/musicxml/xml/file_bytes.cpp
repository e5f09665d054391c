#include "host/musicxml/xml/file_bytes.h"

#include <fstream>
#include <sstream>
#include <utility>

namespace standin {

FileBytes ReadFileBytes(const std::filesystem::path& file) {
    std::error_code failed;
    const std::filesystem::file_status status = std::filesystem::status(file, failed);
    if (status.type() == std::filesystem::file_type::not_found) {
        return {{}, "the file does not exist"};
    }
    if (std::filesystem::is_directory(status)) {
        return {{}, "this is a folder, not a score"};
    }
    const std::ifstream stream{file, std::ios::binary};
    if (!stream) {
        return {{}, "the file cannot be opened for reading"};
    }
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    if (bytes.bad()) {
        return {{}, "the file cannot be read"};
    }
    return {std::move(bytes).str(), {}};
}

}  // namespace standin
