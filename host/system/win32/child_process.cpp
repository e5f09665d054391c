#include "host/system/child_process.h"

#include <windows.h>

namespace standin::machine {

namespace {

// Closed when the scope ends.
struct OwnedHandle {
    explicit OwnedHandle(HANDLE opened) : handle{opened} {}
    ~OwnedHandle() {
        if (handle != nullptr && handle != INVALID_HANDLE_VALUE) {
            CloseHandle(handle);
        }
    }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;
    const HANDLE handle;
};

// Quotes as the child's C runtime parses a command line: backslashes are special only before a
// quotation mark.
std::wstring Quoted(const std::wstring& word) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        if (c == L'"') {
            std::size_t before = 0;
            while (before < quoted.size() - 1 && quoted[quoted.size() - 1 - before] == L'\\') {
                ++before;
            }
            quoted.append(before + 1, L'\\');
        }
        quoted += c;
    }
    return quoted.append(backslashes, L'\\') + L"\"";
}

HANDLE OpenInherited(const wchar_t* file, DWORD access, DWORD creation) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CreateFileW(file, access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, creation,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

int RunThisProgram(const std::vector<std::string>& arguments, const std::filesystem::path& output,
                   const std::filesystem::path& errors) {
    std::wstring program(32768, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    std::wstring line = Quoted(program);
    for (const std::string& argument : arguments) {
        const std::filesystem::path word{std::u8string{argument.begin(), argument.end()}};
        line += L' ' + Quoted(word.native());
    }
    const OwnedHandle in{OpenInherited(L"NUL", GENERIC_READ, OPEN_EXISTING)};
    const OwnedHandle out{OpenInherited(output.c_str(), GENERIC_WRITE, CREATE_ALWAYS)};
    const OwnedHandle err{OpenInherited(errors.c_str(), GENERIC_WRITE, CREATE_ALWAYS)};
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = in.handle;
    startup.hStdOutput = out.handle;
    startup.hStdError = err.handle;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                       nullptr, nullptr, &startup, &process) == 0) {
        return -1;
    }
    const OwnedHandle child{process.hProcess};
    const OwnedHandle thread{process.hThread};
    WaitForSingleObject(child.handle, INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(child.handle, &exitCode);
    return exitCode > 255 ? -1 : static_cast<int>(exitCode);
}

}  // namespace standin::machine
