#include "host/musicxml/write/write_score.h"

#include <optional>
#include <set>
#include <vector>

#include "host/musicxml/write/item_text.h"
#include "host/musicxml/write/lines/line_numbers.h"
#include "host/musicxml/write/measure_plan.h"
#include "host/musicxml/write/measure_writer.h"
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

// One part to be written: its changed measures planned, its lines numbered.
class PartWriter {
public:
    PartWriter(const ImportedScore& score, const ScorePart& part, const Changes& changes,
               WriteOptions options)
        : m_score{score}, m_part{part}, m_plans(part.measures.size()) {
        std::vector<MeasureEnds> ends(part.measures.size());
        for (std::size_t i = 0; i < part.measures.size(); ++i) {
            const PartMeasure& measure = part.measures[i];
            const bool isEmpty = measure.bodyBegin == measure.bodyEnd;
            if (!isEmpty && (options.rebuildAll || IsChanged(part, i, changes))) {
                m_plans[i] = PlanMeasure(score, part, i);
                ends[i].rewritten = true;
                for (const PlannedStream& stream : m_plans[i]->streams) {
                    AddEndsOfStream(score, part, measure, stream, ends[i].ends);
                }
            } else {
                AddEndsOfText(part.lines, measure.bodyBegin, measure.bodyEnd, ends[i].ends);
            }
        }
        m_chosen.emplace(ChooseLineNumbers(part.lines, ends));
    }

    // Empty unless numbers ran out.
    std::string Problem() const {
        if (!m_chosen->failure) {
            return {};
        }
        const Line& line = m_part.lines.lines[m_chosen->failure->line];
        return Say(Text::kPartMeasure,
                   {m_part.id, std::to_string(m_chosen->failure->measure + 1),
                    Say(Text::kLinesOverlap,
                        {std::to_string(kMaxLineNumbers), std::string{NameOfLine(line.kind)}})});
    }

    // Writes the text from the offset to the part's last measure; returns where that ends.
    std::size_t Write(std::size_t copied, std::string& out) const {
        const LineNumbers& numbers = m_chosen->numbers;
        for (std::size_t i = 0; i < m_plans.size(); ++i) {
            const PartMeasure& measure = m_part.measures[i];
            out += std::string_view{m_score.text}.substr(copied, measure.bodyBegin - copied);
            out += m_plans[i] ? MeasureWriter{m_score, m_part, i, numbers}.Write(*m_plans[i])
                              : WithNewNumbers(m_score.text, measure.bodyBegin, measure.bodyEnd,
                                               m_part.lines, numbers);
            copied = measure.bodyEnd;
        }
        return copied;
    }

private:
    const ImportedScore& m_score;
    const ScorePart& m_part;
    std::vector<std::optional<MeasurePlan>> m_plans;  // of the measures to be rewritten
    std::optional<ChosenNumbers> m_chosen;
};

}  // namespace

std::string WriteScore(const ImportedScore& score, WriteOptions options, std::string* problem) {
    const Changes changes = score.document->ChangedMeasures();
    std::string text;
    text.reserve(score.text.size() + score.text.size() / 8);
    std::size_t copied = 0;
    for (const ScorePart& part : score.parts) {
        const PartWriter writer{score, part, changes, options};
        if (const std::string failure = writer.Problem(); !failure.empty()) {
            if (problem != nullptr) {
                *problem = failure;
            }
            return {};
        }
        copied = writer.Write(copied, text);
    }
    text += std::string_view{score.text}.substr(copied);
    std::string bytes = EncodeXml(std::move(text), score.format);
    if (!score.archive.empty()) {
        bytes = ReplaceArchivedScore(score.archive, score.archiveMember, bytes);
    }
    if (bytes.empty() && problem != nullptr) {
        *problem = Say(Text::kArchiveFull);
    }
    return bytes;
}

}  // namespace standin
