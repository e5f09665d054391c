// What a merge did to a score, staff by staff and measure by measure.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/report/remarks.h"

namespace standin {

// What a layer holds in one measure of one staff.
struct LayerContent {
    int notes = 0;    // noteheads
    int entries = 0;  // notes and chords, grace notes included
    int visibleRests = 0;
    int hiddenRests = 0;
};

// One staff in one measure, as it is now.
struct StaffMeasureContent {
    u16 staff = 0;  // counted from 1 through the score
    u16 measure = 0;
    std::array<LayerContent, kLayers> layers{};
};

// Every staff and measure that has any entry, by staff, then measure.
std::vector<StaffMeasureContent> ContentOf(const ImportedScore& score);

// Why a note or chord of a source layer stayed where it was.
enum class Stay : u8 {
    kOtherDuration,  // the destination has an entry of another duration at its time
    kNoRestToFill,   // no rests of the destination span its time exactly
    kTooManyNotes,   // the chord would have more notes than an entry can hold
};

struct StayedEntry {
    u16 layer = 0;  // from 0
    i32 onset = 0;  // duration units from the barline
    Stay reason = Stay::kNoRestToFill;
};

// What changed in one staff and measure.
struct MergedMeasure {
    u16 staff = 0;  // counted from 1 through the score
    u16 measure = 0;
    int chordsFormed = 0;  // destination entries that took in notes
    int notesMoved = 0;    // noteheads that came to the destination layer, those of chords too
    int restsFilled = 0;   // destination rests that gave way to music
    std::vector<StayedEntry> stayed;
};

struct MergeReport {
    std::vector<Remark> remarks;
    std::vector<std::string> warnings;    // of the file's reading: "line 7: a <backup> goes ..."
    std::vector<MergedMeasure> measures;  // with anything moved or stayed, by staff and measure

    int ChordsFormed() const noexcept;
    int NotesMoved() const noexcept;
    int RestsFilled() const noexcept;
    int Stayed() const noexcept;
};

// Compares the document with its state at the import. destination: the layer merged into, from
// 0. Music outside the selection does not count as stayed.
MergeReport ReportMerge(const ImportedScore& score, u16 destination, const EREGION& selection);

std::string WordsForReason(Stay reason);  // "another duration at its time"

}  // namespace standin
