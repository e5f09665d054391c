// All records of a document except its frames: by tag, then in the order of their keys.
#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/score/records/record_key.h"

namespace standin {

// A record's bytes. A string, because records of a dozen bytes then need no memory of their own.
using Bytes = std::string;

// The bytes of a host structure, and a structure from bytes (cut or padded with zeros).
template <typename Structure>
Bytes BytesOf(const Structure& structure) {
    return Bytes(reinterpret_cast<const char*>(&structure), sizeof(Structure));
}
template <typename Structure>
Structure FromBytes(const Bytes& bytes) {
    Structure structure{};
    bytes.copy(reinterpret_cast<char*>(&structure), sizeof(Structure));
    return structure;
}

using RecordTable = std::map<RecordKey, Bytes>;

// Called before a record changes; null = it does not exist yet. Of an item of which a record is
// deleted, all records from that one on are passed at once.
class RecordListener {
public:
    virtual void BeforeRecordChange(u32 tag, RecordKey key, const Bytes* before) = 0;
    virtual void BeforeRecordsChange(u32 tag, RecordTable::const_iterator first,
                                     RecordTable::const_iterator last) = 0;

protected:
    ~RecordListener() = default;
};

class RecordStore {
public:
    using Table = RecordTable;

    void SetListener(RecordListener* listener) noexcept { m_listener = listener; }

    // Null if the record does not exist.
    const Bytes* Find(u32 tag, RecordKey key) const;

    // False when the record does not exist, except that a preference is then created.
    bool Save(u32 tag, RecordKey key, Bytes bytes);

    // The key used; empty when refused. A record number in use inserts there and moves the
    // later ones of the item up; one beyond the last, or kAppend, appends. A preference or a
    // numbered item in use is refused; a text with item kAppend takes the next free item.
    std::optional<RecordKey> Create(u32 tag, RecordKey key, Bytes bytes);

    // Closing up moves the later record numbers of the item down by one. False if it does not
    // exist.
    enum class After { kCloseUp, kGap };
    bool Delete(u32 tag, RecordKey key, After after = After::kCloseUp);
    // To be called before a listener begins to note changes.
    void CloseUp() const;

    // The first record after the key, the last one before it; null if none.
    const Table::value_type* Next(u32 tag, RecordKey key) const;
    const Table::value_type* Previous(u32 tag, RecordKey key) const;

    // Every record of a tag in order; empty when there are none.
    const Table& OfTag(u32 tag) const;
    const std::map<u32, Table>& All() const {
        CloseUp();
        return m_tables;
    }

    // How many records of the tag the entry has; if their numbers have gaps, the last number + 1.
    u16 CountOfEntry(u32 tag, u32 entry) const;
    bool HasDetails(u32 entry) const { return m_entryTags.contains(entry); }

    // Calls visit(tag) for every tag of which the entry has details.
    template <typename Visit>
    void ForEachDetailTag(u32 entry, Visit visit) const;
    // Calls visit(tag, key, bytes) for every detail of the entry.
    template <typename Visit>
    void ForEachDetail(u32 entry, Visit visit) const;

    // Deletes every detail of the entry.
    void DeleteDetails(u32 entry);

    // Sets exactly this state without renumbering and without calling the listener; returns the
    // previous state. Also used to store record numbers with gaps.
    std::optional<Bytes> Exchange(u32 tag, RecordKey key, std::optional<Bytes> bytes);

private:
    using TagMask = u64;                        // bit i: the i-th entry detail tag
    static constexpr unsigned kSharedBit = 63;  // for the tags without their own bit

    // Where an item lost records; the later ones still have their former numbers. Closing up waits,
    // since the records of an entry often go one after the other, and would all move each time.
    struct Opening {
        u32 tag = 0;
        RecordKey at{};  // of the first one lost
        u16 lost = 0;
    };

    bool IsOpen(u32 tag, RecordKey key) const noexcept {
        return m_opening && m_opening->tag == tag && m_opening->at.Item() == key.Item();
    }
    // The key that the record has in its table.
    RecordKey StoredKey(u32 tag, RecordKey key) const noexcept;
    // To change records of the key's item.
    Table& TableOf(u32 tag, RecordKey key);
    bool HasAny(u32 tag, u32 entry) const;
    u16 CountOfItem(const Table& table, RecordKey key) const;
    void Notify(u32 tag, RecordKey key, const Bytes* before);
    void Put(u32 tag, Table& table, RecordKey key, Bytes bytes);
    // The new record number must be free.
    void Renumber(u32 tag, Table& table, Table::iterator position, u16 inci);
    TagMask MaskOf(u32 tag);
    void UnmarkIfLast(u32 tag, RecordKey key);

    RecordListener* m_listener = nullptr;
    mutable std::map<u32, Table> m_tables;
    mutable std::optional<Opening> m_opening;
    std::vector<u32> m_detailTags;                 // in order of first use
    std::unordered_map<u32, TagMask> m_entryTags;  // of entries with details
};

template <typename Visit>
void RecordStore::ForEachDetailTag(u32 entry, Visit visit) const {
    const auto tags = m_entryTags.find(entry);
    if (tags == m_entryTags.end()) {
        return;
    }
    for (std::size_t i = 0; i < m_detailTags.size(); ++i) {
        const bool isMarked = (tags->second >> std::min<std::size_t>(i, kSharedBit) & 1U) != 0;
        if (isMarked && (i < kSharedBit || HasAny(m_detailTags[i], entry))) {
            visit(m_detailTags[i]);
        }
    }
}

template <typename Visit>
void RecordStore::ForEachDetail(u32 entry, Visit visit) const {
    ForEachDetailTag(entry, [&](u32 tag) {
        const Table& table = OfTag(tag);
        for (auto at = table.lower_bound(RecordKey::OfEntry(entry));
             at != table.end() && at->first.Entry() == entry; ++at) {
            visit(tag, at->first, at->second);
        }
    });
}

}  // namespace standin
