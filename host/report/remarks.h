// Things worth knowing about a merged score, with their places.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/musicxml/imported_score.h"

namespace standin {

struct Remark {
    enum class Kind : u8 {
        kVoiceNotMerged,  // a voice beyond the fourth is left as it was
        kLyricNumber,     // a lyric got a new number
        kMarking,         // a marking of one note or chord now applies to more notes
        kTie,             // a tie that other programs may not read
        kLine,            // a slur or other line that other programs may not read
        kTuplet,          // only part of a tuplet moved, or a note left its tuplet
    };
    Kind kind = Kind::kMarking;
    u16 staff = 0;    // counted from 1 through the score
    u16 measure = 0;  // from 1
    std::string staffName;
    std::string number;        // of the measure, as it is printed
    std::optional<u16> layer;  // that it comes from, from 0
    std::optional<i32> onset;  // duration units from the barline
    double beat = 0;           // likewise in beats of the time signature, from 1
    std::string what;          // the marking's or lyric's name; "a fifth voice"
    std::string words;         // the full text without its place: "a fifth voice is not merged"
};

// Compares the document with its state at the import. destination: from 0. By staff and measure.
std::vector<Remark> RemarksOn(const ImportedScore& score, u16 destination,
                              const EREGION& selection);

// "m. 12, Chorus, staff 2, beat 2.5: ..."
std::string WordsFor(const Remark& remark);

}  // namespace standin
