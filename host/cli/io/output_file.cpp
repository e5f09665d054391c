#include "host/cli/io/output_file.h"

#include <algorithm>
#include <iostream>
#include <random>
#include <system_error>

#include "host/cli/io/held_interrupt.h"
#include "host/system/machine.h"
#include "host/texts/system_errors.h"
#include "host/texts/texts.h"

namespace standin::cli {

namespace fs = std::filesystem;

namespace {

constexpr int kMaxLinks = 40;

// The target of links, even if it does not exist yet.
fs::path Followed(fs::path file) {
    std::error_code failed;
    for (int i = 0; i < kMaxLinks && fs::is_symlink(fs::symlink_status(file, failed)); ++i) {
        file = file.parent_path() / fs::read_symlink(file, failed);
    }
    return file;
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

// Removes a file unless it is kept.
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

std::error_code Replace(const fs::path& file, const fs::file_status& status,
                        std::string_view bytes) {
    const HeldInterrupt held;  // removes the part first
    const fs::path part = NameBeside(file);
    Leftover leftover{part};
    std::error_code failed = machine::WriteThrough(part, bytes);
    if (failed) {
        return failed;
    }
    if (fs::exists(status)) {
        fs::permissions(part, status.permissions(), failed);
    }
    if (HeldInterrupt::HasCome()) {
        return std::make_error_code(std::errc::interrupted);
    }
    fs::rename(part, file, failed);
    if (!failed) {
        leftover.Keep();
        machine::FlushFolder(file.parent_path());
    }
    return failed;
}

std::string Unwritten(const std::error_code& failed) {
    return failed ? Say(Text::kCannotWrite, {WordsFor(failed)}) : std::string{};
}

}  // namespace

std::string WriteWhole(const std::string& target, std::string_view bytes) {
    if (bytes.empty()) {
        return Say(Text::kCannotPutTogether, {});
    }
    if (target == kStandardStream) {
        std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        std::cout.flush();
        return std::cout.fail() ? Say(Text::kOutputFull, {}) : std::string{};
    }
    std::error_code failed;
    const fs::path file = Followed(PathOf(target));
    const fs::file_status status = fs::status(file, failed);
    if (fs::is_directory(status)) {
        return Say(Text::kIsAFolder, {});
    }
    if (!fs::status_known(status)) {
        return Unwritten(failed);
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return Unwritten(machine::WriteThrough(file, bytes));
    }
    return Unwritten(Replace(file, status, bytes));
}

fs::path PathOf(const std::string& text) {
    return fs::path{std::u8string{text.begin(), text.end()}};
}

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string LowerCaseExtension(const std::string& name) {
    std::string extension = TextOf(PathOf(name).extension());
    std::ranges::transform(extension, extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return extension;
}

bool IsDeviceOrPipe(const std::string& name) {
    std::error_code failed;
    const fs::file_status status = fs::status(PathOf(name), failed);
    return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

}  // namespace standin::cli
