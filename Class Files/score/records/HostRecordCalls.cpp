#include "Class Files/score/records/HostRecordCalls.h"

#include <algorithm>
#include <cstring>

#include "Class Files/score/records/AssembledPreference.h"
#include "shell/host/callbacks.h"
#include "shell/host/host_records_more.h"

namespace {

constexpr u32 kFretInstrument = HostTag(
    "O\x15"
    "fI");

// From this data version on composite preferences are written to option records.
constexpr u32 kFirstWithOptionRecords = 0x8000000;

// A host may fill the record and report failure all the same.
i16 LoadFretInstrument(const void* key, void* data, u32* size, u32 version) {
    auto* bytes = static_cast<u8*>(data);
    const u32 used = std::min<u32>(*size, sizeof(EDTFretInstrument25_3));
    std::memset(bytes, 0, used);
    const i16 loaded = Host::LoadEData(kFretInstrument, key, data, size, version);
    return loaded != 0 || std::any_of(bytes, bytes + used, [](u8 byte) { return byte != 0; });
}

}  // namespace

i16 LoadHostRecord(u32 tag, const void* key, void* data, u32* size, u32 version) {
    if (tag == kFretInstrument && data != nullptr) {
        return LoadFretInstrument(key, data, size, version);
    }
    if (const PreferenceTable* table = FindPreferenceTable(tag)) {
        return LoadAssembledPreference(*table, data, size, version);
    }
    return Host::LoadEData(tag, key, data, size, version);
}

i16 SaveHostRecord(u32 tag, void* key, const void* data, u32 size, u32 version) {
    if (version >= kFirstWithOptionRecords) {
        if (const PreferenceTable* table = FindPreferenceTable(tag)) {
            return SaveAssembledPreference(*table, data, size, version);
        }
    }
    return Host::SaveEData(tag, key, data, size, version);
}
