// The program's window, started as from a desktop.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "host/system/machine.h"

namespace {

constexpr const char* kScore = R"(<score-partwise version="4.0">
<part-list><score-part id="P1"><part-name>Choir</part-name></score-part></part-list>
<part id="P1"><measure number="1"><attributes><divisions>1</divisions></attributes>
<note><rest measure="yes"/><duration>4</duration></note></measure></part></score-partwise>)";

// FINALE.EXE, ended at the end of the scope.
class Program {
public:
    explicit Program(const std::filesystem::path& score) {
        const auto file = standin::machine::ProgramFolder().parent_path() / "FINALE.EXE";
        std::wstring command = L'"' + file.wstring() + L"\" \"" + score.wstring() + L'"';
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        EXPECT_NE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                 nullptr, &startup, &m_process),
                  0);
    }
    ~Program() {
        TerminateProcess(m_process.hProcess, 1);
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Empty if it ends, or shows none within half a minute.
    std::wstring TitleOfItsWindow(const std::wstring& expected) const {
        wchar_t title[256] = L"";
        for (int waited = 0; waited < 300 && expected != title; ++waited) {
            if (WaitForSingleObject(m_process.hProcess, 100) != WAIT_TIMEOUT) {
                return L"it ended";
            }
            GetWindowTextW(Window(), title, 256);
        }
        return title;
    }
    bool EndsWhenItsWindowCloses() const {
        PostMessageW(Window(), WM_CLOSE, 0, 0);
        return WaitForSingleObject(m_process.hProcess, 30000) == WAIT_OBJECT_0;
    }

private:
    static HWND Window() { return FindWindowW(L"PlyweldStandIn", nullptr); }

    PROCESS_INFORMATION m_process{};
};

TEST(Window, ShowsTheOneScoreThatTheProgramIsGiven) {
    const std::filesystem::path score = std::filesystem::temp_directory_path() / "given.musicxml";
    std::ofstream{score} << kScore;
    const Program program{score};
    EXPECT_EQ(program.TitleOfItsWindow(L"Finale - given.musicxml"), L"Finale - given.musicxml");
    EXPECT_TRUE(program.EndsWhenItsWindowCloses());
    std::filesystem::remove(score);
}

}  // namespace
