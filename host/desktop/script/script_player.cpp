#include "host/desktop/script/script_player.h"

#include <algorithm>
#include <cstdio>
#include <span>

#include "host/desktop/script/patience.h"
#include "host/desktop/script/script_actions.h"
#include "host/desktop/script/script_expectations.h"
#include "host/desktop/toolkit/wide_text.h"

namespace standin::desktop {

namespace {

void Report(const ScriptLine& line, const std::string& problem) {
    const std::size_t start = line.text.find_first_not_of(" \t");
    std::string text = line.text.substr(start);
    text.erase(text.find_last_not_of(" \t\r") + 1);
    if (problem.empty()) {
        std::printf("ok      %3d  %s\n", line.number, text.c_str());
    } else {
        std::printf("FAILED  %3d  %s: %s\n", line.number, text.c_str(), problem.c_str());
    }
    std::fflush(stdout);
}

std::string Expect(ScriptScene& scene, const std::vector<std::string>& words) {
    const std::vector<std::string> expectation{words.begin() + 1, words.end()};
    std::string problem = CheckExpectation(scene, expectation);
    for (int waited = 0; !problem.empty() && waited < kPatience; waited += kLook) {
        Sleep(kLook);
        problem = CheckExpectation(scene, expectation);
    }
    return problem;
}

// When nothing is running, the plug-in must have returned all loans and ended all edits.
std::string LeftOver(const ScriptScene& scene) {
    std::string problem;
    scene.window.InWindowThread([&problem] {
        if (App().lent.Count() != 0) {
            problem = "frames are still lent";
        } else if (!App().progressDisplays.empty()) {
            problem = "a progress display is still open";
        } else if (App().CurrentDocument() != nullptr && App().CurrentDocument()->IsEditOpen()) {
            problem = "an edit is still open";
        }
    });
    return problem;
}

using Lines = std::span<const ScriptLine>;

// Returns whether the script can continue; each line is reported, in a repetition only if it fails.
bool PlayLine(ScriptScene& scene, const ScriptLine& line, bool repeated, int* failures) {
    const bool expects = line.words[0] == "expect";
    const std::string problem = expects ? Expect(scene, line.words) : TakeStep(scene, line.words);
    if (!repeated || !problem.empty()) {
        Report(line, problem);
    }
    *failures += problem.empty() ? 0 : 1;
    return problem.empty() || (expects && !repeated);
}

// The lines between "repeat COUNT" and "again".
bool PlayRepeatedly(ScriptScene& scene, const ScriptLine& start, Lines lines, int* failures) {
    const auto times = ReadRange(start.words.size() > 1 ? start.words[1] : "");
    for (int round = 0; times && round < times->first; ++round) {
        for (const ScriptLine& line : lines) {
            if (!PlayLine(scene, line, true, failures)) {
                Report(start, "round " + std::to_string(round + 1));
                return false;
            }
        }
    }
    const std::string problem = times ? "" : "it is not said how often";
    Report(start, problem);
    *failures += problem.empty() ? 0 : 1;
    return problem.empty();
}

void PlayLines(ScriptScene& scene, Lines lines, int* failures) {
    bool goOn = true;
    while (goOn && !lines.empty()) {
        const ScriptLine& line = lines.front();
        lines = lines.subspan(1);
        if (line.words[0] != "repeat") {
            goOn = PlayLine(scene, line, false, failures);
            continue;
        }
        const auto end = std::ranges::find_if(
            lines, [](const ScriptLine& later) { return later.words[0] == "again"; });
        const auto count = static_cast<std::size_t>(end - lines.begin());
        goOn = PlayRepeatedly(scene, line, lines.first(count), failures);
        lines = lines.subspan(std::min(count + 1, lines.size()));
    }
}

}  // namespace

int PlayScript(ScriptScene scene, const std::vector<ScriptLine>& lines) {
    int failures = 0;
    PlayLines(scene, lines, &failures);
    const std::string leftOver = LeftOver(scene);
    Report({static_cast<int>(lines.size()), "what was lent and begun has come back", {}}, leftOver);
    return failures + (leftOver.empty() ? 0 : 1);
}

}  // namespace standin::desktop
