// The user's request.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/cli/io/stored_options.h"
#include "host/cli/usage/option_values.h"

namespace standin::cli {

// The part of the score to merge. Absent bounds are the score's own.
struct SelectionOptions {
    std::vector<MeasureStretch> measures;  // none: all
    double firstBeat = 1;                  // in the first measure, from 1
    std::optional<double> lastBeat;        // in the last measure, from 1; includes the whole beat
    int firstStaff = 1;                    // from 1, from the top of the score
    std::optional<int> lastStaff;
    std::string part;  // a part's name; empty: all
};

struct MergeCommand {
    std::string input;
    std::string output;
    MergeOptions options;
    SelectionOptions selection;
    std::string report;  // the page to write, or the folder for it; empty: none
    bool verify = false;
    bool dryRun = false;   // report only; output is then empty
    bool details = false;  // the whole list of what stayed
    bool json = false;
    bool quiet = false;
    bool force = false;  // write a score onto a terminal; clear measures into which nothing moves
};

// Several scores, a folder, or scores that are overwritten.
struct BatchCommand {
    std::vector<std::string> inputs;
    std::string folder;                // to write to; empty when nothing is written, or in place
    std::string report;                // the folder for reports; empty: none
    std::vector<std::string> options;  // for the merge of each score
    bool recursive = false;
    bool inPlace = false;
    bool json = false;
    bool quiet = false;
    int jobs = 1;  // at once
};

struct ShowCommand {
    std::string input;
    bool json = false;
};

// Commands of plug-ins, with their stored options and without their dialogs.
struct PluginCommand {
    std::string input;
    std::string output;               // empty: the score is not written
    std::vector<std::string> titles;  // of the commands, run one after the other
};

struct CompareCommand {
    std::string first;
    std::string second;
    bool merged = false;   // the second is a merge of the first
    bool details = false;  // the whole list
    bool json = false;
};

// The exit codes of the program.
enum ExitCode : int {
    kDone = 0,
    kFailed = 1,  // the run failed, or music was lost; compare: the scores differ
    kUsage = 2,
    kUnreadable = 3,
    kInterrupted = 130,
};

struct DoctorCommand {};

using Command = std::variant<MergeCommand, BatchCommand, ShowCommand, PluginCommand, CompareCommand,
                             DoctorCommand>;

// The arguments without the program's own name. If nothing is to be run (help was requested, or the
// usage is wrong), the text has been printed and the exit code is set.
std::variant<Command, ExitCode> ParseCommandLine(std::vector<std::string> arguments);

}  // namespace standin::cli
