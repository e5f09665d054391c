// A detail of an entry: a host record attached to it, such as an articulation.
#pragma once

#include <map>
#include <optional>
#include <span>

#include "Class Files/score/frames/FinPIEntryPtr.h"

// Addresses one record at a time, by its number among the entry's records of the kind, and
// holds a copy of it. The entry's flags in the frame that is held follow what is created and
// deleted, since a later save of that frame would otherwise undo them. The entry's frame must
// outlive the object. Results: 0 = failed, or no; refusals of the host are posted, except that
// a record which does not load posts nothing.
class FinPIEntryDetail {
public:
    // Selected to create a record after the others.
    static constexpr u16 kNewRecord = 0xFFFF;
    // The limit of records of one kind at one entry. No music has as many; the limit stops a walk
    // if a host always returns one more.
    static constexpr u16 kMaxRecords = 4096;

    FinPIEntryDetail(const FinPIEntryDetail&) = delete;
    FinPIEntryDetail& operator=(const FinPIEntryDetail&) = delete;

    // The order of the virtual operations is the interface.
    // The selected record; does nothing when loaded already. Rests on FX_LoadEData.
    virtual i16 Load();
    // Saves a loaded record, creates one that is not.
    virtual i16 Commit();
    virtual i16 Delete();
    virtual void SelectRecord(u16 recordNumber);
    // Whether the other record, of the same kind, has the same content.
    virtual i16 IsSame(const FinPIEntryDetail& other) const;
    // Copies the content of the source; 0 = it must not be copied.
    virtual i16 CopyAttributes(const FinPIEntryDetail& source);
    // By the entry's flags; no host call.
    virtual i16 HasDetails() const;
    // Passes over the loaded record when copying and deleting.
    virtual i16 IsSkipped() const { return 0; }
    // Whether this entry can take the loaded record of the source.
    virtual i16 IsApplicable(const FinPIEntryDetail& /*source*/) const { return 1; }
    // A record without effect, which is not stored.
    virtual i16 IsEmpty() const { return 0; }
    // Called after the source's record was stored here.
    virtual void OnCopied(const FinPIEntryDetail& /*source*/) {}
    // Both post when the record was never loaded, or loaded already.
    virtual i16 Save();
    virtual i16 Create();
    // Converts references of a record that comes from another document.
    virtual i16 CopyDependentStructs(const FinPIEntryDetail& /*source*/) { return 1; }
    virtual const void* GetData() const = 0;  // null when the kind has no record
    virtual u32 GetDataSize() const = 0;      // bytes
    // The bytes that are compared between two records.
    virtual std::span<const u8> Identity() const;

    // Copies the records that the target lacks and brings those it has up to date. sameKind:
    // only between two notes or two rests. anyCopied becomes 1 when a record was stored.
    static i16 CopyDetail(FinPIEntryDetail& target, FinPIEntryDetail& source, bool sameKind,
                          i16& anyCopied);

    struct Removal {
        bool succeeded = true;
        bool anyDeleted = false;
        bool leftNone = false;  // false also when that is not known
    };
    // Deletes every record that is not skipped. The entry's flags stay.
    Removal DeleteAll();
    // The kind's entry flags, once a record was deleted; 0 until then.
    u32 FlagsOfDeleted() const noexcept { return m_flagsOfDeleted; }
    // Whether a record is stored for the entry, under either tag; loads none.
    bool HasRecord();
    // The entry's records of the kind, one after the other.
    class Walk;

    const FinPIEntryPtr& Entry() const noexcept { return m_entry; }

protected:
    // secondTag: that of the down-stem variant of a kind whose first tag is for stems up; 0 =
    // the kind has one tag. entryFlags mark an entry that has such details.
    FinPIEntryDetail(const FinPIEntryPtr& entry, u32 tag, u32 secondTag, u32 entryFlags);
    ~FinPIEntryDetail() = default;

    // Posts when the other is of another kind.
    bool CheckSameKind(const FinPIEntryDetail& other, const char* operation) const;
    i16 StemDirection() const;
    u32 Tag() const;
    void* MutableData() { return const_cast<void*>(GetData()); }
    // No details of the kind, without asking for the stem's direction.
    bool HasNothing() { return HasDetails() == 0 || (m_secondTag != 0 && !HasRecord()); }
    // A number that equal records share; 0 = the kind's records have none.
    u32 RecordKey() const;
    // Stores the source's loaded record here: in place of the equal one that earlier equal
    // records do not account for, else as a new one. operation is the one to name in errors.
    i16 CopyRecord(FinPIEntryDetail& source, u32 earlierEqual, const char* operation,
                   i16& anyCopied);

    FinPIEntryPtr m_entry;
    u32 m_version = kInterfaceVersion;
    u32 m_tag;
    u32 m_secondTag;
    u32 m_entryFlags;
    mutable i16 m_stemDirection;
    u16 m_recordNumber = 0;
    i16 m_loaded = 0;
    u32 m_flagsOfDeleted = 0;

private:
    i16 LoadFrom(u32 tag);
    // One more than the number of the last record of the tag, without a load; 0 = none.
    u32 CountOf(u32 tag);
    // The number of the first record from this one on, without a load; kNewRecord = none.
    u16 FirstNumberFrom(u16 recordNumber);
    // Checks by a load and by the count, so that one refused call hides no record.
    bool IsStored(u32 tag);
    // Uses the records of the other direction if there are none for the stem's direction, because
    // music that joined the layer may have turned the stem.
    void FollowStoredVariant();
    // Loads every record once; false: the walk failed.
    bool ListContents();
    enum class Search { kFound, kNotFound, kInDoubt };
    Search SelectEqualRecord(const FinPIEntryDetail& source, u32 earlierEqual);

    // The numbers of the entry's records by their RecordKey(), once they were needed. Without those
    // that are created while others are copied, which are never looked for.
    std::optional<std::multimap<u32, u16>> m_numbersByContent;
};

// Skips the gaps that a host may leave in the numbers when a record is deleted. A refused load must
// not look like a gap or the end, so FX_PreviousEData and FX_NextEData are also called.
class FinPIEntryDetail::Walk {
public:
    // operation is the one to name in errors.
    explicit Walk(FinPIEntryDetail& detail, const char* operation = "FinPIEntryDetail::Load")
        : m_detail{detail}, m_operation{operation} {}

    // Selects and loads the next record. False: there is none, or the walk failed. Not to be called
    // again after that.
    bool Next();
    // The selected record is gone. The next one may have taken its number.
    void Deleted() noexcept { m_next = m_detail.m_recordNumber; }
    // A record did not load, or the records do not end; an error is pending. Nothing may be deleted
    // then.
    bool HasFailed() const noexcept { return m_failed; }

private:
    bool Load(u16 recordNumber);
    bool Fail();

    FinPIEntryDetail& m_detail;
    const char* m_operation;
    u16 m_next = 0;
    u16 m_seen = 0;
    bool m_failed = false;
};
