// Runs of the command whose result is compared with the original score.
#pragma once

#include <string>
#include <vector>

#include "host/cli/commands/merge_run.h"
#include "host/musicxml/imported_score.h"
#include "host/readback/compare/compare.h"
#include "host/readback/read/read_content.h"

namespace standin::cli {

// Checks twice: the document, and the input file against the output file, with a separate reading
// that shares no code with the merge.
class VerifiedMerge {
public:
    // Create before any merge of the score, which must outlive it. Checks only if verify is true.
    VerifiedMerge(const ImportedScore& score, const MergeOptions& options, bool verifies);

    MergeRun Run(const EREGION& selection);

    // Everything lost or added in the document or in the bytes to be written, one line each; empty
    // if no music was lost, or without verifying.
    std::vector<std::string> Losses(const std::string& bytes);

private:
    void NoteCleared(const EREGION& selection);

    const ImportedScore& m_score;
    const MergeOptions m_options;
    const bool m_verifies;
    std::vector<std::string> m_losses;
    readback::Texts m_texts;
    readback::Reading m_before;
    std::vector<readback::ClearedMusic> m_cleared;
};

}  // namespace standin::cli
