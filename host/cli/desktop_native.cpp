#include <dlfcn.h>
#include <unistd.h>

#include "host/cli/desktop.h"
#include "platform/headless/session.h"

namespace standin::cli {

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

ShiftHeld::ShiftHeld() {
    platform::headless::HoldShift(true);
}

ShiftHeld::~ShiftHeld() {
    platform::headless::HoldShift(false);
}

void RunTimers() {
    platform::headless::FireTimers();
}

void MakeStreamsBinary() {}

bool ErrorsGoToTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace standin::cli
