#include "Class Files/score/records/AssembledPreference.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <vector>

#include "Class Files/score/records/HostRecordCalls.h"

namespace {

using OptionWords = std::array<u16, 6>;

// The key of the option record that a row's field comes from.
struct OptionKey {
    u32 tag;
    std::array<u16, 2> words;  // cmper, inci

    explicit OptionKey(const PreferenceRow& row) noexcept
        : tag{HostTag({'o', 't', row.option[0], row.option[1], '\0'})}, words{row.cmper, row.inci} {
        constexpr u16 kOfNumberedOptions = 65534;
        if (row.cmper == 0 && row.option[0] <= '9') {
            words[0] = kOfNumberedOptions;
        }
    }
    bool operator==(const OptionKey&) const = default;
};

u32 FieldOf(const PreferenceRow& row, const OptionWords& words) noexcept {
    const u16 word = words[row.word];
    switch (row.conversion) {
        case PreferenceConversion::kHighFirst:
            return (u32{word} << 16U) | words[row.word + 1U];
        case PreferenceConversion::kLowFirst:
            return (u32{words[row.word + 1U]} << 16U) | word;
        case PreferenceConversion::kNot:
            return word == 0 ? 1 : 0;
        case PreferenceConversion::kLowByte:
            return word & 0xFFU;
        case PreferenceConversion::kPlain:
            break;
    }
    return word;
}

void PutField(const PreferenceRow& row, u32 field, OptionWords& words) noexcept {
    const auto low = static_cast<u16>(field);
    const auto high = static_cast<u16>(field >> 16U);
    u16& word = words[row.word];
    switch (row.conversion) {
        case PreferenceConversion::kHighFirst:
            word = high;
            words[row.word + 1U] = low;
            break;
        case PreferenceConversion::kLowFirst:
            word = low;
            words[row.word + 1U] = high;
            break;
        case PreferenceConversion::kNot:
            word = field == 0 ? 1 : 0;
            break;
        case PreferenceConversion::kLowByte:
            word = static_cast<u16>(static_cast<i16>(static_cast<i8>(low)));
            break;
        case PreferenceConversion::kPlain:
            word = low;
            break;
    }
}

bool LoadOption(const OptionKey& key, OptionWords& words, u32 version) {
    u32 size = sizeof words;
    words = {};
    return LoadHostRecord(key.tag, key.words.data(), words.data(), &size, version) != 0;
}

// Calls visit once for each option record of the table, with the rows that it holds.
template <typename Visit>
void ForEachOption(PreferenceTable table, Visit visit) {
    std::vector<const PreferenceRow*> rows;
    for (const PreferenceRow& first : table) {
        const OptionKey key(first);
        rows.clear();
        for (const PreferenceRow& row : table) {
            if (OptionKey(row) == key) {
                rows.push_back(&row);
            }
        }
        if (rows.front() == &first) {
            visit(key, rows);
        }
    }
}

}  // namespace

i16 LoadAssembledPreference(PreferenceTable table, void* data, u32* size, u32 version) {
    const u32 capacity = *size;
    *size = std::accumulate(table.begin(), table.end(), u32{0},
                            [](u32 sum, const PreferenceRow& row) { return sum + row.Size(); });
    if (data == nullptr) {
        return 1;
    }
    auto* bytes = static_cast<u8*>(data);
    std::fill_n(bytes, std::min(capacity, *size), u8{0});
    ForEachOption(table, [&](const OptionKey& key, const auto& rows) {
        OptionWords words;
        if (!LoadOption(key, words, version)) {
            return;
        }
        for (const PreferenceRow* row : rows) {
            const u32 field = FieldOf(*row, words);
            if (row->offset + row->Size() <= capacity) {
                std::memcpy(bytes + row->offset, &field, row->Size());
            }
        }
    });
    return 1;
}

i16 SaveAssembledPreference(PreferenceTable table, const void* data, u32 size, u32 version) {
    if (table.empty()) {
        return 1;
    }
    if (data == nullptr || size < 2 * table.size()) {
        return 0;
    }
    const auto* bytes = static_cast<const u8*>(data);
    i16 saved = 1;
    ForEachOption(table, [&](OptionKey key, const auto& rows) {
        OptionWords stored;
        if (!LoadOption(key, stored, version)) {
            return;
        }
        OptionWords words = stored;
        for (const PreferenceRow* row : rows) {
            u32 field = 0;
            if (row->offset + row->Size() <= size) {
                std::memcpy(&field, bytes + row->offset, row->Size());
                if (field != FieldOf(*row, stored)) {
                    PutField(*row, field, words);
                }
            }
        }
        if (words != stored &&
            SaveHostRecord(key.tag, key.words.data(), words.data(), sizeof words, version) == 0) {
            saved = 0;
        }
    });
    return saved;
}
