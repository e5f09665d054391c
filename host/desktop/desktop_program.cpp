#include "host/desktop/desktop_program.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "host/cli/io/output_file.h"
#include "host/desktop/script/script_player.h"
#include "host/desktop/script/script_settings.h"
#include "host/desktop/toolkit/wide_text.h"
#include "host/desktop/window/main_window.h"

namespace standin::desktop {

namespace {

constexpr int kMaxFailures = 100;
constexpr int kUnreadable = 101;
constexpr int kNoWindow = 102;

struct ScriptOptions {
    std::filesystem::path pictures = ".";
    std::filesystem::path script;
};

ScriptOptions ReadOptions(const std::vector<std::string>& arguments) {
    ScriptOptions options;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == "--pictures" && i + 1 < arguments.size()) {
            options.pictures = cli::PathOf(arguments[++i]);
        } else {
            options.script = cli::PathOf(arguments[i]);
        }
    }
    return options;
}

// Executes the lines before "start", which prepare the plug-in's start: "short-menus" and settings.
// False: another line, or one that failed.
bool Prepare(std::vector<ScriptLine>& lines, MenuBarKind& menus) {
    const auto start = std::ranges::find_if(
        lines, [](const ScriptLine& line) { return line.words[0] == "start"; });
    if (start == lines.end()) {
        return true;
    }
    const bool prepared = std::all_of(lines.begin(), start, [&menus](const ScriptLine& line) {
        if (line.words[0] == "short-menus") {
            menus = MenuBarKind::kShort;
            return true;
        }
        return PrepareSetting(line.words);
    });
    lines.erase(lines.begin(), start + 1);
    return prepared;
}

int RunScript(const ScriptOptions& options) {
    std::ifstream file{options.script, std::ios::binary};
    const std::string text{std::istreambuf_iterator<char>{file}, {}};
    ScriptText script = ReadScript(text, SessionLanguage());
    if (script.lines.empty() || !script.problem.empty()) {
        std::fprintf(stderr, "%s: %s\n", cli::TextOf(options.script).c_str(),
                     script.problem.empty() ? "it holds no lines" : script.problem.c_str());
        return kUnreadable;
    }
    MenuBarKind menus = MenuBarKind::kFull;
    if (!Prepare(script.lines, menus)) {
        std::fprintf(stderr, "%s: a line before the start failed\n",
                     cli::TextOf(options.script).c_str());
        return kUnreadable;
    }
    MainWindow window{menus};
    int failures = 0;
    const DWORD windowThread = GetCurrentThreadId();
    std::thread player{[&] {
        failures =
            PlayScript({window, options.script.parent_path(), options.pictures, SessionLanguage()},
                       script.lines);
        // A menu that is still open would not notice the end.
        SendMessageW(window.Window(), WM_CANCELMODE, 0, 0);
        PostThreadMessageW(windowThread, WM_QUIT, 0, 0);
    }};
    // The plug-in may already show an alert, which the script answers.
    window.StartPlugins();
    window.Run();
    player.join();
    return std::min(failures, kMaxFailures);
}

int RunForPerson(const std::vector<std::string>& files) {
    FreeConsole();
    MainWindow window{MenuBarKind::kFull};
    window.StartPlugins();
    for (const std::string& file : files) {
        window.Open(cli::PathOf(file));
    }
    return window.Run();
}

bool IsScore(const std::string& argument) {
    const std::string extension = cli::PathOf(argument).extension().string();
    return extension == ".musicxml" || extension == ".xml" || extension == ".mxl";
}

}  // namespace

bool WantsWindow(const std::vector<std::string>& arguments) {
    return std::ranges::all_of(arguments, IsScore) ||
           (arguments.size() >= 2 && arguments[0] == "script");
}

int RunWindow(const std::vector<std::string>& arguments) {
    try {
        if (!arguments.empty() && arguments[0] == "script") {
            return RunScript(ReadOptions(arguments));
        }
        return RunForPerson(arguments);
    } catch (const std::exception& problem) {
        MessageBoxW(nullptr, WideFromUtf8(problem.what()).c_str(), L"Finale", MB_OK | MB_ICONERROR);
        return kNoWindow;
    }
}

}  // namespace standin::desktop
