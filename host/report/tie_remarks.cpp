#include "host/report/tie_remarks.h"

#include <algorithm>
#include <optional>
#include <set>
#include <span>

#include "host/musicxml/write/tie_links.h"
#include "host/report/places.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

std::vector<const PlannedStream*> StreamsIn(const MeasurePlan& plan) {
    std::vector<const PlannedStream*> streams;
    for (const PlannedStream& stream : plan.streams) {
        streams.push_back(&stream);
    }
    return streams;
}

class PartTies {
public:
    PartTies(const ImportedScore& score, const ScorePart& part, u16 firstSlot,
             const std::set<std::pair<u16, u16>>& changed, std::vector<Remark>& remarks)
        : m_score{score},
          m_part{part},
          m_firstSlot{firstSlot},
          m_changed{changed},
          m_remarks{remarks} {}

    void Run() {
        std::optional<MeasurePlan> plan;
        for (std::size_t i = 0; i < m_part.measures.size(); ++i) {
            const bool hasNext = i + 1 < m_part.measures.size();
            std::optional<MeasurePlan> next;
            if (hasNext && (IsChanged(i) || IsChanged(i + 1))) {
                next = PlanMeasure(m_score, m_part, i + 1);
            }
            if (IsChanged(i) || next) {
                if (!plan) {
                    plan = PlanMeasure(m_score, m_part, i);
                }
                AddTiesWithin(*plan, i);
                AddLinesWithin(*plan, i);
            }
            if (next) {
                AddTiesAcross(*plan, *next, i);
            }
            plan = std::move(next);
        }
    }

private:
    bool IsChanged(std::size_t measure) const {
        return std::ranges::any_of(m_part.staves, [&](const StaffVoices& staff) {
            return m_changed.contains({staff.staff, static_cast<u16>(measure + 1)});
        });
    }

    // Whether the event's entry was there with that note in the file.
    bool WasThere(std::size_t measure, const PlannedEvent& event, const EXNOTE& note) const {
        const FrameKey key{m_part.staves[event.staff].staff, static_cast<u16>(measure + 1),
                           event.layer};
        const Frame* frame = m_score.document->ImportedFrame(key);
        return frame != nullptr && std::ranges::any_of(frame->entries, [&](const EXENTRY& was) {
                   const std::span notes{was.notes, static_cast<std::size_t>(was.noteCount)};
                   return was.entryNumber == event.time.entry->entryNumber &&
                          std::ranges::any_of(notes, [&note](const EXNOTE& other) {
                              return other.pitch == note.pitch && other.second == note.second;
                          });
               });
    }

    // The end comes before the start in the text, as no order of the voices suits all their lines.
    void AddTiesWithin(const MeasurePlan& plan, std::size_t measure) {
        for (const TieLink& tie : TieLinksOf(StreamsIn(plan))) {
            const EXNOTE& note = tie.start->time.entry->notes[tie.note];
            const bool wasSo =
                WasThere(measure, *tie.start, note) && WasThere(measure, *tie.stop, note);
            if (tie.from > tie.to && !wasSo) {
                Add(*tie.start, note, tie.stop->layer, measure);
            }
        }
    }

    // Likewise; the other end of such a line is at a note too, as directions move to its start.
    void AddLinesWithin(const MeasurePlan& plan, std::size_t measure) {
        std::set<u32> stopped;
        for (const PlannedStream& stream : plan.streams) {
            for (const PlannedStep& step : stream.steps) {
                PlannedStream one;
                one.steps = {step};
                std::vector<WrittenEnd> ends;
                AddEndsOfStream(m_score, m_part, m_part.measures[measure], one, ends);
                for (const WrittenEnd& end : ends) {
                    if (end.role == LineRole::kStop) {
                        stopped.insert(end.line);
                    } else if (end.role == LineRole::kStart && stopped.contains(end.line) &&
                               step.event != nullptr && !StoppedFirst(end.line)) {
                        AddLine(*step.event, m_part.lines.lines[end.line].kind, measure);
                    }
                }
            }
        }
    }

    // In the file that was read.
    bool StoppedFirst(u32 line) const {
        const auto first = std::ranges::find_if(m_part.lines.ends, [line](const LineEnd& end) {
            return end.line == line && end.role != LineRole::kOnTheWay;
        });
        return first != m_part.lines.ends.end() && first->role == LineRole::kStop;
    }

    // The start's own voice has the end of another tie of that pitch, which readers take for its.
    void AddTiesAcross(const MeasurePlan& plan, const MeasurePlan& next, std::size_t measure) {
        for (const PassingTie& tie : PassingTiesOf(StreamsIn(plan), StreamsIn(next))) {
            const EXNOTE& note = tie.start->time.entry->notes[tie.note];
            const bool wasSo = WasThere(measure, *tie.start, note) &&
                               WasThere(measure + 1, *tie.stop, note) &&
                               WasThere(measure + 1, *tie.other, note);
            if (!wasSo) {
                Add(*tie.start, note, tie.stop->layer, measure);
            }
        }
    }

    Remark& AddAt(const PlannedEvent& start, Remark::Kind kind, std::size_t measure) {
        Remark& remark = m_remarks.emplace_back();
        remark.kind = kind;
        remark.staff = static_cast<u16>(m_firstSlot + start.staff);
        remark.measure = static_cast<u16>(measure + 1);
        remark.layer = start.layer;
        remark.onset = i32{start.time.entry->elapsedTime};
        return remark;
    }

    void AddLine(const PlannedEvent& start, LineKind kind, std::size_t measure) {
        Remark& remark = AddAt(start, Remark::Kind::kLine, measure);
        remark.what = Say(kind == LineKind::kWavyLine    ? Text::kTrillLine
                          : kind == LineKind::kGlissando ? Text::kGlissando
                          : kind == LineKind::kSlide     ? Text::kSlide
                                                         : Text::kSlur);
        remark.words = Say(Text::kLineStopsFirst, {remark.what});
    }

    void Add(const PlannedEvent& start, const EXNOTE& note, u16 layer, std::size_t measure) {
        Remark& remark = AddAt(start, Remark::Kind::kTie, measure);
        remark.what = NameOfNote(m_score, remark.measure, note);
        remark.words = Say(Text::kTieGoesOn, {remark.what, std::to_string(layer + 1)});
    }

    const ImportedScore& m_score;
    const ScorePart& m_part;
    u16 m_firstSlot;
    const std::set<std::pair<u16, u16>>& m_changed;
    std::vector<Remark>& m_remarks;
};

}  // namespace

void AddTieRemarks(const ImportedScore& score, const ScorePart& part, u16 firstSlot,
                   const std::set<std::pair<u16, u16>>& changed, std::vector<Remark>& remarks) {
    PartTies{score, part, firstSlot, changed, remarks}.Run();
}

}  // namespace standin
