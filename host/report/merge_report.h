// What a merge did to a score, computed from the document before and after. The model behind the
// report as text, as JSON and as a page.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/report/remarks.h"
#include "host/verify/merge_options.h"

namespace standin {

// Why a note or chord of a source layer stayed where it was.
enum class Stay : u8 {
    kOtherDuration,  // the destination has an entry of another duration at its time
    kNoRestToFill,   // no run of destination rests has exactly its time
    kTooManyNotes,   // the chord would have more notes than an entry can hold
};

struct StayedEntry {
    u16 layer = 0;                     // from 0
    i32 onset = 0;                     // duration units from the barline
    double beat = 1;                   // likewise in beats of the time signature, from 1
    std::vector<std::string> pitches;  // from the lowest: "C#5"
    Stay reason = Stay::kNoRestToFill;
};

// What changed in one staff and measure.
struct MergedMeasure {
    u16 staff = 0;  // counted from 1 through the score
    u16 measure = 0;
    std::string number;    // of the measure, as it is printed
    int chordsFormed = 0;  // destination entries that received notes
    int notesMoved = 0;    // noteheads that moved, including those of chords
    int restsFilled = 0;   // destination rests replaced by music
    int notesCleared = 0;  // noteheads of the destination that Replace took away
    std::vector<StayedEntry> stayed;

    bool IsEmpty() const noexcept;
};

// The options of the merge.
struct MergeRequest {
    std::string input;
    std::string output;               // empty when nothing was to be written
    std::vector<EREGION> selections;  // in order, one per range of measures
    MergeOptions options;
};

struct MergeReport {
    MergeRequest request;
    bool verified = false;                // the result was read again and nothing was lost
    std::vector<std::string> staffNames;  // by staff, counted from 1
    std::vector<MergedMeasure> measures;  // without empty ones, by staff and measure
    std::vector<Remark> remarks;
    std::vector<std::string> warnings;  // of the file's reading: "line 7: a <backup> goes ..."

    int ChordsFormed() const noexcept;
    int NotesMoved() const noexcept;
    int RestsFilled() const noexcept;
    int NotesCleared() const noexcept;
    int MeasuresCleared() const noexcept;
    int Stayed() const noexcept;
    std::map<Stay, int> StayedByReason() const;
    // Staves in measures that Replace cleared and nothing moved into.
    std::vector<const MergedMeasure*> ClearedForNothing() const;
};

// Compares the document with its state at the import. Music outside the selections, or in a layer
// that was not a source, does not count as stayed. The remarks are not added yet.
MergeReport ReportMerge(const ImportedScore& score, MergeRequest request);

// Every changed measure is planned for this, as for writing: only worth it for a report that is
// shown.
void AddRemarks(const ImportedScore& score, MergeReport& report);

// "another duration at the same time"
std::string WordsForReason(Stay reason);

}  // namespace standin
