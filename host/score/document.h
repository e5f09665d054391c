// A score: its staves, measures, parts, frames and records, with undo.
//
// Building one: AddStaff and AddMeasure, then for each frame take entry numbers with
// NewEntryNumber, create the details of those entries in Records(), and PutFrame, which
// computes times from the tuplets it finds. MarkImported ends the building.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/score/frame.h"
#include "host/score/frame_key.h"
#include "host/score/journal.h"
#include "host/score/records/record_store.h"
#include "shell/host/host_frames.h"
#include "shell/host/host_records.h"

namespace standin {

struct Part {
    i16 id = 0;  // from 1; 0 is the score itself
    std::u16string name;
};

// Everything that an undo must restore, for deep comparison. Without empty frames.
struct DocumentContent {
    std::map<FrameKey, Frame> frames;
    std::map<u32, RecordStore::Table> records;

    bool operator==(const DocumentContent&) const = default;
};

class Document final : private RecordListener {
public:
    Document(u16 number, std::u16string path);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    u16 Number() const noexcept { return m_number; }
    const std::u16string& Path() const noexcept { return m_path; }
    void SetPath(std::u16string path) { m_path = std::move(path); }

    // --- Staves and their lists
    // Appends a staff to the score's own list and creates its record. Staff numbers are
    // unique and nonzero and need not follow the slots. False when the number is in use.
    bool AddStaff(u16 staff, std::u16string name = {});
    bool HasStaff(u16 staff) const { return m_staffNames.contains(staff); }
    const std::u16string& StaffName(u16 staff) const;  // empty when unknown
    // The displayed name: staves that share a name are numbered from 1.
    std::u16string AutoNumberedName(u16 staff) const;
    // Staff numbers by slot. List 0 is the score's own; lists from 65500 are staff sets.
    const std::vector<u16>& StaffList(u16 list) const;  // empty if the list does not exist
    void SetStaffList(u16 list, std::vector<u16> staves);
    u16 StaffInSlot(i16 slot, u16 list) const;   // 0 = no such slot
    i16 SlotOfStaff(u16 staff, u16 list) const;  // 0 = not in the list

    // --- Measures
    // Returns the new measure's number. The beat duration is in duration units.
    u16 AddMeasure(i16 beats, i16 beatDuration, u16 key = 0);
    u16 MeasureCount() const noexcept { return m_measureCount; }
    bool HasMeasure(i32 measure) const { return measure >= 1 && measure <= m_measureCount; }
    EDTMeasureSpec2014 Measure(u16 measure) const;  // zeros when there is none
    // In duration units. Staff 0 = the measure's own, beats times beat duration unless set
    // otherwise; a staff without its own duration has the measure's. 0 = no such measure.
    i32 MeasureDuration(u16 staff, i32 measure) const;
    void SetMeasureDuration(u16 staff, u16 measure, i32 duration);
    // The number as it is printed; decimal unless set otherwise.
    std::u16string MeasureNumberText(u16 measure) const;
    void SetMeasureNumberText(u16 measure, std::u16string text);
    // The page of a measure, from 1; 0 = not visible in page view.
    u16 PageOfMeasure(u16 measure) const;
    void SetPageOfMeasure(u16 measure, u16 page);

    // --- Parts
    void AddPart(i16 id, std::u16string name);
    const std::vector<Part>& Parts() const noexcept { return m_parts; }
    const Part* FindPart(i16 id) const;
    i16 currentPart = 0;
    i16 partInView = 0;

    // --- Staff systems Lays the score out; UpdateLayout repeats it with the last number given.
    void LayoutSystems(u16 measuresPerSystem);
    void UpdateLayout();
    // Marks the first measure of every system record as unknown.
    void MakeLayoutStale();

    // --- Records. Details of entries without a frame may be created here, by builders only.
    RecordStore& Records() noexcept { return m_records; }
    const RecordStore& Records() const noexcept { return m_records; }

    // --- Frames. Those of every layer of every staff and measure exist; most are empty.
    // Null when the frame is empty.
    const Frame* FindFrame(FrameKey key) const;
    // Unordered; frames that became empty may still be here, without entries.
    const std::unordered_map<FrameKey, Frame>& Frames() const noexcept { return m_frames; }
    // Stores the entries in stored form: placeholders dropped, times computed with the
    // tuplets on record, detail flags set by the details on record, details of entries that
    // left the frame dropped. Entry numbers must come from NewEntryNumber of this document.
    void PutFrame(FrameKey key, std::vector<EXENTRY> entries);
    u32 NewEntryNumber();
    bool IsIssued(u32 entry) const noexcept { return entry >= 1 && entry < m_homes.size(); }
    // The frame of the entry; staff 0 if it is not stored.
    FrameKey HomeOf(u32 entry) const;
    // Null if the entry is not stored. Valid until its frame changes.
    const EXENTRY* FindEntry(u32 entry) const;
    // Sets the entry's detail flags to match its stored details.
    void RefreshDetailFlags(u32 entry);
    // Beams the frames of the region that changed since they were last beamed; returns how
    // many. Slots count in the region's start staff list.
    int Rebeam(const EREGION& region);

    // --- Undo
    bool IsEditOpen() const noexcept { return m_edit.has_value(); }
    bool BeginEdit(std::u16string undoText);  // false when one is open
    bool EndEdit();                           // false when none is open
    bool CancelEdit();                        // false when none is open
    bool Undo();                              // false when there is nothing to undo
    bool Redo();
    // The undo texts, latest last.
    std::vector<std::u16string> UndoTexts() const;
    std::vector<std::u16string> RedoTexts() const;
    // What it changed, as it was before; null when there is nothing to undo.
    const Journal* LastEdit() const { return m_undo.empty() ? nullptr : &m_undo.back().journal; }

    // --- Comparison
    DocumentContent Content() const;
    u64 Digest() const;  // equal contents have equal digests

    // --- Changes since the import From now on the document can report what differs from its
    // present content.
    void MarkImported();
    // The staves and measures in which a frame, an entry's details, an expression or an end of a
    // smart shape differs from the import. Touched but equal content does not count.
    std::set<std::pair<u16, u16>> ChangedMeasures() const;
    // A frame and a record as imported; the present one when untouched, null when none.
    const Frame* ImportedFrame(FrameKey key) const;
    const Bytes* ImportedRecord(u32 tag, RecordKey key) const;

    std::optional<EREGION> selection;
    EREGION WholeRegion() const;

private:
    struct Edit {
        std::u16string text;
        Journal journal;
    };

    void BeforeRecordChange(u32 tag, RecordKey key, const Bytes* before) override;
    void BeforeRecordsChange(u32 tag, RecordTable::const_iterator first,
                             RecordTable::const_iterator last) override;
    void BeforeFrameChange(FrameKey key);
    Frame& FrameAt(FrameKey key);
    void DropLostEntries(FrameKey key, const std::vector<EXENTRY>& before,
                         const std::vector<EXENTRY>& now);
    // Exchanges the journal's content with the document's.
    void Swap(Journal& journal);

    u16 m_number;
    std::u16string m_path;
    u16 m_measureCount = 0;
    u16 m_measuresPerSystem = 4;
    std::map<u16, std::vector<u16>> m_staffLists;
    std::unordered_map<u16, std::u16string> m_staffNames;
    std::unordered_map<u32, i32> m_durations;  // staff << 16 | measure
    std::unordered_map<u16, std::u16string> m_measureNumbers;
    std::unordered_map<u16, u16> m_pages;
    std::vector<Part> m_parts;
    RecordStore m_records;
    std::unordered_map<FrameKey, Frame> m_frames;
    std::vector<FrameKey> m_homes;       // by entry number; index 0 is unused
    std::vector<FrameKey> m_needRebeam;  // may name frames that were restored since
    std::optional<Edit> m_edit;
    std::vector<Edit> m_undo;
    std::vector<Edit> m_redo;
    std::optional<Journal> m_baseline;
};

}  // namespace standin
