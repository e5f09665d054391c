// Which option record and word each field of an assembled preference record comes from:
// offset, option tag and record number, word, and the conversion of fields that are not plain.
#include <algorithm>
#include <iterator>

#include "Class Files/score/records/AssembledPreference.h"

namespace {

constexpr auto kLong = PreferenceConversion::kLowFirst;
constexpr auto kNot = PreferenceConversion::kNot;
constexpr auto kPlain = PreferenceConversion::kPlain;

// clang-format off
constexpr PreferenceRow kRowsOf05[] = {
    {0, "OR", 0, 3}, {2, "OR", 0, 2}, {4, "OK", 1, 2}, {6, "OZ", 1, 0}, {8, "OZ", 1, 1},
    {10, "OU", 2, 3}, {12, "OU", 0, 4}, {14, "OA", 0, 3}, {16, "Ot", 0, 0}, {18, "OQ", 2, 4},
    {20, "OQ", 2, 2, kLong},
};

constexpr PreferenceRow kRowsOfDP[] = {
    {0, "OA", 0, 0}, {2, "OA", 0, 1}, {4, "OA", 0, 4}, {6, "OA", 0, 5}, {8, "ON", 0, 1},
    {10, "ON", 0, 2}, {12, "ON", 0, 3}, {14, "OB", 1, 4}, {16, "OB", 1, 5},
    {18, "OB", 2, 2, kLong}, {22, "Ob", 0, 2}, {24, "Ob", 0, 3}, {26, "OZ", 0, 2},
    {28, "OZ", 0, 3}, {30, "OZ", 0, 4}, {32, "OD", 0, 3}, {34, "OD", 0, 1}, {36, "OD", 0, 4},
    {38, "OD", 0, 0}, {40, "OG", 0, 3}, {42, "OK", 0, 3}, {44, "OK", 0, 5}, {46, "OK", 0, 4},
    {48, "OK", 1, 0}, {50, "OQ", 2, 5}, {52, "OQ", 3, 0}, {54, "Os", 1, 0, kLong},
    {58, "Ou", 2, 1}, {60, "Ou", 0, 0}, {62, "Ou", 2, 0}, {64, "Ou", 0, 1}, {66, "Ou", 0, 2},
    {68, "OU", 2, 5}, {70, "OU", 3, 0},
};

constexpr PreferenceRow kRowsOfMS[] = {
    {0, "OB", 1, 0}, {2, "OB", 0, 0}, {4, "OB", 0, 1}, {6, "OB", 0, 2}, {8, "OB", 0, 4},
    {10, "OB", 0, 5}, {12, "OB", 0, 3, kNot}, {14, "Ob", 0, 4}, {16, "Ob", 0, 5},
    {18, "Ob", 0, 1}, {20, "OZ", 0, 5}, {22, "OZ", 0, 0}, {24, "OZ", 0, 1}, {26, "Ol", 0, 2},
    {28, "OD", 0, 2}, {30, "OG", 0, 2}, {32, "OG", 0, 4}, {34, "OK", 1, 1}, {36, "OK", 0, 1},
    {38, "OK", 0, 2}, {40, "OK", 0, 0}, {42, "OK", 1, 3}, {44, "Ou", 1, 4}, {46, "Ou", 1, 2},
    {48, "Ou", 1, 3}, {50, "Os", 1, 2}, {52, "Oq", 15, 4, kLong}, {56, "Oq", 16, 0, kLong},
    {60, "OT", 0, 3}, {62, "OT", 0, 4}, {64, "OT", 0, 5}, {66, "Or", 0, 2}, {68, "Or", 0, 1},
    {70, "Or", 0, 0}, {72, "OM", 0, 0}, {74, "PG", 0, 3, kPlain, 65534}, {76, "OM", 0, 2},
    {78, "Ol", 2, 0, kLong}, {82, "Ol", 2, 2, kLong}, {86, "OY", 2, 0}, {88, "OY", 1, 1},
    {90, "OY", 0, 0, kLong}, {94, "OY", 2, 4}, {96, "OM", 0, 5}, {98, "Os", 0, 4},
    {100, "OZ", 1, 2}, {102, "OK", 1, 4}, {104, "Ou", 1, 5},
};

constexpr PreferenceRow kRowsOfSI[] = {
    {0, "OB", 1, 3}, {2, "OB", 1, 2}, {4, "OB", 2, 0, kLong}, {8, "Ob", 1, 0, kLong},
    {12, "Ob", 0, 0}, {14, "OG", 0, 1}, {16, "OG", 0, 0}, {18, "OG", 0, 5}, {20, "Ol", 0, 3},
    {22, "Ol", 1, 1}, {24, "Ol", 1, 2}, {26, "Ol", 1, 3}, {28, "Ol", 0, 0}, {30, "Ol", 1, 4},
    {32, "Ol", 0, 1}, {34, "Ol", 2, 4, kLong}, {38, "Os", 0, 1}, {40, "Os", 0, 2},
    {42, "Os", 0, 0}, {44, "Os", 0, 3}, {46, "Os", 0, 5}, {48, "Ot", 4, 2, kLong},
    {52, "OU", 2, 4},
};

// clang-format on

struct TaggedTable {
    u32 tag;
    PreferenceTable table;
};

constexpr TaggedTable kTables[] = {
    {HostTag("pf05"), kRowsOf05},
    {HostTag("pfDP"), kRowsOfDP},
    {HostTag("pfMS"), kRowsOfMS},
    {HostTag("pfSI"), kRowsOfSI},
};

}  // namespace

const PreferenceTable* FindPreferenceTable(u32 tag) noexcept {
    const auto* found = std::ranges::find(kTables, tag, &TaggedTable::tag);
    return found == std::end(kTables) ? nullptr : &found->table;
}
