// The keys of records: the family of a tag determines the words of its key.
#pragma once

#include "shell/host/host_types.h"

namespace standin {

enum class RecordFamily {
    kNone,         // not the tag of a record
    kOther,        // { item, record number }
    kDetail,       // { first item, second item, record number }
    kPreference,   // { item }; 'pf' and 'gb': saving one that is missing creates it
    kText,         // { item }
    kEntryDetail,  // { u32 entry number, record number }
    kStaffAt,      // { staff, measure, u32 position }: answered from the staff's record
};

RecordFamily FamilyOf(u32 tag) noexcept;

// Tags with one record per item, number 0: measures, staves, staff systems, pages and smart shapes.
bool IsNumberedItem(u32 tag) noexcept;

// The record number that means the next free one.
inline constexpr u16 kAppend = 0xFFFF;

// A key packed so that comparison gives the host's order.
struct RecordKey {
    u64 order = 0;

    static constexpr RecordKey Other(u16 item, u16 inci = 0) noexcept {
        return {(u64{item} << 16U) | inci};
    }
    static constexpr RecordKey Detail(u16 first, u16 second, u16 inci = 0) noexcept {
        return {(u64{first} << 32U) | (u64{second} << 16U) | inci};
    }
    static constexpr RecordKey Preference(u16 item) noexcept { return {item}; }
    static constexpr RecordKey Text(u16 item) noexcept { return {item}; }
    static constexpr RecordKey OfEntry(u32 entry, u16 inci = 0) noexcept {
        return {(u64{entry} << 16U) | inci};
    }

    // Of the families whose last word is a record number:
    constexpr u16 Inci() const noexcept { return static_cast<u16>(order & 0xFFFFU); }
    constexpr u64 Item() const noexcept { return order >> 16U; }
    constexpr RecordKey WithInci(u16 inci) const noexcept { return {(Item() << 16U) | inci}; }

    // An entry detail's entry.
    constexpr u32 Entry() const noexcept { return static_cast<u32>(order >> 16U); }
    // The item of an 'other' record, such as the measure of a measure record.
    constexpr u16 OtherItem() const noexcept { return static_cast<u16>(order >> 16U); }

    bool operator==(const RecordKey&) const = default;
    constexpr bool operator<(const RecordKey& other) const noexcept { return order < other.order; }
};

// The key words of a family as the host interface passes them. kStaffAt keys are not packed;
// reading one gives the staff as the item of an 'other' record.
RecordKey ReadKey(RecordFamily family, const void* words) noexcept;
void WriteKey(RecordFamily family, RecordKey key, void* words) noexcept;

}  // namespace standin
