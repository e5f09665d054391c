#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "host/cli/commands.h"
#include "host/cli/merge_run.h"
#include "host/cli/open_score.h"
#include "host/cli/output_file.h"
#include "host/cli/report_text.h"
#include "host/cli/selection.h"
#include "host/musicxml/music/compare.h"
#include "host/musicxml/write/write_score.h"
#include "host/musicxml/xml/archive.h"
#include "host/verify/merge_faults.h"

namespace standin::cli {

namespace {

ExitCode Fail(ExitCode code, const std::string& problem) {
    std::cerr << "plyweld: " << problem << '\n';
    return code;
}

// The score in the form that the output's name asks for; empty on failure.
std::string BytesFor(const std::string& output, ImportedScore& score) {
    const bool zipped = LowerCaseExtension(output) == ".mxl";
    if (zipped != score.archive.empty()) {
        return WriteScore(score);
    }
    score.archive.clear();
    const std::string text = WriteScore(score);
    return zipped ? MakeArchive("score.musicxml", text) : text;
}

// Who names a layer means the voice that has it through the piece.
OwnLayers LayersNamed(const MergeOptions& options) {
    OwnLayers own{};
    for (const u16 layer : {options.source, options.destination}) {
        if (layer < own.size()) {
            own[layer] = true;
        }
    }
    return own;
}

// The score before the merge, to be held against what comes of it.
class Original {
public:
    Original(const OpenScore& open, const EREGION& selection, const MergeOptions& options)
        : m_document{open.GetDocument()}, m_options{options}, m_music{MusicOf(open.Score())} {
        m_document.selection = selection;
        m_start = StartOfMerge(m_document, options);
    }

    // What the document or the output lacks; empty when no music was lost.
    std::vector<std::string> Losses(const std::string& bytes) const {
        std::vector<std::string> losses =
            FaultsOfMerge(m_document, m_start, m_document.Content(), m_options);
        const ReadResult after = ReadScore(bytes);
        if (!after) {
            return {"the result cannot be read: " + after.message};
        }
        CompareOptions options;
        options.merged = true;
        if (m_options.mode != 0) {
            options.replaced = ClearedMusic{*m_document.selection, m_options.destination};
        }
        for (std::string& loss : Compare(m_music, MusicOf(*after.score), options)) {
            losses.push_back(std::move(loss));
        }
        return losses;
    }

private:
    Document& m_document;
    MergeOptions m_options;
    Music m_music;
    DocumentContent m_start;
};

}  // namespace

ExitCode Merge(const MergeCommand& command) {
    const OpenScore open{command.input, LayersNamed(command.options)};
    if (!open) {
        return kUnreadable;
    }
    const auto found = SelectionIn(open.GetDocument(), command.selection);
    if (const auto* problem = std::get_if<std::string>(&found)) {
        return Fail(kUsage, *problem);
    }
    const auto& selection = std::get<EREGION>(found);
    std::optional<Original> original;
    if (command.verify) {
        original.emplace(open, selection, command.options);
    }
    const MergeRun run = RunMerge(open.GetDocument(), selection, command.options);
    if (!run.problem.empty()) {
        return Fail(run.stopped ? kInterrupted : kFailed, run.problem);
    }
    const std::string bytes = BytesFor(command.output, open.Score());
    if (original && !bytes.empty()) {
        const std::vector<std::string> losses = original->Losses(bytes);
        for (const std::string& loss : losses) {
            std::cerr << loss << '\n';
        }
        if (!losses.empty()) {
            return Fail(kFailed, "music would be lost; nothing was written");
        }
    }
    const std::string problem = WriteWhole(command.output, bytes);
    if (!problem.empty()) {
        return Fail(kFailed, command.output + ": " + problem);
    }
    if (!command.quiet) {
        const MergeReport report = ReportRun(open.Score(), selection, command.options);
        std::ostream& stream = command.output == kStandardStream ? std::cerr : std::cout;
        stream << (command.json ? ReportAsJson(report, command.verify)
                                : ReportAsText(report, command.verify));
    }
    return kDone;
}

}  // namespace standin::cli
