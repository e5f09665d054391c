// plyweld.exe: starts FINALE.EXE in the same folder with the same arguments, console and exit code.
// The plug-in looks for a module of that name; users type the other.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <shellapi.h>
#include <string>

#include "host/texts/texts.h"

namespace {

constexpr int kNotStarted = 1;

struct Handle {
    explicit Handle(HANDLE opened) : value{opened} {}
    ~Handle() {
        if (value != nullptr) {
            CloseHandle(value);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    const HANDLE value;
};

std::wstring ProgramBesideThis() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\') + 1) + L"FINALE.EXE";
}

// The command line after the program's name, unparsed, so that quotes and backslashes arrive
// unchanged.
std::wstring Arguments() {
    const std::wstring line = GetCommandLineW();
    const bool quoted = !line.empty() && line[0] == L'"';
    const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
    const std::size_t rest =
        end == std::wstring::npos ? end : line.find_first_not_of(L" \t", end + (quoted ? 1 : 0));
    return rest == std::wstring::npos ? std::wstring{} : line.substr(rest);
}

// Opened from a folder window: no other program uses the console, if there is one.
bool IsAloneOnItsConsole() {
    DWORD processes[2];
    return GetConsoleProcessList(processes, 2) <= 1;
}

// No arguments, or files that were dropped onto this program: FINALE.EXE opens its window.
bool AreAllFiles() {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (words == nullptr) {
        return false;
    }
    const bool files = std::all_of(words + 1, words + count, [](const wchar_t* word) {
        return GetFileAttributesW(word) != INVALID_FILE_ATTRIBUTES;
    });
    LocalFree(words);
    return files;
}

// The end of this program must be the end of the other.
void EndTogether(HANDLE job, HANDLE process) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job, process);
}

}  // namespace

int main() {
    const bool opened = IsAloneOnItsConsole();
    const std::wstring program = ProgramBesideThis();
    std::wstring arguments = Arguments();
    if (arguments.empty() && !opened) {
        arguments = L"--help";
    }
    std::wstring line = L'"' + program + L"\" " + arguments;
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    PROCESS_INFORMATION started{};
    const bool window = opened && AreAllFiles();
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE,
                       window ? DETACHED_PROCESS : CREATE_SUSPENDED, nullptr, nullptr, &startup,
                       &started) == 0) {
        const bool isSpanish = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_SPANISH;
        standin::SetLanguage(isSpanish ? standin::Language::kSpanish : standin::Language::kEnglish);
        std::fprintf(stderr, "plyweld: %s\n",
                     standin::Say(standin::Text::kProgramNotStarted, {}).c_str());
        return kNotStarted;
    }
    const Handle process{started.hProcess};
    const Handle thread{started.hThread};
    if (window) {
        return 0;
    }
    const Handle job{CreateJobObjectW(nullptr, nullptr)};
    EndTogether(job.value, process.value);
    // Ctrl-C is meant for the other program; this one waits for its result.
    SetConsoleCtrlHandler(nullptr, TRUE);
    ResumeThread(thread.value);
    WaitForSingleObject(process.value, INFINITE);
    DWORD exitCode = kNotStarted;
    GetExitCodeProcess(process.value, &exitCode);
    return static_cast<int>(exitCode);
}
