#include "host/system/machine.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <io.h>
#include <system_error>

#include "platform/module.h"

namespace standin::machine {

namespace {

// The plug-in shapes the host's menu 10 milliseconds after it was started.
constexpr DWORD kTimersAreDue = 50;

constexpr std::size_t kMaxAtOnce = 1U << 30U;  // bytes written in one call

std::error_code LastError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

void SetShift(BYTE state) {
    std::array<BYTE, 256> keys{};
    // A thread has its own keyboard state only after it has called for a message.
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
    if (GetKeyboardState(keys.data()) != 0) {
        keys[VK_SHIFT] = state;
        SetKeyboardState(keys.data());
    }
}

UINT g_codePageBefore = 0;

// A console shows bytes by its code page, which other programs share: it gets the old one back.
void UseUtf8OnConsole() {
    g_codePageBefore = GetConsoleOutputCP();
    if (g_codePageBefore != 0 && g_codePageBefore != CP_UTF8 && SetConsoleOutputCP(CP_UTF8) != 0) {
        std::atexit([] { SetConsoleOutputCP(g_codePageBefore); });
    }
}

bool TakesCodes(DWORD stream) {
    const HANDLE console = GetStdHandle(stream);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace

const char* const kPluginFile = "plyweld.fxt";

std::filesystem::path ProgramFolder() {
    std::wstring path(32768, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length);
    return std::filesystem::path{path}.parent_path();
}

std::unique_ptr<Library> Library::Open(const std::filesystem::path& file, std::string& problem) {
    HMODULE module = LoadLibraryW(file.c_str());
    if (module == nullptr) {
        problem = std::system_category().message(static_cast<int>(GetLastError()));
        return nullptr;
    }
    // Numbered texts of alerts are in the plug-in's own resources.
    platform::SetPluginModule(module);
    return std::unique_ptr<Library>{new Library{module}};
}

// An entry of 0 in the address table means no export.
bool HideExport(const char* name) {
    auto* const image = reinterpret_cast<unsigned char*>(GetModuleHandleW(nullptr));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(image + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    if (directory.Size == 0) {
        return false;
    }
    const auto* exports =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(image + directory.VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(image + exports->AddressOfNames);
    const auto* places = reinterpret_cast<const WORD*>(image + exports->AddressOfNameOrdinals);
    auto* const addresses = reinterpret_cast<DWORD*>(image + exports->AddressOfFunctions);
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        if (std::strcmp(reinterpret_cast<const char*>(image + names[i]), name) != 0) {
            continue;
        }
        DWORD* const address = addresses + places[i];
        DWORD protection = 0;
        if (VirtualProtect(address, sizeof(DWORD), PAGE_READWRITE, &protection) == 0) {
            return false;
        }
        *address = 0;
        VirtualProtect(address, sizeof(DWORD), protection, &protection);
        return true;
    }
    return false;
}

Library::~Library() {
    FreeLibrary(static_cast<HMODULE>(m_handle));
}

void* Library::FindExport(const char* name) const {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(m_handle), name));
}

ShiftHeld::ShiftHeld() {
    SetShift(0x80);
}

ShiftHeld::~ShiftHeld() {
    SetShift(0);
}

void RunTimers() {
    const ULONGLONG end = GetTickCount64() + kTimersAreDue;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void PrepareStreams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    UseUtf8OnConsole();
}

std::error_code WriteThrough(const std::filesystem::path& file, std::string_view bytes) {
    HANDLE out = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
    if (out == INVALID_HANDLE_VALUE) {
        return LastError();
    }
    std::error_code failed;
    while (!failed && !bytes.empty()) {
        const auto part = static_cast<DWORD>(std::min(bytes.size(), kMaxAtOnce));
        DWORD written = 0;
        failed = WriteFile(out, bytes.data(), part, &written, nullptr) == 0 ? LastError() : failed;
        bytes.remove_prefix(written);
    }
    // Anything but a file on a disk has nothing to flush.
    if (!failed && GetFileType(out) == FILE_TYPE_DISK && FlushFileBuffers(out) == 0) {
        failed = LastError();
    }
    CloseHandle(out);
    return failed;
}

std::filesystem::path MakeTemporaryFolder() {
    // The process number is unique as long as the process runs.
    const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                         ("plyweld-" + std::to_string(GetCurrentProcessId()));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    return folder;
}

void FlushFolder(const std::filesystem::path&) {}

bool ErrorsGoToTerminal() {
    return _isatty(_fileno(stderr)) != 0;
}

bool OutputGoesToTerminal() {
    return _isatty(_fileno(stdout)) != 0;
}

bool TerminalTakesCodes() {
    static const bool takes = TakesCodes(STD_ERROR_HANDLE) || TakesCodes(STD_OUTPUT_HANDLE);
    return takes;
}

Language UserLanguage() {
    const bool isSpanish = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_SPANISH;
    return isSpanish ? Language::kSpanish : Language::kEnglish;
}

bool SettingsOutliveTheProgram() {
    return true;
}

}  // namespace standin::machine
