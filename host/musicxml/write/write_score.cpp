#include "host/musicxml/write/write_score.h"

#include <set>

#include "host/musicxml/write/measure_writer.h"
#include "host/musicxml/write/spanner_numbers.h"
#include "host/musicxml/xml/archive.h"

namespace standin {
namespace {

using Changes = std::set<std::pair<u16, u16>>;  // staff and measure

bool IsChanged(const ScorePart& part, std::size_t measure, const Changes& changes) {
    for (const StaffVoices& staff : part.staves) {
        if (changes.contains({staff.staff, static_cast<u16>(measure + 1)})) {
            return true;
        }
    }
    return false;
}

std::string WriteText(const ImportedScore& score, WriteOptions options) {
    Changes changes = score.document->ChangedMeasures();
    const SpannerNumbers numbers = ChooseSpannerNumbers(score, changes);
    const std::string_view text = score.text;
    std::string out;
    out.reserve(text.size() + text.size() / 8);
    std::size_t copied = 0;
    for (std::size_t part = 0; part < score.parts.size(); ++part) {
        const std::vector<PartMeasure>& measures = score.parts[part].measures;
        for (std::size_t measure = 0; measure < measures.size(); ++measure) {
            const PartMeasure& original = measures[measure];
            const bool isEmpty = original.bodyBegin == original.bodyEnd;
            const bool rebuild =
                options.rebuildAll || IsChanged(score.parts[part], measure, changes);
            if (!rebuild || isEmpty) {
                continue;
            }
            out += text.substr(copied, original.bodyBegin - copied);
            out += MeasureWriter{score, part, measure, numbers}.Write();
            copied = original.bodyEnd;
        }
    }
    out += text.substr(copied);
    return out;
}

}  // namespace

std::string WriteScore(const ImportedScore& score, WriteOptions options) {
    std::string bytes = EncodeXml(WriteText(score, options), score.format);
    if (score.archive.empty()) {
        return bytes;
    }
    return ReplaceArchivedScore(score.archive, score.archiveMember, bytes);
}

}  // namespace standin
