#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "host/cli/commands/commands.h"
#include "host/cli/commands/merge_run.h"
#include "host/cli/commands/selection.h"
#include "host/cli/commands/verified_merge.h"
#include "host/cli/io/messages.h"
#include "host/cli/io/open_score.h"
#include "host/cli/io/output_file.h"
#include "host/cli/io/report_file.h"
#include "host/cli/io/score_bytes.h"
#include "host/cli/io/terminal.h"
#include "host/report/report_json.h"
#include "host/report/report_text.h"

namespace standin::cli {

namespace {

ExitCode Fail(ExitCode code, const std::string& problem) {
    Complain(problem);
    return code;
}

// A user who names a layer means the voice that has it throughout the piece.
OwnLayers LayersNamed(const MergeOptions& options) {
    OwnLayers own{};
    for (const u16 layer : {options.source, options.destination}) {
        if (layer < own.size()) {
            own[layer] = true;
        }
    }
    return own;
}

// The reason for refusing Replace; empty if it may run. The plug-in clears whatever is selected,
// but here the user does not see the score.
std::string ClearedForNothing(const MergeReport& report) {
    const std::vector<const MergedMeasure*> cleared = report.ClearedForNothing();
    if (cleared.empty()) {
        return {};
    }
    int notes = 0;
    for (const MergedMeasure* measure : cleared) {
        notes += measure->notesCleared;
    }
    const auto count = [](int number, Text one, Text many) {
        return Say(number == 1 ? one : many, {std::to_string(number)});
    };
    return Say(Text::kClearedForNothing,
               {count(notes, Text::kOneNote, Text::kManyNotes),
                count(static_cast<int>(cleared.size()), Text::kOneMeasure, Text::kManyMeasures),
                std::to_string(report.request.options.destination + 1), cleared.front()->number,
                report.staffNames[cleared.front()->staff]});
}

void Print(const MergeReport& report, const MergeCommand& command) {
    std::ostream& stream = command.output == kStandardStream ? std::cerr : std::cout;
    if (command.json) {
        stream << ReportAsJsonText(report) << '\n';
        return;
    }
    const Paint paint = command.output == kStandardStream ? ErrorPaint() : OutputPaint();
    stream << ReportAsText(report, command.details, paint);
    if (command.dryRun) {
        stream << Say(Text::kNothingWritten) << '\n';
    }
}

}  // namespace

ExitCode Merge(const MergeCommand& command) {
    const std::string noPage = command.report.empty() ? std::string{} : WhyNoPage();
    if (!noPage.empty()) {
        return Fail(kFailed, noPage);
    }
    const OpenScore open{command.input, LayersNamed(command.options)};
    if (!open) {
        return kUnreadable;
    }
    const auto found = SelectionsIn(open.GetDocument(), open.Score().parts, command.selection);
    if (const auto* problem = std::get_if<std::string>(&found)) {
        return Fail(kUsage, command.input + ": " + *problem);
    }
    const auto& selections = std::get<std::vector<EREGION>>(found);
    VerifiedMerge merge{open.Score(), command.options, command.verify};
    for (const EREGION& selection : selections) {
        const MergeRun run = merge.Run(selection);
        if (!run.problem.empty()) {
            return Fail(run.stopped ? kInterrupted : kFailed, command.input + ": " + run.problem);
        }
    }
    MergeReport report =
        ReportMerge(open.Score(), {command.input, command.output, selections, command.options});
    const std::string refusal = command.force ? std::string{} : ClearedForNothing(report);
    if (!refusal.empty() && !command.dryRun) {
        return Fail(kFailed, command.input + ": " + refusal);
    }
    std::string unwritable;
    const std::string bytes = BytesFor(command.output, open.Score(), unwritable);
    if (!unwritable.empty()) {
        return Fail(kFailed, command.input + ": " + unwritable);
    }
    const std::vector<std::string> losses = merge.Losses(bytes);
    for (const std::string& loss : losses) {
        Complain(command.input + ": " + loss);
    }
    if (!losses.empty()) {
        return Fail(kFailed, command.input + ": " + Say(Text::kMusicWouldBeLost, {}));
    }
    report.verified = command.verify;
    if (!command.dryRun) {
        const std::string problem = WriteWhole(command.output, bytes);
        if (!problem.empty()) {
            return Fail(kFailed, command.output + ": " + problem);
        }
    }
    if (!command.quiet || !command.report.empty()) {
        AddRemarks(open.Score(), report);
    }
    if (!command.report.empty()) {
        const std::string problem = WriteReportPage(command.report, report, open.Score(), bytes);
        if (!problem.empty()) {
            return Fail(kFailed, problem);
        }
    }
    if (!command.quiet) {
        Print(report, command);
    }
    return kDone;
}

}  // namespace standin::cli
