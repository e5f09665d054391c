#include <iostream>

#include "host/cli/commands/commands.h"
#include "host/cli/commands/plugin.h"
#include "host/cli/io/installation.h"
#include "host/cli/io/output_file.h"
#include "host/cli/io/report_file.h"
#include "host/cli/io/stored_options.h"
#include "host/cli/usage/help_text.h"
#include "host/system/machine.h"

namespace standin::cli {

namespace {

void Print(Text what, const std::string& value) {
    std::cout << Say(what) << ": " << value << '\n';
}

}  // namespace

ExitCode Doctor() {
    std::cout << VersionText();
    Print(Text::kProgramFile, TextOf(machine::ProgramFolder()));
    std::string problem;
    const bool isFound = Plugin::Start(problem) != nullptr;
    Print(Text::kPluginFound,
          isFound ? PluginFile() : Say(Text::kNotFound, {PluginFile() + ": " + problem}));
    const std::string noEngraver = WhyNoPage();
    Print(Text::kEngraver, noEngraver.empty() ? EngraverFile() : noEngraver);
    Print(Text::kSettingsPlace, Say(machine::SettingsOutliveTheProgram() ? Text::kSettingsInRegistry
                                                                         : Text::kSettingsInMemory,
                                    {"HKEY_CURRENT_USER\\" + std::string{kBaseKey}}));
    Print(Text::kLanguageUsed, std::string{Say(Text::kLanguageName)});
    return isFound ? kDone : kFailed;
}

}  // namespace standin::cli
