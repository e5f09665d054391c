// The record calls.
#include <algorithm>
#include <cstring>

#include "host/callbacks/serve.h"
#include "host/score/records/tags.h"
#include "shell/host/host_functions.h"

using namespace standin;

namespace {

constexpr u32 kLargestRecord = 0x10000;

// Hosts before version 27 kept the miscellaneous preferences under another tag.
u32 StoredTag(u32 tag) noexcept {
    return tag == Tag::kMiscPrefsBefore27 ? Tag::kMiscPrefs : tag;
}

// The size of an entry detail: twelve bytes for each unit its tag counts.
u32 EntryDetailSize(u32 tag) noexcept {
    const u32 units = tag >> 16U & 0xFFU;
    return 12 * (units > 0 && units < 0x20 ? units : 1);
}

bool IsSizeAllowed(u32 tag, u32 size) noexcept {
    if (FamilyOf(tag) == RecordFamily::kEntryDetail) {
        return size == EntryDetailSize(tag);
    }
    return size > 0 && size <= kLargestRecord;
}

// The subject of a record call.
struct RecordCall {
    Document& document;
    RecordStore& records;
    u32 tag;
    RecordFamily family;
    RecordKey key;

    // An entry detail needs its entry.
    bool HasOwner() const {
        return family != RecordFamily::kEntryDetail || document.FindEntry(key.Entry()) != nullptr;
    }

    void AfterChange() const {
        if (family == RecordFamily::kEntryDetail) {
            document.RefreshDetailFlags(key.Entry());
        }
    }

    bool HasRecordNumbers() const noexcept {
        return family == RecordFamily::kOther || family == RecordFamily::kDetail ||
               family == RecordFamily::kEntryDetail;
    }
};

template <typename Body>
i16 ServeRecord(HostCall call, u32 tag, const void* key, u32 version, Body body) noexcept {
    return Serve(
        call, version, i16{0},
        [&](Application& app) -> i16 {
            Document* document = app.CurrentDocument();
            const RecordFamily family = FamilyOf(StoredTag(tag));
            if (document == nullptr || key == nullptr || family == RecordFamily::kNone) {
                return RefuseByRule(app, i16{0});
            }
            return body(app, RecordCall{*document, document->Records(), StoredTag(tag), family,
                                        ReadKey(family, key)});
        },
        true);
}

i16 Hand(const Bytes& bytes, void* data, u32* size) noexcept {
    std::memcpy(data, bytes.data(), std::min<std::size_t>(bytes.size(), *size));
    *size = static_cast<u32>(bytes.size());
    return 1;
}

// The staff's record is in effect at every position in the score.
const Bytes* FindStaffAt(const RecordCall& call, const void* key) {
    u16 measure = 0;
    std::memcpy(&measure, static_cast<const char*>(key) + sizeof(u16), sizeof(measure));
    return call.document.HasMeasure(measure) ? call.records.Find(Tag::kStaff, call.key) : nullptr;
}

i16 Append(const RecordCall& call, void* key, const void* data, u32 size) {
    const auto used =
        call.records.Create(call.tag, call.key, Bytes(static_cast<const char*>(data), size));
    if (!used) {
        return 0;
    }
    WriteKey(call.family, *used, key);
    call.AfterChange();
    return 1;
}

template <typename Find>
i16 Step(HostCall hostCall, u32 tag, void* key, void* data, u32* size, u32 version, Find find) {
    return ServeRecord(
        hostCall, tag, key, version, [&](Application& app, const RecordCall& call) -> i16 {
            if (data == nullptr || size == nullptr || call.family == RecordFamily::kStaffAt) {
                return RefuseByRule(app, i16{0});
            }
            const auto* found = find(call);
            if (found == nullptr) {
                return 0;
            }
            WriteKey(call.family, found->first, key);
            return Hand(found->second, data, size);
        });
}

}  // namespace

i16 FX_LoadEData(u32 tag, const void* key, void* data, u32* size, u32 version) {
    return ServeRecord(HostCall::kLoadEData, tag, key, version,
                       [&](Application& app, const RecordCall& call) -> i16 {
                           if (data == nullptr || size == nullptr) {
                               return RefuseByRule(app, i16{0});
                           }
                           const Bytes* found = call.family == RecordFamily::kStaffAt
                                                    ? FindStaffAt(call, key)
                                                    : call.records.Find(call.tag, call.key);
                           const bool loaded = found != nullptr && Hand(*found, data, size) != 0;
                           return loaded && !app.faults.failsWhenLoaded ? i16{1} : i16{0};
                       });
}

i16 FX_SaveEData(u32 tag, void* key, const void* data, u32 size, u32 version) {
    return ServeRecord(HostCall::kSaveEData, tag, key, version,
                       [&](Application& app, const RecordCall& call) -> i16 {
                           if (data == nullptr || !IsSizeAllowed(call.tag, size) ||
                               !call.HasOwner() || call.family == RecordFamily::kStaffAt) {
                               return RefuseByRule(app, i16{0});
                           }
                           if (call.HasRecordNumbers() && call.key.Inci() == kAppend) {
                               return Append(call, key, data, size);
                           }
                           const bool saved = call.records.Save(
                               call.tag, call.key, Bytes(static_cast<const char*>(data), size));
                           return saved ? i16{1} : i16{0};
                       });
}

i16 FX_CreateEData(u32 tag, void* key, const void* data, u32 size, u32 version) {
    return ServeRecord(HostCall::kCreateEData, tag, key, version,
                       [&](Application& app, const RecordCall& call) -> i16 {
                           if (data == nullptr || !IsSizeAllowed(call.tag, size) ||
                               !call.HasOwner() || call.family == RecordFamily::kStaffAt ||
                               call.family == RecordFamily::kPreference) {
                               return RefuseByRule(app, i16{0});
                           }
                           return Append(call, key, data, size);
                       });
}

i16 FX_DeleteEData(u32 tag, const void* key, u32 version) {
    return ServeRecord(
        HostCall::kDeleteEData, tag, key, version,
        [&](Application& app, const RecordCall& call) -> i16 {
            if (call.family == RecordFamily::kStaffAt || call.family == RecordFamily::kPreference) {
                return RefuseByRule(app, i16{0});
            }
            const bool leavesGap = app.manners.gaps && call.family == RecordFamily::kEntryDetail;
            if (!call.records.Delete(
                    call.tag, call.key,
                    leavesGap ? RecordStore::After::kGap : RecordStore::After::kCloseUp)) {
                return 0;
            }
            call.AfterChange();
            return 1;
        });
}

i16 FX_NextEData(u32 tag, void* key, void* data, u32* size, u32 version) {
    return Step(HostCall::kNextEData, tag, key, data, size, version,
                [](const RecordCall& call) { return call.records.Next(call.tag, call.key); });
}

i16 FX_PreviousEData(u32 tag, void* key, void* data, u32* size, u32 version) {
    return Step(HostCall::kPreviousEData, tag, key, data, size, version,
                [](const RecordCall& call) { return call.records.Previous(call.tag, call.key); });
}
