#include "bench/eighth_note_score.h"

namespace bench {

namespace {

constexpr u16 kStaff = 1;
constexpr i16 kEighth = kQuarterNote / 2;

EXENTRY Note(u32 entryNumber, int steps) {
    EXENTRY entry{};
    entry.entryNumber = entryNumber;
    entry.duration = kEighth;
    entry.flags = EntryFlag::kNote;
    entry.noteCount = 1;
    entry.notes[0].pitch = static_cast<u16>(steps << 4);
    entry.notes[0].noteID = 1;
    entry.notes[0].flags = 1U << 16U;
    return entry;
}

}  // namespace

void AddEighthNotes(standin::Document& document, int measures) {
    document.AddStaff(kStaff, u"Staff");
    for (int i = 0; i < measures; ++i) {
        const u16 measure = document.AddMeasure(4, kQuarterNote);
        for (u16 layer = 0; layer < kLayers; ++layer) {
            std::vector<EXENTRY> entries;
            entries.reserve(kEntriesPerLayer);
            for (int n = 0; n < kEntriesPerLayer; ++n) {
                entries.push_back(Note(document.NewEntryNumber(), 7 - 3 * layer + n % 3));
            }
            document.PutFrame({kStaff, measure, layer}, std::move(entries));
        }
    }
    document.LayoutSystems(4);
    document.MarkImported();
}

}  // namespace bench
