#include "probe/Details.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "probe/LastWritten.h"
#include "shell/host/callbacks.h"
#include "shell/host/detail_flags.h"
#include "shell/host/entry_detail_tags.h"
#include "shell/host/host_details.h"

namespace probe {

namespace {

struct DetailRow {
    const char* name;
    u32 tag;
    u32 size;
    u32 flag;
    bool isOfNote;
};

constexpr DetailRow kDetailRows[] = {
#define ENTRY_DETAIL(name, family, structure, tag, downTag, flag, ...) \
    {#structure, tag, sizeof(structure), DetailFlag::flag, false},
#define NOTE_DETAIL(name, structure, tag, flag, ...) \
    {#structure, tag, sizeof(structure), DetailFlag::flag, true},
#define SHAPE_DETAIL(name, structure, tag, flag, ...) \
    {#structure, tag, sizeof(structure), DetailFlag::flag, false},
#include "shell/host/entry_details.inc"
// The variants for stems down.
#define ENTRY_DETAIL(name, family, structure, tag, downTag, flag, ...) \
    {#structure, downTag, sizeof(structure), DetailFlag::flag, false},
#include "shell/host/entry_details.inc"
};

constexpr int kMaxDetails = 64;  // of a kind at one entry that are looked at

struct DetailKey {
    u16 entryLow;
    u16 entryHigh;
    u16 number;
};

struct Stored {
    u16 number;
    u32 size;
    std::vector<u8> bytes;
};

// The details of one kind at one entry, by number.
std::vector<Stored> LoadAll(const DetailRow& row, u32 entry) {
    std::vector<Stored> found;
    const auto low = static_cast<u16>(entry & 0xFFFFU);
    const auto high = static_cast<u16>(entry >> 16U);
    DetailKey key{low, high, 0};
    alignas(16) Room data{};
    u32 size = kRoomBytes;
    bool isThere = Host::LoadEData(row.tag, &key, data.data(), &size, kInterfaceVersion) != 0;
    for (int i = 0; i < kMaxDetails; ++i) {
        if (isThere) {
            found.push_back({key.number, size, {data.begin(), data.begin() + row.size}});
        }
        size = kRoomBytes;
        isThere = Host::NextEData(row.tag, &key, data.data(), &size, kInterfaceVersion) != 0;
        if (!isThere || key.entryLow != low || key.entryHigh != high) {
            break;
        }
    }
    return found;
}

bool HasNote(const EXENTRY& entry, u16 noteId) {
    const i16 count = std::clamp<i16>(entry.noteCount, 0, kMaxNotesPerEntry);
    return std::any_of(entry.notes, entry.notes + count,
                       [noteId](const EXNOTE& note) { return note.noteID == noteId; });
}

// bytes: at least as many as the structure has.
template <typename Structure>
Structure As(const std::vector<u8>& bytes) {
    Structure structure;
    std::memcpy(&structure, bytes.data(), sizeof structure);
    return structure;
}

}  // namespace

void Details::LookAtFields(u32 tag, const std::vector<u8>& bytes,
                           std::vector<EDTTuplet2005>& tuplets) {
    switch (tag) {
        case EntryDetailTag::kTuplet:
            tuplets.push_back(As<EDTTuplet2005>(bytes));
            m_layouts.LookAt(tuplets.back());
            break;
        case EntryDetailTag::kVerseAssign:
        case EntryDetailTag::kChorusAssign:
        case EntryDetailTag::kSectionAssign:
            m_layouts.LookAt(As<EDTLyric2011>(bytes));
            break;
        case EntryDetailTag::kSmartShapeAssign:
        case EntryDetailTag::kSmartShapeLyricAssign:
            m_layouts.LookAt(As<EDTSmartShapeEntMark>(bytes));
            break;
        default:
            break;
    }
}

std::vector<EDTTuplet2005> Details::Read(const EXENTRY& entry) {
    std::vector<EDTTuplet2005> tuplets;
    u32 flags = 0;
    for (const DetailRow& row : kDetailRows) {
        if (row.tag == 0) {
            continue;
        }
        const std::vector<Stored> all = LoadAll(row, entry.entryNumber);
        for (std::size_t i = 0; i < all.size(); ++i) {
            flags |= row.flag;
            const bool isOfItsNote = !row.isOfNote || HasNote(entry, As<u16>(all[i].bytes));
            Kind& kind = m_kinds[row.name];
            kind.sizes.Count(all[i].size == row.size && isOfItsNote);
            if (all[i].size != row.size) {
                kind.lastWrongSize = all[i].size;
            }
            LookAtFields(row.tag, all[i].bytes, tuplets);
        }
        if (!all.empty()) {
            m_numbers.Count(all.front().number == 0 && all.back().number + 1U == all.size());
        }
    }
    m_flags.Count((entry.flags & DetailFlag::kStored) == flags);
    return tuplets;
}

void Details::Report(Findings& findings) const {
    findings.Begin(Text::kFreedoms);
    findings.Add("FX_DeleteEData numbers", Say(Text::kUsualGaps), m_numbers);
    findings.Begin(Text::kDetails);
    findings.Add("EXENTRY flags", Say(Text::kFlags), m_flags);
    for (const DetailRow& row : kDetailRows) {
        if (row.tag == 0 ||
            std::any_of(std::begin(kDetailRows), &row, [&row](const DetailRow& other) {
                return std::strcmp(other.name, row.name) == 0;
            })) {
            continue;
        }
        const std::string assumed =
            SayNumbers(row.isOfNote ? Text::kNoteIdFirst : Text::kBytes, row.size);
        const auto kind = m_kinds.find(row.name);
        if (kind == m_kinds.end()) {
            findings.AddNotSeen(row.name, assumed);
        } else if (kind->second.lastWrongSize != 0) {
            findings.Add(row.name, assumed, SayNumbers(Text::kBytes, kind->second.lastWrongSize),
                         false);
        } else {
            findings.Add(row.name, assumed, kind->second.sizes);
        }
    }
    m_layouts.Report(findings);
}

}  // namespace probe
