#include "host/cli/usage/command_line.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <thread>

#include "host/cli/io/messages.h"
#include "host/cli/io/output_file.h"
#include "host/cli/io/report_file.h"
#include "host/cli/io/terminal.h"
#include "host/cli/usage/arguments.h"
#include "host/cli/usage/completion.h"
#include "host/cli/usage/help_text.h"
#include "host/cli/usage/option_values.h"
#include "host/system/machine.h"

namespace standin::cli {

namespace {

using enum OptionId;

ExitCode Refuse(const std::string& problem, const CommandRow* command) {
    const std::string topic = command == nullptr ? "" : std::string{command->name};
    std::string help = Say(Text::kSeeHelp, {topic});
    help.resize(help.find_last_not_of(' ') + 1);
    Complain(problem + " (" + help + ")");
    return kUsage;
}

ExitCode Print(const std::string& text) {
    std::cout << text;
    return kDone;
}

void FillSelection(SelectionOptions& selection, const Arguments& arguments) {
    if (arguments.Has(kMeasures)) {
        selection.measures = ParseMeasures(arguments.Value(kMeasures)).value();
    }
    selection.part = arguments.Value(kPart);
    const Range staves = ParseRange(arguments.Value(kStaves, "1-")).value_or(Range{});
    selection.firstStaff = staves.first;
    selection.lastStaff = staves.last;
    selection.firstBeat = ParseBeat(arguments.Value(kFromBeat)).value_or(1);
    selection.lastBeat = ParseBeat(arguments.Value(kToBeat));
}

MergeCommand MergeOf(const Arguments& arguments) {
    MergeCommand merge;
    merge.input = arguments.Value(kInput);
    merge.dryRun = arguments.Has(kDryRun);
    merge.output = merge.dryRun ? std::string{} : arguments.Value(kOutput);
    merge.report = arguments.Value(kReport);
    merge.details = arguments.Has(kDetails);
    const std::string from = arguments.Value(kFrom, "all");
    if (from != "all") {
        merge.options.source = static_cast<u16>(from[0] - '1');
    }
    merge.options.destination = static_cast<u16>(arguments.Value(kTo, "1")[0] - '1');
    merge.options.mode = arguments.Has(kReplace) ? 1 : 0;
#define MERGE_SWITCH(Name, member, initial, control, option, whenGiven, ...) \
    merge.options.member = arguments.Has(k##Name) ? whenGiven : initial;
#include "shell/options/merge_switches.inc"
    FillSelection(merge.selection, arguments);
    merge.verify = arguments.Has(kVerify);
    merge.json = arguments.Has(kJson);
    merge.quiet = arguments.Has(kQuiet);
    merge.force = arguments.Has(kForce);
    return merge;
}

bool IsFolderName(const std::string& name) {
    std::error_code failed;
    return name.ends_with('/') || name.ends_with('\\') ||
           std::filesystem::is_directory(PathOf(name), failed);
}

bool IsScoreName(const std::string& name) {
    const std::string ending = LowerCaseExtension(name);
    return ending == ".musicxml" || ending == ".xml" || ending == ".mxl";
}

// Contradictions between options that are valid by themselves.
std::string ContradictionIn(const MergeCommand& merge) {
    if (merge.options.source == merge.options.destination) {
        return std::string{Say(Text::kSameLayer)};
    }
    if (!merge.report.empty() && !IsPageName(merge.report) && !IsFolderName(merge.report)) {
        return Say(Text::kNotAPage, {merge.report});
    }
    if (merge.dryRun) {
        return {};
    }
    if (merge.output.empty()) {
        return Say(Text::kMissingArgument, {"-o OUT"});
    }
    if (merge.output == kStandardStream) {
        return machine::OutputGoesToTerminal() && !merge.force
                   ? std::string{Say(Text::kOntoTerminal)}
                   : std::string{};
    }
    std::error_code failed;
    if (std::filesystem::equivalent(PathOf(merge.input), PathOf(merge.output), failed) &&
        !merge.force) {
        return Say(Text::kOntoInput, {merge.output});
    }
    return IsScoreName(merge.output) || IsDeviceOrPipe(merge.output)
               ? std::string{}
               : Say(Text::kWrongExtension, {merge.output});
}

// The options that a batch passes on to the merge of each score.
std::vector<std::string> OptionsForEach(const Arguments& arguments) {
    std::vector<std::string> words;
    for (const OptionRow& row : arguments.command->options) {
        const bool isOfTheBatch = row.id == kInput || row.id == kOutput || row.id == kRecursive ||
                                  row.id == kInPlace || row.id == kJobs || row.id == kJson ||
                                  row.id == kQuiet || row.id == kDetails || row.id == kReport;
        if (isOfTheBatch || !arguments.Has(row.id)) {
            continue;
        }
        words.push_back(row.LongName());
        if (row.kind != ValueKind::kNone) {
            words.push_back(arguments.Value(row.id));
        }
    }
    return words;
}

bool IsBatch(const Arguments& arguments) {
    const std::vector<std::string>& inputs = arguments.values.at(kInput);
    std::error_code failed;
    const std::filesystem::path first = PathOf(inputs.front());
    const bool isPattern = inputs.front().find_first_of("*?") != std::string::npos;
    return inputs.size() > 1 || arguments.Has(kInPlace) ||
           std::filesystem::is_directory(first, failed) ||
           (isPattern && !std::filesystem::exists(first, failed));
}

BatchCommand BatchOf(const Arguments& arguments) {
    BatchCommand batch;
    batch.inputs = arguments.values.at(kInput);
    batch.folder = arguments.Has(kDryRun) ? std::string{} : arguments.Value(kOutput);
    batch.report = arguments.Value(kReport);
    batch.options = OptionsForEach(arguments);
    batch.recursive = arguments.Has(kRecursive);
    batch.inPlace = arguments.Has(kInPlace) && !arguments.Has(kDryRun);
    batch.json = arguments.Has(kJson);
    batch.quiet = arguments.Has(kQuiet);
    const int processors = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    batch.jobs = ParseCount(arguments.Value(kJobs)).value_or(processors);
    return batch;
}

std::string ContradictionIn(const BatchCommand& batch, const Arguments& arguments) {
    const std::string output = arguments.Value(kOutput);
    if (batch.inPlace && !output.empty()) {
        return std::string{Say(Text::kOutputAndInPlace)};
    }
    if (output.empty() && !batch.inPlace && !arguments.Has(kDryRun)) {
        return Say(Text::kMissingArgument, {"-o FOLDER"});
    }
    const auto isFile = [](const std::string& name) {
        std::error_code failed;
        return std::filesystem::exists(PathOf(name), failed) &&
               !std::filesystem::is_directory(PathOf(name), failed);
    };
    if (IsPageName(batch.report) || isFile(batch.report)) {
        return Say(Text::kReportNeedsFolder, {batch.report});
    }
    return output == kStandardStream || isFile(output) ? Say(Text::kNeedsFolder, {output})
                                                       : std::string{};
}

std::variant<Command, ExitCode> BatchCommandOf(const Arguments& arguments) {
    const BatchCommand batch = BatchOf(arguments);
    const std::string problem = ContradictionIn(batch, arguments);
    return problem.empty() ? std::variant<Command, ExitCode>{Command{batch}}
                           : Refuse(problem, arguments.command);
}

std::variant<Command, ExitCode> CommandOf(const Arguments& arguments) {
    const CommandRow& row = *arguments.command;
    if (row.name == "merge" && IsBatch(arguments)) {
        return BatchCommandOf(arguments);
    }
    if (row.name == "merge") {
        const MergeCommand merge = MergeOf(arguments);
        const std::string problem = ContradictionIn(merge);
        return problem.empty() ? std::variant<Command, ExitCode>{Command{merge}}
                               : Refuse(problem, &row);
    }
    if (row.name == "show") {
        return Command{ShowCommand{arguments.Value(kInput), arguments.Has(kJson)}};
    }
    if (row.name == "run") {
        const auto titles = arguments.values.find(kCommandTitle);
        return Command{PluginCommand{arguments.Value(kInput), arguments.Value(kOutput),
                                     titles == arguments.values.end()
                                         ? std::vector<std::string>{"Plyweld"}
                                         : titles->second}};
    }
    if (row.name == "compare") {
        return Command{CompareCommand{arguments.Value(kInput), arguments.Value(kSecondScore),
                                      arguments.Has(kMerged), arguments.Has(kDetails),
                                      arguments.Has(kJson)}};
    }
    if (row.name == "doctor") {
        return Command{DoctorCommand{}};
    }
    if (row.name == "completion") {
        return Print(CompletionScript(arguments.Value(kShell)));
    }
    if (row.name == "man") {
        return Print(ManualPage());
    }
    const CommandRow* topic = FindCommand(arguments.Value(kTopic));
    return Print(topic == nullptr ? ProgramHelp() : CommandHelp(*topic));
}

}  // namespace

std::variant<Command, ExitCode> ParseCommandLine(std::vector<std::string> words) {
    const Arguments arguments = TakeApart(std::move(words));
    ChooseColors(arguments.Value(kColor, "auto"));
    if (arguments.Has(kQuiet)) {
        HideProgress();
    }
    if (!arguments.problem.empty()) {
        return Refuse(arguments.problem, arguments.command);
    }
    if (arguments.Has(kVersion)) {
        return Print(VersionText());
    }
    if (arguments.command == nullptr) {
        return Print(ProgramHelp());
    }
    return arguments.Has(kHelp) ? Print(CommandHelp(*arguments.command)) : CommandOf(arguments);
}

}  // namespace standin::cli
