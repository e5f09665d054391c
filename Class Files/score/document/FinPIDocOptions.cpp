// The options of a document.
#include "Class Files/foundation/FinPIDoc.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPIMiscPrefs.h"
#include "Class Files/score/document/FinPIStaff.h"
#include "Class Files/score/records/EnigmaRecords.h"
#include "shell/module/ModuleState.h"

namespace {

// From this host version on the preference for octave transpositions exists.
constexpr u32 kFirstWithOctavePreference = 0x19200000;

constexpr int kStepsInOctave = 7;

// Loads the record; posts a failure.
bool LoadOption(FinPIEnigmaData& record, const char* function) {
    if (record.Load() != 0) {
        return true;
    }
    PostRecordError<FinPILoadEDataFailed>(function, record.Tag());
    return false;
}

// Of a staff's transposition word, in diatonic steps.
int TranspositionSteps(u16 word) {
    constexpr u16 kStepsInLowByte = 0x2000;
    if ((word & kStepsInLowByte) != 0) {
        return static_cast<i8>(word & 0xFFU);
    }
    const int steps = (word >> 6U) & 0x3F;
    return steps >= 0x20 ? steps - 0x40 : steps;
}

}  // namespace

i16 FinPIDoc::ShowActiveLayerOnlyOption() const {
    FinPIMiscPrefs prefs;
    return LoadOption(prefs, "short __cdecl FinPIDoc::ShowActiveLayerOnlyOption(void) const")
               ? static_cast<i16>(prefs.showActiveLayerOnly)
               : i16{0};
}

i16 FinPIDoc::SetShowActiveLayerOnlyOption(i16 on) const {
    FinPIMiscPrefs prefs;
    if (!LoadOption(prefs, "short __cdecl FinPIDoc::SetShowActiveLayerOnlyOption(const short)")) {
        return 0;
    }
    prefs.showActiveLayerOnly = static_cast<u16>(on);
    prefs.SetKeepWhenEmpty(true);  // options that are all off are still the document's options
    return prefs.Commit();
}

i16 FinPIDoc::ClefChangePercent() const {
    FinPIClefPrefs prefs;
    return LoadOption(prefs, "FinPIDoc::ClefChangePercent") ? prefs.changePercent : i16{0};
}

i16 FinPIDoc::BeamFlagOption() const {
    FinPIBeamPrefs prefs;
    return LoadOption(prefs, "FinPIDoc::BeamFlagOption") ? static_cast<i16>(prefs.flags & 1U)
                                                         : i16{0};
}

i16 FinPIDoc::KeepOctaveTranspositionInConcertPitchOption(const FinPIStaff& staff) const {
    constexpr char kName[] =
        "short __cdecl FinPIDoc::KeepOctaveTranspositionInConcertPitchOption(void) const";
    constexpr u16 kPartPrefsItem = 0xFFFE;
    FinPIPartPrefs partPrefs(kPartPrefsItem);
    if (!LoadOption(partPrefs, kName) || partPrefs.part != 0) {
        return 0;
    }
    if (staff.transposition == 0 || TranspositionSteps(staff.transposition) % kStepsInOctave != 0 ||
        HostVersion() < kFirstWithOctavePreference) {
        return 1;
    }
    FinPIMiscPrefs prefs;
    return LoadOption(prefs, kName) && prefs.keepOctaveTransposition == 0;
}
