// The command-line program run within a test, on files of a folder of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/cli/run_command.h"
#include "host/cli/usage/command_line.h"
#include "host/score/application.h"
#include "tests/unit/musicxml_support.h"
#include "tests/unit/support/files.h"

namespace standin::cli {

class CommandRun : public testing::Test {
protected:
    CommandRun() { App().Reset(); }
    ~CommandRun() override {
        EXPECT_EQ(App().lent.Count(), 0U);
        EXPECT_EQ(App().CurrentNumber(), 0);
    }

    std::string File(const std::string& name) const { return (folder / name).string(); }
    std::string Write(const std::string& name, std::string_view text) const {
        std::ofstream{folder / name, std::ios::binary} << text;
        return File(name);
    }

    // Runs the command and keeps what it says.
    int Run(std::vector<std::string> arguments) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int exitCode = RunCommandLine(std::move(arguments));
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
        return exitCode;
    }

    TemporaryFolder folder;
    std::string output;
    std::string errors;
};

// Pieces of scores: a <notations>, a half note or rest, a <lyric>.
inline std::string Notations(const std::string& inner, const std::string& attributes = "") {
    return "<notations" + attributes + ">" + inner + "</notations>";
}

inline std::string Half(std::string_view pitch, std::string_view voice = "1",
                        std::string_view more = "", std::string_view first = "") {
    return Note({pitch, 4, "half", voice, more, first});
}

inline std::string Lyric(const std::string& number, const std::string& text) {
    return "<lyric number=\"" + number + "\"><text>" + text + "</text></lyric>";
}

inline const std::string kFermata = Notations("<fermata/>");
inline const std::string kFinger = "<technical><fingering>1</fingering></technical>";

}  // namespace standin::cli
