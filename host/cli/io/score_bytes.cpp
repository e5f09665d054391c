#include "host/cli/io/score_bytes.h"

#include "host/cli/io/output_file.h"
#include "host/musicxml/write/write_score.h"
#include "host/musicxml/xml/archive.h"

namespace standin::cli {

std::string BytesFor(const std::string& output, ImportedScore& score, std::string& problem) {
    const bool zipped = LowerCaseExtension(output) == ".mxl";
    if (zipped != score.archive.empty()) {
        return WriteScore(score, {}, &problem);
    }
    score.archive.clear();
    const std::string text = WriteScore(score, {}, &problem);
    return zipped && !text.empty() ? MakeArchive("score.musicxml", text) : text;
}

}  // namespace standin::cli
