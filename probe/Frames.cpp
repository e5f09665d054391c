// The entry frames of the document: what they hold, and what the host says of them elsewhere.
#include <algorithm>
#include <set>

#include "probe/Details.h"
#include "probe/EntryMetrics.h"
#include "probe/EntryTimes.h"
#include "probe/Measure.h"
#include "shell/host/callbacks.h"

namespace probe {

namespace {

constexpr u64 kMaxEntries = 5000;

// Lent until the scope ends.
class LentFrame {
public:
    LentFrame(i16 slot, i16 measure, u16 layer)
        : m_frame{Host::LoadTGF(u16{0}, slot, measure, layer, i16{1})} {}
    ~LentFrame() {
        if (m_frame != nullptr) {
            Host::FreeTGF(m_frame);
        }
    }
    LentFrame(const LentFrame&) = delete;
    LentFrame& operator=(const LentFrame&) = delete;

    explicit operator bool() const noexcept { return m_frame != nullptr; }
    EXFRAME& operator*() const noexcept { return *m_frame; }
    EXFRAME* operator->() const noexcept { return m_frame; }

private:
    EXFRAME* m_frame;
};

class FrameLook {
public:
    u64 Entries() const noexcept { return m_entries; }

    void Look(i16 slot, u16 staff, i16 measure, u16 layer) {
        const LentFrame frame{slot, measure, layer};
        if (!frame || frame->entries == nullptr || frame->count <= 0) {
            return;
        }
        m_fields.Count(frame->slot == slot && frame->staff == staff && frame->measure == measure &&
                       frame->layer == layer);
        const LentFrame other{slot, measure, layer};
        m_copies.Count(other && other->entries != frame->entries);
        LookAtEntries(*frame);
        m_times.Look(*frame, m_details);
        m_metrics.Look(*frame);
    }

    // When all frames were looked at.
    void Finish(i16 measures) {
        m_details.Fields().LookAtShapes(m_known, m_entries < kMaxEntries, measures);
    }

    void Report(Findings& findings) const {
        findings.Begin(Text::kFreedoms);
        ReportOrder(findings);
        findings.Add("EXENTRY entryNumber", Say(Text::kEntryOrder), m_order);
        findings.Begin(Text::kFrames);
        findings.Add("FX_LoadTGF EXFRAME", Say(Text::kFrameFields), m_fields);
        findings.Add("FX_LoadTGF", Say(Text::kFrameCopies), m_copies);
        findings.Add("EXENTRY entryNumber", Say(Text::kEntryNumbers), m_numbers);
        findings.Add("EXENTRY noteCount", Say(Text::kRests), m_rests);
        findings.Add("EXNOTE noteID", Say(Text::kNoteIds), m_noteIds);
        findings.Add("EXNOTE flags", Say(Text::kNoteIdCopies), m_noteIdCopies);
        m_times.Report(findings);
        m_metrics.Report(findings);
        m_details.Report(findings);
    }

private:
    void LookAtEntries(const EXFRAME& frame) {
        u32 last = 0;
        for (i16 i = 0; i < frame.count; ++i) {
            const EXENTRY entry = frame.entries[i];
            const u32 number = entry.entryNumber;
            m_numbers.Count(number != 0 && m_known.insert(number).second);
            m_order.Count(number > last);
            last = number;
            if ((entry.flags & EntryFlag::kNote) == 0) {
                m_rests.Count(entry.noteCount == 0);
            } else {
                LookAtNotes(entry);
            }
        }
        m_entries += static_cast<u64>(frame.count);
    }

    void LookAtNotes(const EXENTRY& entry) {
        const i16 count = std::clamp<i16>(entry.noteCount, 0, kMaxNotesPerEntry);
        std::set<u16> ids;
        bool rises = true;
        for (i16 i = 0; i < count; ++i) {
            const EXNOTE note = entry.notes[i];
            m_noteIds.Count(note.noteID != 0 && ids.insert(note.noteID).second);
            m_details.Fields().LookAt(note);
            m_noteIdCopies.Count((note.flags & NoteFlag::kNoteIDCopy) >> 16U ==
                                 (note.noteID & 0x1FU));
            rises = rises && (i == 0 || static_cast<i16>(note.pitch) >=
                                            static_cast<i16>(entry.notes[i - 1].pitch));
        }
        if (count > 1) {
            m_rising.Count(rises);
        }
    }

    // Chords that all rise may have been sorted, or not: nothing is saved to find out.
    void ReportOrder(Findings& findings) const {
        const bool areSome = m_rising.good < m_rising.seen;
        findings.Add("FX_SaveTGF EXNOTE", Say(Text::kUsualOrder),
                     SayNumbers(Text::kCounted, m_rising.seen - m_rising.good, m_rising.seen),
                     areSome ? Verdict::kAgrees : Verdict::kNotSeen);
    }

    u64 m_entries = 0;
    std::set<u32> m_known;
    Tally m_fields;
    Tally m_copies;
    Tally m_numbers;
    Tally m_order;
    Tally m_rests;
    Tally m_noteIds;
    Tally m_noteIdCopies;
    Tally m_rising;
    EntryTimes m_times;
    EntryMetrics m_metrics;
    Details m_details;
};

}  // namespace

u64 MeasureFrames(Findings& findings, const Score& score) {
    FrameLook look;
    for (i16 measure = 1; measure <= score.measures; ++measure) {
        for (i16 slot = 1; slot <= score.slots && look.Entries() < kMaxEntries; ++slot) {
            const u16 staff = Host::SlotToInst(slot, u16{0});
            for (i16 layer = 0; layer < score.layers; ++layer) {
                look.Look(slot, staff, measure, static_cast<u16>(layer));
            }
        }
    }
    look.Finish(score.measures);
    look.Report(findings);
    return look.Entries();
}

}  // namespace probe
