#include "platform/module.h"

#include <climits>
#include <cstdlib>
#include <dlfcn.h>

#include "platform/headless/state.h"

namespace platform {

namespace {

void* g_pluginModule = nullptr;

}  // namespace

void* FindHostFunction(const char* name) noexcept {
    if (headless::CurrentState().hiddenFunctions.contains(name)) {
        return nullptr;
    }
    return dlsym(RTLD_DEFAULT, name);
}

void SetPluginModule(void* module) noexcept {
    g_pluginModule = module;
}

std::string PluginFilePath() {
    Dl_info info{};
    if (g_pluginModule == nullptr || dladdr(g_pluginModule, &info) == 0 ||
        info.dli_fname == nullptr) {
        return {};
    }
    char path[PATH_MAX];
    return realpath(info.dli_fname, path) != nullptr ? std::string{path} : std::string{};
}

}  // namespace platform
