#include "host/score/records/record_store.h"

#include <algorithm>
#include <iterator>

namespace standin {
namespace {

bool HasRecordNumbers(u32 tag) noexcept {
    const RecordFamily family = FamilyOf(tag);
    return !IsNumberedItem(tag) &&
           (family == RecordFamily::kOther || family == RecordFamily::kDetail ||
            family == RecordFamily::kEntryDetail);
}

}  // namespace

const Bytes* RecordStore::Find(u32 tag, RecordKey key) const {
    const auto named = m_tables.find(tag);
    if (named == m_tables.end()) {
        return nullptr;
    }
    const auto found = named->second.find(StoredKey(tag, key));
    return found == named->second.end() ? nullptr : &found->second;
}

bool RecordStore::Save(u32 tag, RecordKey key, Bytes bytes) {
    const Bytes* stored = Find(tag, key);
    if (stored == nullptr && FamilyOf(tag) != RecordFamily::kPreference) {
        return false;
    }
    if (stored == nullptr || *stored != bytes) {
        Notify(tag, key, stored);
        Put(tag, TableOf(tag, key), key, std::move(bytes));
    }
    return true;
}

std::optional<RecordKey> RecordStore::Create(u32 tag, RecordKey key, Bytes bytes) {
    const RecordFamily family = FamilyOf(tag);
    if (family == RecordFamily::kNone || family == RecordFamily::kStaffAt) {
        return std::nullopt;
    }
    Table& table = TableOf(tag, key);
    if (HasRecordNumbers(tag)) {
        const u16 count = CountOfItem(table, key);
        if (count == kAppend) {
            return std::nullopt;
        }
        key = key.WithInci(std::min(key.Inci(), count));
        for (u16 inci = count; inci > key.Inci(); --inci) {
            const u16 before = static_cast<u16>(inci - 1);
            if (const auto at = table.find(key.WithInci(before)); at != table.end()) {
                Renumber(tag, table, at, inci);
            }
        }
        Notify(tag, key, nullptr);
    } else {
        if (IsNumberedItem(tag)) {
            if (key.Inci() != 0 && key.Inci() != kAppend) {
                return std::nullopt;
            }
            key = key.WithInci(0);
        } else if (key.order == kAppend) {
            const u64 next = table.empty() ? 1 : table.rbegin()->first.order + 1;
            if (next >= kAppend) {
                return std::nullopt;
            }
            key = {next};
        }
        if (table.contains(key)) {
            return std::nullopt;
        }
        Notify(tag, key, nullptr);
    }
    Put(tag, table, key, std::move(bytes));
    return key;
}

bool RecordStore::Delete(u32 tag, RecordKey key, After after) {
    const auto named = m_tables.find(tag);
    if (named == m_tables.end()) {
        return false;
    }
    Table& table = named->second;
    const bool closesUp = after == After::kCloseUp && HasRecordNumbers(tag);
    const bool isNext = closesUp && IsOpen(tag, key) && m_opening->at == key;
    if (!isNext) {
        CloseUp();
    }
    const auto at = table.find(StoredKey(tag, key));
    if (at == table.end()) {
        return false;
    }
    if (closesUp && !isNext) {
        m_opening = {tag, key};
        if (m_listener != nullptr) {
            m_listener->BeforeRecordsChange(tag, at, table.upper_bound(key.WithInci(kAppend)));
        }
    } else {
        Notify(tag, key, &at->second);
    }
    table.erase(at);
    if (closesUp) {
        ++m_opening->lost;
    }
    UnmarkIfLast(tag, key);
    return true;
}

void RecordStore::CloseUp() const {
    if (!m_opening) {
        return;
    }
    const auto [tag, key, lost] = *m_opening;
    m_opening.reset();
    Table& table = m_tables[tag];
    auto later = table.lower_bound(key);
    while (later != table.end() && later->first.Item() == key.Item()) {
        auto node = table.extract(later++);
        node.key() = node.key().WithInci(static_cast<u16>(node.key().Inci() - lost));
        table.insert(later, std::move(node));
    }
}

RecordKey RecordStore::StoredKey(u32 tag, RecordKey key) const noexcept {
    if (!IsOpen(tag, key) || key < m_opening->at) {
        return key;
    }
    const u32 inci = u32{key.Inci()} + m_opening->lost;
    return key.WithInci(static_cast<u16>(std::min(inci, u32{kAppend})));
}

const RecordStore::Table::value_type* RecordStore::Next(u32 tag, RecordKey key) const {
    const Table& table = OfTag(tag);
    const auto found = table.upper_bound(key);
    return found == table.end() ? nullptr : &*found;
}

const RecordStore::Table::value_type* RecordStore::Previous(u32 tag, RecordKey key) const {
    const Table& table = OfTag(tag);
    const auto found = table.lower_bound(key);
    return found == table.begin() ? nullptr : &*std::prev(found);
}

const RecordStore::Table& RecordStore::OfTag(u32 tag) const {
    static const Table kNone;
    CloseUp();
    const auto found = m_tables.find(tag);
    return found == m_tables.end() ? kNone : found->second;
}

RecordStore::Table& RecordStore::TableOf(u32 tag, RecordKey key) {
    if (IsOpen(tag, key)) {
        CloseUp();
    }
    return m_tables[tag];
}

bool RecordStore::HasAny(u32 tag, u32 entry) const {
    const auto named = m_tables.find(tag);
    if (named == m_tables.end()) {
        return false;
    }
    const auto first = named->second.lower_bound(RecordKey::OfEntry(entry));
    return first != named->second.end() && first->first.Entry() == entry;
}

u16 RecordStore::CountOfEntry(u32 tag, u32 entry) const {
    return CountOfItem(OfTag(tag), RecordKey::OfEntry(entry));
}

void RecordStore::DeleteDetails(u32 entry) {
    std::vector<std::pair<u32, RecordKey>> doomed;
    ForEachDetail(entry,
                  [&](u32 tag, RecordKey key, const Bytes&) { doomed.emplace_back(tag, key); });
    for (const auto& [tag, key] : doomed) {
        Table& table = TableOf(tag, key);
        const auto at = table.find(key);
        Notify(tag, key, &at->second);
        table.erase(at);
        UnmarkIfLast(tag, key);
    }
}

std::optional<Bytes> RecordStore::Exchange(u32 tag, RecordKey key, std::optional<Bytes> bytes) {
    Table& table = TableOf(tag, key);
    const auto at = table.find(key);
    std::optional<Bytes> before;
    if (at != table.end()) {
        before = std::move(at->second);
        if (!bytes) {
            table.erase(at);
            UnmarkIfLast(tag, key);
        }
    }
    if (bytes) {
        Put(tag, table, key, std::move(*bytes));
    }
    return before;
}

// Gaps in an item's record numbers are counted too.
u16 RecordStore::CountOfItem(const Table& table, RecordKey key) const {
    const auto after = table.upper_bound(key.WithInci(kAppend));
    if (after == table.begin()) {
        return 0;
    }
    const RecordKey last = std::prev(after)->first;
    return last.Item() == key.Item() ? static_cast<u16>(last.Inci() + 1) : u16{0};
}

void RecordStore::Notify(u32 tag, RecordKey key, const Bytes* before) {
    if (m_listener != nullptr) {
        m_listener->BeforeRecordChange(tag, key, before);
    }
}

void RecordStore::Put(u32 tag, Table& table, RecordKey key, Bytes bytes) {
    table.insert_or_assign(key, std::move(bytes));
    if (FamilyOf(tag) == RecordFamily::kEntryDetail) {
        m_entryTags[key.Entry()] |= MaskOf(tag);
    }
}

void RecordStore::Renumber(u32 tag, Table& table, Table::iterator position, u16 inci) {
    Notify(tag, position->first, &position->second);
    auto node = table.extract(position);
    node.key() = node.key().WithInci(inci);
    Notify(tag, node.key(), nullptr);
    table.insert(std::move(node));
}

RecordStore::TagMask RecordStore::MaskOf(u32 tag) {
    const auto found = std::ranges::find(m_detailTags, tag);
    const auto index = static_cast<unsigned>(found - m_detailTags.begin());
    if (found == m_detailTags.end()) {
        m_detailTags.push_back(tag);
    }
    return TagMask{1} << std::min(index, kSharedBit);
}

void RecordStore::UnmarkIfLast(u32 tag, RecordKey key) {
    const u32 entry = key.Entry();
    if (FamilyOf(tag) != RecordFamily::kEntryDetail || HasAny(tag, entry)) {
        return;
    }
    const TagMask mask = MaskOf(tag);
    if (mask == TagMask{1} << kSharedBit) {
        for (std::size_t i = kSharedBit; i < m_detailTags.size(); ++i) {
            if (HasAny(m_detailTags[i], entry)) {
                return;
            }
        }
    }
    const auto marked = m_entryTags.find(entry);
    marked->second &= ~mask;
    if (marked->second == 0) {
        m_entryTags.erase(marked);
    }
}

}  // namespace standin
