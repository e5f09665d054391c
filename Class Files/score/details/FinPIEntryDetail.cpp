#include "Class Files/score/details/FinPIEntryDetail.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <typeinfo>
#include <utility>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "shell/host/callbacks.h"
#include "shell/host/host_details.h"

namespace {

constexpr i16 kStemNotAsked = 99;

}  // namespace

FinPIEntryDetail::FinPIEntryDetail(const FinPIEntryPtr& entry, u32 tag, u32 secondTag,
                                   u32 entryFlags)
    : m_entry{entry.Shared()},
      m_tag{tag},
      m_secondTag{secondTag},
      m_entryFlags{entryFlags},
      m_stemDirection{kStemNotAsked} {}

i16 FinPIEntryDetail::Load() {
    if (m_loaded == 0 && m_entry) {
        m_loaded = LoadFrom(Tag());
    }
    return m_loaded;
}

i16 FinPIEntryDetail::LoadFrom(u32 tag) {
    const DocumentScope scope{m_entry.Document()};
    const EntryDetailKey key{m_entry.Number(), m_recordNumber};
    u32 size = GetDataSize();
    return scope ? Host::LoadEData(tag, static_cast<const void*>(&key), MutableData(), &size,
                                   m_version)
                 : i16{0};
}

i16 FinPIEntryDetail::Commit() {
    return m_loaded != 0 ? Save() : Create();
}

i16 FinPIEntryDetail::Delete() {
    if (m_entry.DeleteEntryDetail(Tag(), m_recordNumber, m_version) == 0) {
        PostRecordError<FinPIDeleteEDataFailed>("FinPIEntryDetail::Delete", Tag());
        return 0;
    }
    m_loaded = 0;
    m_flagsOfDeleted = m_entryFlags;
    m_numbersByContent.reset();
    return 1;
}

void FinPIEntryDetail::SelectRecord(u16 recordNumber) {
    m_recordNumber = recordNumber;
    m_loaded = 0;
    if (GetDataSize() != 0) {
        std::memset(MutableData(), 0, GetDataSize());
    }
}

i16 FinPIEntryDetail::IsSame(const FinPIEntryDetail& other) const {
    if (!CheckSameKind(other, "FinPIEntryDetail::IsSame")) {
        return 0;
    }
    return std::ranges::equal(Identity(), other.Identity());
}

i16 FinPIEntryDetail::CopyAttributes(const FinPIEntryDetail& source) {
    if (!CheckSameKind(source, "FinPIEntryDetail::CopyAttributes")) {
        return 0;
    }
    if (GetDataSize() != 0) {
        std::memcpy(MutableData(), source.GetData(), GetDataSize());
    }
    return 1;
}

std::span<const u8> FinPIEntryDetail::Identity() const {
    return {static_cast<const u8*>(GetData()), GetDataSize()};
}

i16 FinPIEntryDetail::HasDetails() const {
    return m_entry.HasFlag(m_entryFlags);
}

i16 FinPIEntryDetail::Save() {
    if (m_loaded == 0) {
        PostError(FinPIAppError{"FinPIEntryDetail::Save", "Attempted to Save but never Loaded."});
        return 0;
    }
    if (m_entry.SaveEntryDetail(Tag(), m_recordNumber, GetData(), GetDataSize(), m_version) == 0) {
        PostRecordError<FinPISaveEDataFailed>("FinPIEntryDetail::Save", Tag());
        return 0;
    }
    return 1;
}

i16 FinPIEntryDetail::Create() {
    if (m_loaded != 0) {
        PostError(
            FinPIAppError{"FinPIEntryDetail::Create", "Attempted to Create but already Loaded."});
        return 0;
    }
    if (m_entry.CreateEntryDetail(Tag(), GetData(), GetDataSize(), m_recordNumber, m_version) ==
        0) {
        PostRecordError<FinPICreateEDataFailed>("FinPIEntryDetail::Create", Tag());
        return 0;
    }
    m_recordNumber = m_entry.CreatedRecordNumber();
    m_loaded = 1;
    m_entry->flags |= m_entryFlags;
    return 1;
}

bool FinPIEntryDetail::CheckSameKind(const FinPIEntryDetail& other, const char* operation) const {
    if (typeid(*this) != typeid(other)) {
        PostError(FinPIAppError{operation, "dynamic_cast failed."});
        return false;
    }
    return true;
}

i16 FinPIEntryDetail::StemDirection() const {
    if (m_stemDirection == kStemNotAsked) {
        m_stemDirection = m_entry.StemDirection();
    }
    return m_stemDirection;
}

u32 FinPIEntryDetail::Tag() const {
    return m_secondTag == 0 || StemDirection() > 0 ? m_tag : m_secondTag;
}

u32 FinPIEntryDetail::RecordKey() const {
    u32 key = 2166136261U;
    for (const u8 byte : Identity()) {
        key = (key ^ byte) * 16777619U;
    }
    return key;
}

u32 FinPIEntryDetail::CountOf(u32 tag) {
    const DocumentScope scope{m_entry.Document()};
    EntryDetailKey key{m_entry.Number(), kNewRecord};
    u32 size = GetDataSize();
    const bool found = scope && Host::PreviousEData(tag, static_cast<void*>(&key), MutableData(),
                                                    &size, m_version) != 0;
    return found && key.entryNumber == m_entry.Number() ? key.recordNumber + 1U : 0;
}

u16 FinPIEntryDetail::FirstNumberFrom(u16 recordNumber) {
    const DocumentScope scope{m_entry.Document()};
    EntryDetailKey key{m_entry.Number(), static_cast<u16>(recordNumber - 1)};
    if (recordNumber == 0) {
        key = {m_entry.Number() - 1, kNewRecord};
    }
    u32 size = GetDataSize();
    const bool found = scope && Host::NextEData(Tag(), static_cast<void*>(&key), MutableData(),
                                                &size, m_version) != 0;
    return found && key.entryNumber == m_entry.Number() ? key.recordNumber : kNewRecord;
}

bool FinPIEntryDetail::IsStored(u32 tag) {
    SelectRecord(0);
    const bool isStored = LoadFrom(tag) != 0 || CountOf(tag) != 0;
    SelectRecord(0);
    return isStored;
}

bool FinPIEntryDetail::HasRecord() {
    return IsStored(m_tag) || (m_secondTag != 0 && IsStored(m_secondTag));
}

bool FinPIEntryDetail::Walk::Load(u16 recordNumber) {
    m_detail.SelectRecord(recordNumber);
    if (m_detail.Load() == 0) {
        return false;
    }
    m_next = static_cast<u16>(recordNumber + 1);
    return true;
}

bool FinPIEntryDetail::Walk::Fail() {
    PostRecordError<FinPILoadEDataFailed>(m_operation, m_detail.Tag());
    m_failed = true;
    return false;
}

bool FinPIEntryDetail::Walk::Next() {
    if (m_seen++ == kMaxRecords) {
        return Fail();
    }
    if (Load(m_next)) {
        return true;
    }
    const bool hasNoRecords = m_detail.GetDataSize() == 0;
    if (hasNoRecords || m_detail.CountOf(m_detail.Tag()) <= m_next) {
        return false;
    }
    const u16 later = m_detail.FirstNumberFrom(m_next);
    const bool isBehindGap = later > m_next && later != kNewRecord;
    return (isBehindGap && Load(later)) || Fail();
}

void FinPIEntryDetail::FollowStoredVariant() {
    if (m_secondTag != 0 && !IsStored(Tag())) {
        std::swap(m_tag, m_secondTag);
    }
}

bool FinPIEntryDetail::ListContents() {
    std::multimap<u32, u16> numbers;
    if (!HasNothing()) {
        Walk records{*this};
        while (records.Next()) {
            numbers.emplace(RecordKey(), m_recordNumber);
        }
        if (records.HasFailed()) {
            return false;
        }
    }
    m_numbersByContent = std::move(numbers);
    return true;
}

FinPIEntryDetail::Search FinPIEntryDetail::SelectEqualRecord(const FinPIEntryDetail& source,
                                                             u32 earlierEqual) {
    if (!m_numbersByContent && !ListContents()) {
        return Search::kInDoubt;
    }
    u32 equal = 0;
    const auto [first, last] = m_numbersByContent->equal_range(source.RecordKey());
    for (auto record = first; record != last; ++record) {
        SelectRecord(record->second);
        if (Load() == 0) {
            PostRecordError<FinPILoadEDataFailed>("FinPIEntryDetail::Load", Tag());
            return Search::kInDoubt;
        }
        if (IsSkipped() == 0 && IsSame(source) != 0 && ++equal > earlierEqual) {
            return Search::kFound;
        }
    }
    SelectRecord(kNewRecord);
    return Search::kNotFound;
}

i16 FinPIEntryDetail::CopyRecord(FinPIEntryDetail& source, u32 earlierEqual, const char* operation,
                                 i16& anyCopied) {
    const Search search = SelectEqualRecord(source, earlierEqual);
    if (search == Search::kInDoubt) {
        return 0;
    }
    const bool exists = search == Search::kFound;
    if (IsApplicable(source) == 0 || CopyAttributes(source) == 0) {
        return 1;
    }
    if (IsEmpty() != 0) {
        return exists ? Delete() : i16{1};
    }
    if (!exists && source.Entry().Document() != m_entry.Document() &&
        CopyDependentStructs(source) == 0) {
        PostError(FinPIAppError{operation, "CopyDependentStructs() failed."});
        return 0;
    }
    if (Commit() == 0) {
        return 0;
    }
    OnCopied(source);
    anyCopied = 1;
    return 1;
}

i16 FinPIEntryDetail::CopyDetail(FinPIEntryDetail& target, FinPIEntryDetail& source, bool sameKind,
                                 i16& anyCopied) {
    if (source.HasNothing() || (sameKind && source.m_entry.IsNote() != target.m_entry.IsNote())) {
        return 1;
    }
    source.FollowStoredVariant();
    std::map<u32, u32> timesSeen;
    Walk records{source};
    while (records.Next()) {
        if (source.IsSkipped() == 0) {
            const u32 earlierEqual = timesSeen[source.RecordKey()]++;
            if (target.CopyRecord(source, earlierEqual, "FinPIEntryDetail::CopyDetail",
                                  anyCopied) == 0) {
                return 0;
            }
        }
    }
    return records.HasFailed() ? 0 : 1;
}

FinPIEntryDetail::Removal FinPIEntryDetail::DeleteAll() {
    Removal removal;
    if (HasNothing()) {
        return removal;
    }
    FollowStoredVariant();
    bool anySkipped = false;
    Walk records{*this};
    while (records.Next()) {
        if (IsSkipped() != 0) {
            anySkipped = true;
            continue;
        }
        if (Delete() == 0) {
            removal.succeeded = false;
            return removal;
        }
        records.Deleted();
        removal.anyDeleted = true;
    }
    removal.succeeded = !records.HasFailed();
    removal.leftNone = removal.succeeded && !anySkipped && m_secondTag == 0;
    return removal;
}
