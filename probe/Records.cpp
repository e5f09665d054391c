// Stored sizes and keys of the host's records, by the list of record classes.
#include <algorithm>
#include <array>
#include <string>

#include "Class Files/score/records/EnigmaRecords.h"
#include "probe/LastWritten.h"
#include "probe/Measure.h"
#include "shell/host/callbacks.h"

namespace probe {

namespace {

constexpr std::size_t kKeyWords = 8;
using Key = std::array<u16, kKeyWords>;
constexpr u16 kUntouched = 0x5A5A;

struct RecordRow {
    const char* structure;
    u32 size;
    std::size_t keyBytes;
    u32 tag = 0;  // 0: each record is given its own
    u32 version = kInterfaceVersion;
};

constexpr RecordRow Row(const char* structure, u32 size, std::size_t keyBytes, u32 tag,
                        u32 version = kInterfaceVersion, bool /*clearOnReset*/ = true) {
    return {structure, size, keyBytes, tag, version};
}

// The families in which a tag and a size belong to the class; the others have neither.
#define PROBE_FinPIOtherTemplate(structure, ...) Row(#structure, sizeof(structure), 4, __VA_ARGS__),
#define PROBE_FinPIDetailTemplate(structure, ...) \
    Row(#structure, sizeof(structure), 6, __VA_ARGS__),
#define PROBE_FinPIMeasOtherTemplate(structure, tag, ...) \
    Row(#structure, sizeof(structure), 4, tag),
#define PROBE_FinPIPrefTemplate(structure, ...) Row(#structure, sizeof(structure), 2, __VA_ARGS__),
#define PROBE_FinPIDetFloatExTagTemplate(...)
#define PROBE_FinPIPseudoPrefTemplate(...)
#define PROBE_FinPIEnigmaVarLenTemplate(...)
#define PROBE_FinPIEnigmaVarArrayTemplate(...)

constexpr RecordRow kRows[] = {
#define ENIGMA_RECORD(family, name, ...) PROBE_##family(__VA_ARGS__)
#include "Class Files/score/records/EnigmaRecords.inc"
#undef ENIGMA_RECORD
};

// The structure and its tag, which distinguishes records of one structure; characters that are
// not printable as \8.
std::string NameOf(const RecordRow& row) {
    std::string name = std::string{row.structure} + " '";
    for (int shift = 24; shift >= 0; shift -= 8) {
        const auto character = static_cast<u8>(row.tag >> static_cast<u32>(shift));
        if (character < 0x20) {
            name.append("\\").append(std::to_string(character));
        } else {
            name += static_cast<char>(character);
        }
    }
    return name + "'";
}

struct Found {
    bool isThere = false;
    u32 size = 0;              // as the host says it
    std::size_t written = 0;   // the last byte of the data that it wrote
    std::size_t keyBytes = 0;  // of the key that a walk wrote back; 0 = not seen
};

// The first record of the tag: at item 0, or the first one after it.
Found FindFirst(const RecordRow& row) {
    Found found;
    found.written = LastWritten([&](u8* room) {
        u32 size = kRoomBytes / 2;
        Key key{};
        found.isThere = Host::LoadEData(row.tag, key.data(), room, &size, row.version) != 0;
        found.size = size;
    });
    if (found.isThere) {
        return found;
    }
    found.written = LastWritten([&](u8* room) {
        u32 size = kRoomBytes / 2;
        Key key;
        key.fill(kUntouched);
        std::fill_n(key.begin(), row.keyBytes / sizeof(u16), u16{0});
        found.isThere = Host::NextEData(row.tag, key.data(), room, &size, row.version) != 0;
        found.size = size;
        const auto changed =
            std::find_if(key.rbegin(), key.rend(), [](u16 word) { return word != kUntouched; });
        found.keyBytes = static_cast<std::size_t>(key.rend() - changed) * sizeof(u16);
    });
    return found;
}

// How the records of one tag follow each other: measures, of which a score has some.
void MeasureOrder(Findings& findings) {
    constexpr u32 kTag = HostTag("SOMS");
    Tally forth;
    Tally back;
    Key key{};
    u16 last = 0;
    alignas(16) Room data;
    for (int i = 0; i < 100; ++i) {
        u32 size = kRoomBytes;
        if (Host::NextEData(kTag, key.data(), data.data(), &size, kInterfaceVersion) == 0) {
            break;
        }
        forth.Count(key[0] > last);
        if (last != 0) {
            Key before = key;
            size = kRoomBytes;
            const bool found = Host::PreviousEData(kTag, before.data(), data.data(), &size,
                                                   kInterfaceVersion) != 0;
            back.Count(found && before[0] == last);
        }
        last = key[0];
    }
    findings.Add("FX_NextEData", Say(Text::kKeyOrder), forth);
    findings.Add("FX_PreviousEData", Say(Text::kKeyOrderBack), back);
}

// A record is cut to the capacity that the host is given.
void MeasureCapacity(Findings& findings) {
    constexpr u32 kFewBytes = 8;
    Tally tally;
    for (const RecordRow& row : kRows) {
        u32 stored = 0;
        const std::size_t written = LastWritten([&](u8* room) {
            u32 size = kFewBytes;
            Key key{};
            const bool found =
                row.tag != 0 &&
                (Host::LoadEData(row.tag, key.data(), room, &size, row.version) != 0 ||
                 Host::NextEData(row.tag, key.data(), room, &size, row.version) != 0);
            stored = found ? size : 0;
        });
        if (stored > kFewBytes) {
            tally.Count(written <= kFewBytes);
        }
    }
    findings.Add("FX_LoadEData", Say(Text::kCapacity), tally);
}

}  // namespace

void MeasureRecords(Findings& findings) {
    findings.Begin(Text::kRecords);
    MeasureOrder(findings);
    MeasureCapacity(findings);
    for (const RecordRow& row : kRows) {
        if (row.tag == 0) {
            continue;
        }
        std::string assumed = SayNumbers(Text::kSizeAndKey, row.size, row.keyBytes);
        const Found found = FindFirst(row);
        if (!found.isThere) {
            findings.AddNotSeen(NameOf(row), std::move(assumed));
            continue;
        }
        const std::size_t keyBytes = found.keyBytes == 0 ? row.keyBytes : found.keyBytes;
        findings.Add(
            NameOf(row), std::move(assumed), SayNumbers(Text::kSizeAndKey, found.size, keyBytes),
            found.size == row.size && found.written <= found.size && keyBytes == row.keyBytes);
    }
}

}  // namespace probe
