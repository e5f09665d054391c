#include "host/report/merge_report.h"

#include <algorithm>
#include <functional>

namespace standin {
namespace {

LayerContent ContentOfFrame(const Frame& frame) {
    LayerContent content;
    for (const EXENTRY& entry : frame.entries) {
        const bool hidden = (entry.flags & EntryFlag::kIgnore) != 0;
        content.notes += entry.noteCount;
        content.entries += entry.noteCount > 0 ? 1 : 0;
        content.visibleRests += entry.noteCount == 0 && !hidden ? 1 : 0;
        content.hiddenRests += entry.noteCount == 0 && hidden ? 1 : 0;
    }
    return content;
}

bool IsIn(const EREGION& selection, u16 slot, u16 measure, i32 onset) {
    const auto at = std::pair{i32{measure}, onset};
    return slot >= selection.startSlot && slot <= selection.endSlot &&
           at >= std::pair{i32{selection.startMeasure}, i32{selection.startPosition}} &&
           at <= std::pair{i32{selection.endMeasure}, i32{selection.endPosition}};
}

const std::vector<EXENTRY>& EntriesOf(const Frame* frame) {
    static const std::vector<EXENTRY> kNone;
    return frame == nullptr ? kNone : frame->entries;
}

// Compares one staff in one measure before and after.
class MeasureReporter {
public:
    MeasureReporter(const Document& document, FrameKey destination, u16 slot,
                    const EREGION& selection)
        : m_document{document},
          m_destination{destination},
          m_selection{selection},
          m_before{EntriesOf(document.ImportedFrame(destination))},
          m_now{EntriesOf(document.FindFrame(destination))} {
        m_result.staff = slot;
        m_result.measure = destination.measure;
    }

    MergedMeasure Report() {
        CountMoved();
        for (u16 layer = 0; layer < kLayers; ++layer) {
            if (layer != m_destination.layer) {
                FindStayed(layer);
            }
        }
        return std::move(m_result);
    }

private:
    void CountMoved() {
        for (const EXENTRY& entry : m_now) {
            const auto old = std::find_if(m_before.begin(), m_before.end(), [&](const EXENTRY& e) {
                return e.entryNumber == entry.entryNumber;
            });
            const int had = old == m_before.end() ? 0 : old->noteCount;
            m_result.notesMoved += std::max(entry.noteCount - had, 0);
            m_result.chordsFormed += had > 0 && entry.noteCount > had ? 1 : 0;
        }
        m_result.restsFilled += static_cast<int>(
            std::count_if(m_before.begin(), m_before.end(),
                          [this](const EXENTRY& entry) { return GaveWayToMusic(entry); }));
    }

    // Other rests may stand where a rest stood, too.
    bool GaveWayToMusic(const EXENTRY& rest) const {
        const auto end = [](const EXENTRY& entry) {
            return entry.elapsedTime + entry.actualDuration;
        };
        return rest.noteCount == 0 &&
               std::none_of(m_now.begin(), m_now.end(),
                            [&](const EXENTRY& e) { return e.entryNumber == rest.entryNumber; }) &&
               std::any_of(m_now.begin(), m_now.end(), [&](const EXENTRY& e) {
                   return e.noteCount > 0 && e.elapsedTime < end(rest) && rest.elapsedTime < end(e);
               });
    }

    void FindStayed(u16 layer) {
        const FrameKey key{m_destination.staff, m_destination.measure, layer};
        for (const EXENTRY& entry : EntriesOf(m_document.FindFrame(key))) {
            if (entry.noteCount > 0 &&
                IsIn(m_selection, m_result.staff, key.measure, entry.elapsedTime)) {
                m_result.stayed.push_back({layer, i32{entry.elapsedTime}, ReasonFor(entry)});
            }
        }
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

    const Document& m_document;
    FrameKey m_destination;
    const EREGION& m_selection;
    const std::vector<EXENTRY>& m_before;
    const std::vector<EXENTRY>& m_now;
    MergedMeasure m_result;
};

int Total(const std::vector<MergedMeasure>& measures,
          const std::function<int(const MergedMeasure&)>& value) {
    int total = 0;
    for (const MergedMeasure& measure : measures) {
        total += value(measure);
    }
    return total;
}

}  // namespace

std::vector<StaffMeasureContent> ContentOf(const ImportedScore& score) {
    const Document& document = *score.document;
    std::vector<StaffMeasureContent> contents;
    const std::vector<u16>& staves = document.StaffList(0);
    for (std::size_t slot = 0; slot < staves.size(); ++slot) {
        for (u16 measure = 1; measure <= document.MeasureCount(); ++measure) {
            StaffMeasureContent content{static_cast<u16>(slot + 1), measure, {}};
            bool any = false;
            for (u16 layer = 0; layer < kLayers; ++layer) {
                if (const Frame* frame = document.FindFrame({staves[slot], measure, layer})) {
                    content.layers[layer] = ContentOfFrame(*frame);
                    any = true;
                }
            }
            if (any) {
                contents.push_back(content);
            }
        }
    }
    return contents;
}

MergeReport ReportMerge(const ImportedScore& score, u16 destination, const EREGION& selection) {
    const Document& document = *score.document;
    MergeReport report;
    const std::vector<u16>& staves = document.StaffList(0);
    for (std::size_t slot = 0; slot < staves.size(); ++slot) {
        for (u16 measure = 1; measure <= document.MeasureCount(); ++measure) {
            MergedMeasure merged = MeasureReporter{document,
                                                   {staves[slot], measure, destination},
                                                   static_cast<u16>(slot + 1),
                                                   selection}
                                       .Report();
            if (merged.notesMoved > 0 || merged.restsFilled > 0 || !merged.stayed.empty()) {
                report.measures.push_back(std::move(merged));
            }
        }
    }
    return report;
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

int MergeReport::Stayed() const noexcept {
    return Total(measures,
                 [](const MergedMeasure& m) { return static_cast<int>(m.stayed.size()); });
}

std::string WordsForReason(Stay reason) {
    switch (reason) {
        case Stay::kOtherDuration:
            return "another duration at its time";
        case Stay::kTooManyNotes:
            return "more notes than one chord can hold";
        case Stay::kNoRestToFill:
            break;
    }
    return "no rests of exactly its time";
}

}  // namespace standin
