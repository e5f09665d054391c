#include "host/system/machine.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include "platform/headless/session.h"

namespace standin::machine {

namespace {

// Closed when the scope ends.
struct OpenFile {
    explicit OpenFile(int opened) : descriptor{opened} {}
    ~OpenFile() {
        if (descriptor >= 0) {
            close(descriptor);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    const int descriptor;
};

std::error_code LastError() {
    return {errno, std::generic_category()};
}

}  // namespace

const char* const kPluginFile = "plyweld.so";

std::filesystem::path ProgramFolder() {
    std::error_code failed;
    return std::filesystem::read_symlink("/proc/self/exe", failed).parent_path();
}

std::unique_ptr<Library> Library::Open(const std::filesystem::path& file, std::string& problem) {
    void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        problem = dlerror();
        return nullptr;
    }
    return std::unique_ptr<Library>{new Library{handle}};
}

Library::~Library() {
    dlclose(m_handle);
}

void* Library::FindExport(const char* name) const {
    return dlsym(m_handle, name);
}

bool HideExport(const char* name) {
    platform::headless::HideHostFunction(name);
    return true;
}

ShiftHeld::ShiftHeld() {
    platform::headless::HoldShift(true);
}

ShiftHeld::~ShiftHeld() {
    platform::headless::HoldShift(false);
}

void RunTimers() {
    platform::headless::FireTimers();
}

void PrepareStreams() {
    std::signal(SIGXFSZ, SIG_IGN);
}

std::error_code WriteThrough(const std::filesystem::path& file, std::string_view bytes) {
    const OpenFile out{open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)};
    if (out.descriptor < 0) {
        return LastError();
    }
    while (!bytes.empty()) {
        const ssize_t written = write(out.descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return LastError();
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    // A pipe or a device has nothing to flush to a disk.
    const bool failed = fsync(out.descriptor) != 0 && errno != EINVAL && errno != EROFS;
    return failed ? LastError() : std::error_code{};
}

std::filesystem::path MakeTemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "plyweld-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::system_error{LastError()};
    }
    return name;
}

void FlushFolder(const std::filesystem::path& folder) {
    const std::filesystem::path name = folder.empty() ? "." : folder;
    const OpenFile opened{open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    if (opened.descriptor >= 0) {
        fsync(opened.descriptor);
    }
}

bool ErrorsGoToTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

bool OutputGoesToTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

bool TerminalTakesCodes() {
    const char* terminal = std::getenv("TERM");
    return terminal != nullptr && *terminal != '\0' && std::string_view{terminal} != "dumb";
}

Language UserLanguage() {
    const bool isSpanish =
        platform::headless::CurrentLanguage() == platform::headless::Language::kSpanish;
    return isSpanish ? Language::kSpanish : Language::kEnglish;
}

bool SettingsOutliveTheProgram() {
    return false;
}

}  // namespace standin::machine
