#include "host/musicxml/xml/file_bytes.h"

#include <fstream>
#include <sstream>
#include <utility>

#include "host/texts/texts.h"

namespace standin {

FileBytes ReadFileBytes(const std::filesystem::path& file) {
    std::error_code failed;
    const std::filesystem::file_status status = std::filesystem::status(file, failed);
    if (status.type() == std::filesystem::file_type::not_found) {
        return {{}, Say(Text::kFileMissing, {})};
    }
    if (std::filesystem::is_directory(status)) {
        return {{}, Say(Text::kFolderNotScore, {})};
    }
    const std::ifstream stream{file, std::ios::binary};
    if (!stream) {
        return {{}, Say(Text::kFileClosed, {})};
    }
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    if (bytes.bad()) {
        return {{}, Say(Text::kFileUnreadable, {})};
    }
    return {std::move(bytes).str(), {}};
}

}  // namespace standin
