#include "host/report/merge_report.h"

#include <algorithm>

#include "host/report/frame_effect.h"
#include "host/report/places.h"
#include "host/score/selection.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

const std::vector<EXENTRY>& EntriesOf(const Frame* frame) {
    static const std::vector<EXENTRY> kNone;
    return frame == nullptr ? kNone : frame->entries;
}

// Compares one staff in one measure before and after.
class MeasureReporter {
public:
    MeasureReporter(const ImportedScore& score, const MergeRequest& request, FrameKey destination,
                    u16 slot)
        : m_score{score},
          m_document{*score.document},
          m_request{request},
          m_destination{destination},
          m_before{EntriesOf(m_document.ImportedFrame(destination))},
          m_now{EntriesOf(m_document.FindFrame(destination))} {
        m_result.staff = slot;
        m_result.measure = destination.measure;
    }

    MergedMeasure Report() {
        CountMoved();
        for (u16 layer = 0; layer < kLayers; ++layer) {
            const bool isSource =
                m_request.options.source == kAllLayers || m_request.options.source == layer;
            if (isSource && layer != m_destination.layer) {
                FindStayed(layer);
            }
        }
        if (!m_result.IsEmpty()) {
            m_result.number = PrintedNumber(m_document, m_result.measure);
        }
        return std::move(m_result);
    }

private:
    void CountMoved() {
        const FrameEffect effect = EffectOn(m_before, m_now);
        m_result.chordsFormed = effect.chordsFormed;
        m_result.notesMoved = effect.notesMoved;
        m_result.restsFilled = effect.restsFilled;
        m_result.notesCleared = m_request.options.mode != 0 ? effect.notesGone : 0;
    }

    bool IsSelected(i32 onset) const {
        return std::ranges::any_of(m_request.selections, [&](const EREGION& selection) {
            return Holds(selection, m_result.staff, m_result.measure, onset);
        });
    }

    void FindStayed(u16 layer) {
        const FrameKey key{m_destination.staff, m_destination.measure, layer};
        const Frame* frame = m_document.FindFrame(key);
        for (const EXENTRY& entry : EntriesOf(frame)) {
            if (entry.noteCount > 0 && IsSelected(entry.elapsedTime)) {
                StayedEntry& stayed = m_result.stayed.emplace_back();
                stayed.layer = layer;
                stayed.onset = entry.elapsedTime;
                stayed.beat = BeatAt(m_document, m_result.measure, entry.elapsedTime);
                stayed.pitches = PitchesOf(entry);
                stayed.reason = ReasonFor(entry);
            }
        }
    }

    std::vector<std::string> PitchesOf(const EXENTRY& entry) const {
        std::vector<std::string> pitches;
        pitches.reserve(static_cast<std::size_t>(entry.noteCount));
        for (int i = 0; i < entry.noteCount; ++i) {
            pitches.push_back(NameOfNote(m_score, m_result.measure, entry.notes[i]));
        }
        return pitches;
    }

    Stay ReasonFor(const EXENTRY& entry) const {
        for (const EXENTRY& other : m_now) {
            const bool coincides = other.noteCount > 0 && other.elapsedTime == entry.elapsedTime &&
                                   ((other.flags ^ entry.flags) & EntryFlag::kGrace) == 0;
            if (!coincides) {
                continue;
            }
            const bool isAlike =
                other.duration == entry.duration && other.actualDuration == entry.actualDuration;
            return isAlike ? Stay::kTooManyNotes : Stay::kOtherDuration;
        }
        return Stay::kNoRestToFill;
    }

    const ImportedScore& m_score;
    const Document& m_document;
    const MergeRequest& m_request;
    FrameKey m_destination;
    const std::vector<EXENTRY>& m_before;
    const std::vector<EXENTRY>& m_now;
    MergedMeasure m_result;
};

template <typename Value>
int Total(const std::vector<MergedMeasure>& measures, Value value) {
    int total = 0;
    for (const MergedMeasure& measure : measures) {
        total += value(measure);
    }
    return total;
}

}  // namespace

bool MergedMeasure::IsEmpty() const noexcept {
    return notesMoved == 0 && restsFilled == 0 && notesCleared == 0 && stayed.empty();
}

MergeReport ReportMerge(const ImportedScore& score, MergeRequest request) {
    const Document& document = *score.document;
    MergeReport report;
    report.request = std::move(request);
    report.staffNames = StaffNames(score);
    const std::vector<u16>& staves = document.StaffList(0);
    for (std::size_t slot = 0; slot < staves.size(); ++slot) {
        for (u16 measure = 1; measure <= document.MeasureCount(); ++measure) {
            const FrameKey key{staves[slot], measure, report.request.options.destination};
            MergedMeasure merged =
                MeasureReporter{score, report.request, key, static_cast<u16>(slot + 1)}.Report();
            if (!merged.IsEmpty()) {
                report.measures.push_back(std::move(merged));
            }
        }
    }
    for (const ReadWarning& warning : score.warnings.All()) {
        report.warnings.push_back(
            Say(Text::kWarningInLine, {std::to_string(warning.line), warning.Words()}));
    }
    return report;
}

void AddRemarks(const ImportedScore& score, MergeReport& report) {
    for (const EREGION& selection : report.request.selections) {
        for (Remark& remark : RemarksOn(score, report.request.options.destination, selection)) {
            report.remarks.push_back(std::move(remark));
        }
    }
}

int MergeReport::ChordsFormed() const noexcept {
    return Total(measures, [](const MergedMeasure& m) { return m.chordsFormed; });
}

int MergeReport::NotesMoved() const noexcept {
    return Total(measures, [](const MergedMeasure& m) { return m.notesMoved; });
}

int MergeReport::RestsFilled() const noexcept {
    return Total(measures, [](const MergedMeasure& m) { return m.restsFilled; });
}

int MergeReport::NotesCleared() const noexcept {
    return Total(measures, [](const MergedMeasure& m) { return m.notesCleared; });
}

int MergeReport::MeasuresCleared() const noexcept {
    return Total(measures, [](const MergedMeasure& m) { return m.notesCleared > 0 ? 1 : 0; });
}

int MergeReport::Stayed() const noexcept {
    return Total(measures,
                 [](const MergedMeasure& m) { return static_cast<int>(m.stayed.size()); });
}

std::map<Stay, int> MergeReport::StayedByReason() const {
    std::map<Stay, int> counts;
    for (const MergedMeasure& measure : measures) {
        for (const StayedEntry& entry : measure.stayed) {
            ++counts[entry.reason];
        }
    }
    return counts;
}

std::vector<const MergedMeasure*> MergeReport::ClearedForNothing() const {
    std::vector<const MergedMeasure*> cleared;
    for (const MergedMeasure& measure : measures) {
        if (measure.notesCleared > 0 && measure.notesMoved == 0) {
            cleared.push_back(&measure);
        }
    }
    return cleared;
}

std::string WordsForReason(Stay reason) {
    switch (reason) {
        case Stay::kOtherDuration:
            return std::string{Say(Text::kStayOtherDuration)};
        case Stay::kTooManyNotes:
            return std::string{Say(Text::kStayTooManyNotes)};
        case Stay::kNoRestToFill:
            break;
    }
    return std::string{Say(Text::kStayNoRest)};
}

}  // namespace standin
