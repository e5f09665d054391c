#include "host/cli/output_file.h"

#include <fstream>
#include <iostream>
#include <random>

namespace standin::cli {

namespace fs = std::filesystem;

namespace {

bool Write(const fs::path& file, std::string_view bytes) {
    std::ofstream stream{file, std::ios::binary | std::ios::trunc};
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    return !stream.fail();
}

fs::path NameBeside(const fs::path& target) {
    std::random_device random;
    for (;;) {
        fs::path name = target;
        name += ".";
        name += std::to_string(random());
        name += ".part";
        std::error_code ignored;
        if (!fs::exists(name, ignored)) {
            return name;
        }
    }
}

// Removes a file unless it was kept.
class Leftover {
public:
    explicit Leftover(fs::path file) : m_file{std::move(file)} {}
    ~Leftover() {
        std::error_code ignored;
        if (!m_kept) {
            fs::remove(m_file, ignored);
        }
    }
    Leftover(const Leftover&) = delete;
    Leftover& operator=(const Leftover&) = delete;
    void Keep() noexcept { m_kept = true; }

private:
    fs::path m_file;
    bool m_kept = false;
};

}  // namespace

std::string WriteWhole(const std::string& target, std::string_view bytes) {
    if (bytes.empty()) {
        return "cannot be put together";
    }
    if (target == kStandardStream) {
        std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        std::cout.flush();
        return std::cout.fail() ? "standard output takes no more" : "";
    }
    std::error_code failed;
    fs::path file = PathOf(target);
    const fs::file_status status = fs::status(file, failed);
    if (fs::is_directory(status)) {
        return "is a folder";
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return Write(file, bytes) ? "" : "cannot be written";
    }
    if (fs::exists(status)) {
        file = fs::canonical(file, failed);
    }
    const fs::path part = NameBeside(file);
    Leftover leftover{part};
    if (!Write(part, bytes)) {
        return "cannot be written";
    }
    if (fs::exists(status)) {
        fs::permissions(part, status.permissions(), failed);
    }
    fs::rename(part, file, failed);
    if (failed) {
        return "cannot be written: " + failed.message();
    }
    leftover.Keep();
    return {};
}

fs::path PathOf(const std::string& text) {
    return fs::path{std::u8string{text.begin(), text.end()}};
}

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace standin::cli
