// Runs of the command whose result is held against the score it came from.
#pragma once

#include <string>
#include <vector>

#include "host/cli/merge_run.h"
#include "host/musicxml/imported_score.h"
#include "host/readback/compare.h"
#include "host/readback/read_content.h"

namespace standin::cli {

// Twice: over the document, and over the file that was read and the one to be written, by a
// reading of their own that the merge has no part in.
class VerifiedMerge {
public:
    // Before any merge of the score, which must outlive this. Checks nothing unless told to verify.
    VerifiedMerge(const ImportedScore& score, const MergeOptions& options, bool verifies);

    MergeRun Run(const EREGION& selection);

    // What the document or the bytes to be written lack or have too much after the runs, a line
    // each; empty when no music was lost, and when nothing is verified.
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
