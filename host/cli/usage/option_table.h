// The commands of the program and their options. Parsing, help, completion and the manual page are
// made from these rows.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/texts/texts.h"

namespace standin::cli {

enum class OptionId {
    kInput,
    kOutput,
    kFrom,
    kTo,
    kReplace,
#define MERGE_SWITCH(Name, ...) k##Name,
#include "shell/options/merge_switches.inc"
    kMeasures,
    kFromBeat,
    kToBeat,
    kStaves,
    kPart,
    kVerify,
    kJson,
    kQuiet,
    kForce,
    kDetails,
    kDryRun,
    kReport,
    kRecursive,
    kInPlace,
    kJobs,
    kSecondScore,
    kMerged,
    kCommandTitle,
    kTopic,
    kShell,
    kHelp,
    kVersion,
    kColor,
};

// The type of an option's value, for its check and for completion.
enum class ValueKind {
    kNone,
    kScore,
    kScores,
    kOutputScore,
    kPage,
    kChoice,
    kRange,
    kMeasures,
    kBeat,
    kCount,
    kName,
    kNames,  // may be given several times
};

struct OptionRow {
    OptionId id{};
    // "-o,--output", or a name in capitals for a positional argument.
    std::string_view names;
    Text help{};
    ValueKind kind = ValueKind::kNone;
    std::string_view value{};    // the value's name in help
    std::string_view initial{};  // the default value; empty if there is none to show
    std::string_view choices{};  // separated by blanks
    bool required = false;

    bool IsArgument() const noexcept { return names.front() != '-'; }
    // "--output"; the argument's name for an argument.
    std::string LongName() const;
};

struct CommandRow {
    std::string_view name;
    Text purpose{};
    std::span<const OptionRow> options;
    bool forPeople = true;  // listed in help; the others serve packages and shells
};

std::span<const CommandRow> Commands();

// Null if no command has this name.
const CommandRow* FindCommand(std::string_view name);

// The options before a command, and those that every command takes as well.
std::span<const OptionRow> ProgramOptions();
std::span<const OptionRow> CommonOptions();

}  // namespace standin::cli
