// Which clef holds where, from the clef changes of the measures.
#include <optional>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPIStaff.h"

namespace {

constexpr u16 kFullSize = 100;

// The last clef change of the staff at or before the place, searched back measure by measure;
// nothing if there is none. Also ends if the host returns a measure that is not earlier.
std::optional<EDTClefExtra> LoadEffectiveAt(u16 staff, u16 measure, i32 position) {
    FinPIClefChange last(measure);
    u32 before = measure + 1U;
    for (i16 found = last.LoadLastInci(); found != 0 && last.GetCmper1() < before;
         found = last.LoadLastCmper1(last.GetCmper1())) {
        before = last.GetCmper1();
        std::optional<EDTClefExtra> latest;
        for (u32 next = last.Inci() + 1U; next > 0; --next) {
            FinPIClefChange change(last.GetCmper1(), static_cast<u16>(next - 1));
            if (change.Load() != 0 && change.staff == staff &&
                (change.GetCmper1() < measure || change.position <= position) &&
                (!latest || latest->position < change.position)) {
                latest = change;
            }
        }
        if (latest) {
            return latest;
        }
    }
    return std::nullopt;
}

}  // namespace

i16 FinPIStaff::CurrClef(u16* percent) const {
    constexpr u16 kShowsTranspositionClef = 0x8000;
    const DocumentScope document(m_docID);
    const auto give = [percent](i32 clef, u16 size) {
        if (percent != nullptr) {
            *percent = size;
        }
        return static_cast<i16>(clef);
    };
    if (document && (transposition & kShowsTranspositionClef) != 0 &&
        KeepOctaveTranspositionInConcertPitchOption(*this) == 0) {
        return give(transpositionClef, kFullSize);
    }
    const std::optional<EDTClefExtra> clef =
        document ? LoadEffectiveAt(m_cmper1, static_cast<u16>(m_meas), static_cast<i32>(m_pos))
                 : std::nullopt;
    if (!clef) {
        PostError(FinPIAppError("short __cdecl FinPIStaff::CurrClef(unsigned short *const ) const",
                                "LoadEffectiveAt() failed to find a clef."));
        return give(0, kFullSize);
    }
    return give(clef->clef, clef->position > 0 ? static_cast<u16>(ClefChangePercent()) : kFullSize);
}
