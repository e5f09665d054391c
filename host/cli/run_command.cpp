#include "host/cli/run_command.h"

#include <exception>
#include <iostream>
#include <utility>

#include "host/cli/commands/commands.h"
#include "host/cli/io/messages.h"
#include "host/cli/io/terminal.h"
#include "host/score/application.h"
#include "host/system/machine.h"

namespace standin::cli {

namespace {

struct Runner {
    ExitCode operator()(const MergeCommand& command) const { return Merge(command); }
    ExitCode operator()(const BatchCommand& command) const { return MergeBatch(command); }
    ExitCode operator()(const ShowCommand& command) const { return Show(command); }
    ExitCode operator()(const PluginCommand& command) const { return RunPluginCommand(command); }
    ExitCode operator()(const CompareCommand& command) const { return CompareScores(command); }
    ExitCode operator()(const DoctorCommand&) const { return Doctor(); }
};

int Run(std::vector<std::string> arguments) {
    try {
        if (!TakeManners(arguments)) {
            return kUsage;
        }
        const auto parsed = ParseCommandLine(std::move(arguments));
        if (const auto* exitCode = std::get_if<ExitCode>(&parsed)) {
            return *exitCode;
        }
        return std::visit(Runner{}, std::get<Command>(parsed));
    } catch (const std::exception& error) {
        Complain(error.what());
        return kFailed;
    }
}

}  // namespace

bool TakeManners(std::vector<std::string>& arguments) {
    if (arguments.size() < 2 || arguments[0] != "--host") {
        return true;
    }
    const std::optional<Manners> manners = ParseManners(arguments[1]);
    if (!manners) {
        Complain(Say(Text::kNoSuchManner, {arguments[1]}));
        return false;
    }
    App().manners = *manners;
    arguments.erase(arguments.begin(), arguments.begin() + 2);
    return true;
}

int RunCommandLine(std::vector<std::string> arguments) {
    machine::PrepareStreams();
    SetLanguage(machine::UserLanguage());
    ResetTerminal();
    const int exitCode = Run(std::move(arguments));
    std::cout.flush();
    if (std::cout.fail() && exitCode == kDone) {
        Complain(Say(Text::kOutputFull, {}));
        return kFailed;
    }
    return exitCode;
}

}  // namespace standin::cli
