#include "platform/module.h"

#include <windows.h>

#include "platform/text.h"
#include "platform/win32/plugin_module.h"

namespace platform {

namespace {

HMODULE g_pluginModule = nullptr;

}  // namespace

void* FindHostFunction(const char* name) noexcept {
    static const HMODULE host = GetModuleHandleA("FINALE.EXE");
    if (host == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<void*>(GetProcAddress(host, name));
}

void SetPluginModule(void* module) noexcept {
    g_pluginModule = static_cast<HMODULE>(module);
}

HINSTANCE PluginModule() noexcept {
    return g_pluginModule;
}

std::string PluginFilePath() {
    // The longest path that the system knows.
    std::wstring path(32768, L'\0');
    const DWORD length =
        GetModuleFileNameW(g_pluginModule, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length >= path.size()) {
        return {};
    }
    const std::u16string units(path.begin(), path.begin() + length);
    return Utf16ToMultiByte(units, CodePage::kUtf8).value_or(std::string{});
}

}  // namespace platform
