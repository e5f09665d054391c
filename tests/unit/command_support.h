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

}  // namespace standin::cli
