#include "host/score/records/record_key.h"

#include <cstring>

#include "host/score/records/tags.h"

namespace standin {
namespace {

constexpr char CharacterOf(u32 tag, int index) noexcept {
    return static_cast<char>(tag >> (24U - 8U * static_cast<unsigned>(index)) & 0xFFU);
}

template <typename Word>
Word ReadWord(const void* words, std::size_t offset) noexcept {
    Word word;
    std::memcpy(&word, static_cast<const char*>(words) + offset, sizeof(Word));
    return word;
}

template <typename Word>
void WriteWord(void* words, std::size_t offset, Word word) noexcept {
    std::memcpy(static_cast<char*>(words) + offset, &word, sizeof(Word));
}

}  // namespace

RecordFamily FamilyOf(u32 tag) noexcept {
    const char first = CharacterOf(tag, 0);
    const char second = CharacterOf(tag, 1);
    if (tag == Tag::kStaffAt) {
        return RecordFamily::kStaffAt;
    }
    if ((first == 'p' && second == 'f') || (first == 'g' && second == 'b')) {
        return RecordFamily::kPreference;
    }
    if (first == 't' && second == 'x') {
        return RecordFamily::kText;
    }
    if (first == 'e' || first == 'E' || (first == 'S' && second == 'd')) {
        return RecordFamily::kEntryDetail;
    }
    if (first == 'd' || first == 'D' || (first == 'S' && second == 'D')) {
        return RecordFamily::kDetail;
    }
    if (first == 'o' || first == 'O' || first == 'S') {
        return RecordFamily::kOther;
    }
    return RecordFamily::kNone;
}

bool IsNumberedItem(u32 tag) noexcept {
    return tag == Tag::kMeasure || tag == Tag::kStaff || tag == Tag::kStaffSystem ||
           tag == Tag::kPage || tag == Tag::kSmartShape;
}

RecordKey ReadKey(RecordFamily family, const void* words) noexcept {
    switch (family) {
        case RecordFamily::kOther:
            return RecordKey::Other(ReadWord<u16>(words, 0), ReadWord<u16>(words, 2));
        case RecordFamily::kDetail:
            return RecordKey::Detail(ReadWord<u16>(words, 0), ReadWord<u16>(words, 2),
                                     ReadWord<u16>(words, 4));
        case RecordFamily::kEntryDetail:
            return RecordKey::OfEntry(ReadWord<u32>(words, 0), ReadWord<u16>(words, 4));
        case RecordFamily::kPreference:
        case RecordFamily::kText:
            return {ReadWord<u16>(words, 0)};
        case RecordFamily::kStaffAt:
            return RecordKey::Other(ReadWord<u16>(words, 0));
        case RecordFamily::kNone:
            break;
    }
    return {};
}

void WriteKey(RecordFamily family, RecordKey key, void* words) noexcept {
    switch (family) {
        case RecordFamily::kOther:
            WriteWord(words, 0, key.OtherItem());
            WriteWord(words, 2, key.Inci());
            break;
        case RecordFamily::kDetail:
            WriteWord(words, 0, static_cast<u16>(key.order >> 32U));
            WriteWord(words, 2, static_cast<u16>(key.order >> 16U));
            WriteWord(words, 4, key.Inci());
            break;
        case RecordFamily::kEntryDetail:
            WriteWord(words, 0, key.Entry());
            WriteWord(words, 4, key.Inci());
            break;
        case RecordFamily::kPreference:
        case RecordFamily::kText:
            WriteWord(words, 0, static_cast<u16>(key.order));
            break;
        case RecordFamily::kStaffAt:
        case RecordFamily::kNone:
            break;
    }
}

}  // namespace standin
