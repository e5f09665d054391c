#include "host/cli/usage/option_table.h"

#include <algorithm>

namespace standin::cli {

namespace {

using enum OptionId;
using ValueKind::kBeat;
using ValueKind::kChoice;
using ValueKind::kCount;
using ValueKind::kName;
using ValueKind::kOutputScore;
using ValueKind::kPage;
using ValueKind::kRange;
using ValueKind::kScore;
using ValueKind::kScores;

constexpr std::string_view kLayerChoices = "1 2 3 4";

constexpr OptionRow kMergeOptions[] = {
    {kInput, "IN", Text::kInputHelp, kScores, "", "", "", true},
    {kOutput, "-o,--output", Text::kOutputHelp, kOutputScore, "OUT"},
    {kFrom, "--from", Text::kFromHelp, kChoice, "LAYER", "all", "all 1 2 3 4"},
    {kTo, "--to", Text::kToHelp, kChoice, "LAYER", "1", kLayerChoices},
    {kReplace, "--replace", Text::kReplaceHelp},
#define MERGE_SWITCH(Name, member, initial, control, option, ...) \
    {k##Name, option, Text::k##Name##Help},
#include "shell/options/merge_switches.inc"
    {kMeasures, "--measures", Text::kMeasuresHelp, ValueKind::kMeasures, "LIST"},
    {kFromBeat, "--from-beat", Text::kFromBeatHelp, kBeat, "BEAT", "1"},
    {kToBeat, "--to-beat", Text::kToBeatHelp, kBeat, "BEAT"},
    {kStaves, "--staves", Text::kStavesHelp, kRange, "RANGE"},
    {kPart, "--part", Text::kPartHelp, kName, "NAME"},
    {kRecursive, "-r,--recursive", Text::kRecursiveHelp},
    {kInPlace, "--in-place", Text::kInPlaceHelp},
    {kJobs, "-j,--jobs", Text::kJobsHelp, kCount, "N"},
    {kVerify, "--verify", Text::kVerifyHelp},
    {kDryRun, "-n,--dry-run", Text::kDryRunHelp},
    {kReport, "--report", Text::kReportHelp, kPage, "PAGE"},
    {kDetails, "--details", Text::kDetailsHelp},
    {kJson, "--json", Text::kJsonHelp},
    {kQuiet, "-q,--quiet", Text::kQuietHelp},
    {kForce, "--force", Text::kForceHelp},
};

constexpr OptionRow kShowOptions[] = {
    {kInput, "IN", Text::kFirstScoreHelp, kScore, "", "", "", true},
    {kJson, "--json", Text::kJsonHelp},
};

constexpr OptionRow kCompareOptions[] = {
    {kInput, "A", Text::kFirstScoreHelp, kScore, "", "", "", true},
    {kSecondScore, "B", Text::kSecondScoreHelp, kScore, "", "", "", true},
    {kMerged, "--merged", Text::kMergedHelp},
    {kDetails, "--details", Text::kCompareDetailsHelp},
    {kJson, "--json", Text::kJsonHelp},
};

constexpr OptionRow kRunOptions[] = {
    {kInput, "IN", Text::kFirstScoreHelp, kScore, "", "", "", true},
    {kOutput, "-o,--output", Text::kOutputHelp, kOutputScore, "OUT"},
    {kCommandTitle, "--command", Text::kCommandTitleHelp, ValueKind::kNames, "TITLE", "Plyweld"},
};

constexpr OptionRow kHelpOptions[] = {
    {kTopic, "COMMAND", Text::kCommandNameHelp, kChoice, "", "", "merge show compare doctor help"},
};

constexpr OptionRow kCompletionOptions[] = {
    {kShell, "SHELL", Text::kShellHelp, kChoice, "", "", "bash zsh fish", true},
};

constexpr CommandRow kCommands[] = {
    {"merge", Text::kMergePurpose, kMergeOptions},
    {"show", Text::kShowPurpose, kShowOptions},
    {"compare", Text::kComparePurpose, kCompareOptions},
    {"doctor", Text::kDoctorPurpose, {}},
    {"help", Text::kHelpPurpose, kHelpOptions},
    {"run", Text::kRunPurpose, kRunOptions, false},
    {"completion", Text::kCompletionPurpose, kCompletionOptions, false},
    {"man", Text::kManPurpose, {}, false},
};

constexpr OptionRow kProgramOptions[] = {
    {kHelp, "-h,--help", Text::kHelpHelp},
    {kColor, "--color", Text::kColorHelp, kChoice, "WHEN", "auto", "auto always never"},
    {kVersion, "-V,--version", Text::kVersionHelp},
};

}  // namespace

std::string OptionRow::LongName() const {
    return std::string{names.substr(names.find(',') == names.npos ? 0 : names.find(',') + 1)};
}

std::span<const CommandRow> Commands() {
    return kCommands;
}

const CommandRow* FindCommand(std::string_view name) {
    const auto found = std::ranges::find(kCommands, name, &CommandRow::name);
    return found == std::end(kCommands) ? nullptr : found;
}

std::span<const OptionRow> ProgramOptions() {
    return kProgramOptions;
}

std::span<const OptionRow> CommonOptions() {
    return std::span{kProgramOptions}.first(2);
}

}  // namespace standin::cli
