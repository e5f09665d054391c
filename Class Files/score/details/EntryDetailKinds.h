// The classes of the kinds of details, one per row of shell/host/entry_details.inc: each binds a
// host record, its tag and the flag of its entries.
#pragma once

#include "Class Files/score/details/FinPINoteDetail.h"
#include "Class Files/score/details/FinPINullEntryDetail.h"
#include "shell/host/detail_flags.h"
#include "shell/host/host_details.h"
#include "shell/host/host_records.h"

// secondTag: the down-stem variant's; 0 = the kind has one tag.
template <typename Record, u32 tag, u32 secondTag, u32 entryFlags>
class FinPIEntDetTemplate : public FinPIEntryDetail {
public:
    static constexpr u32 kTag = tag;
    static constexpr u32 kSecondTag = secondTag;
    static constexpr u32 kEntryFlags = entryFlags;

    explicit FinPIEntDetTemplate(const FinPIEntryPtr& entry)
        : FinPIEntryDetail{entry, tag, secondTag, entryFlags} {}

    const void* GetData() const override { return &m_record; }
    u32 GetDataSize() const override { return sizeof(m_record); }

protected:
    Record m_record{};
};

// noteFlags: only notes with this flag have such details; 0 = all can.
template <typename Record, u32 tag, u32 entryFlags, u32 noteFlags = 0>
class FinPINoteDetTemplate final : public FinPINoteDetail {
public:
    static constexpr u32 kTag = tag;
    static constexpr u32 kEntryFlags = entryFlags;
    static constexpr u32 kNoteFlags = noteFlags;

    explicit FinPINoteDetTemplate(const FinPIEntryPtr& entry)
        : FinPINoteDetail{entry, tag, entryFlags, noteFlags} {}

    const void* GetData() const override { return &m_record; }
    u32 GetDataSize() const override { return sizeof(m_record); }

private:
    Record m_record{};
};

// A record that only adjusts the default drawing: without a value it is not stored.
template <typename Record, u32 tag, u32 secondTag, u32 entryFlags>
class FinPIAlterationTemplate final
    : public FinPIEntDetTemplate<Record, tag, secondTag, entryFlags> {
public:
    using FinPIEntDetTemplate<Record, tag, secondTag, entryFlags>::FinPIEntDetTemplate;

    i16 IsEmpty() const override {
        for (const u8 byte : this->Identity()) {
            if (byte != 0) {
                return 0;
            }
        }
        return 1;
    }
};

// A tuplet counts its first entry in its own units, so the entry's duration is copied with it.
template <typename Record, u32 tag, u32 secondTag, u32 entryFlags>
class FinPITupletTemplate final : public FinPIEntDetTemplate<Record, tag, secondTag, entryFlags> {
public:
    using FinPIEntDetTemplate<Record, tag, secondTag, entryFlags>::FinPIEntDetTemplate;

    void OnCopied(const FinPIEntryDetail& source) override {
        this->m_entry->duration = source.Entry()->duration;
    }
};

// Equal syllables of the same verse are the same lyric.
template <typename Record, u32 tag, u32 secondTag, u32 entryFlags>
class FinPILyricTemplate final : public FinPIEntDetTemplate<Record, tag, secondTag, entryFlags> {
public:
    using FinPIEntDetTemplate<Record, tag, secondTag, entryFlags>::FinPIEntDetTemplate;

    std::span<const u8> Identity() const override {
        return FinPIEntryDetail::Identity().first(offsetof(Record, opaque4));
    }
};

#define ENTRY_DETAIL(name, family, structure, tag, downTag, flag, ...) \
    using FinPI##name = family<structure, tag, downTag, DetailFlag::flag>;
#define NOTE_DETAIL(name, structure, tag, flag, noteFlag, ...) \
    using FinPI##name = FinPINoteDetTemplate<structure, tag, DetailFlag::flag, noteFlag>;
#define FLAG_DETAIL(name, upFlags, downFlags, ...) \
    using FinPI##name = FinPINullEntryDetail<DetailFlag::upFlags, DetailFlag::downFlags>;
#include "shell/host/entry_details.inc"
