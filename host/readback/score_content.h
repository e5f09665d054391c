// The content of a MusicXML score, as a plain list in the order of the file.
//
// This is a second reader, only for the checks: it has no layers, entries or records, and pairs the
// two ends of a line as the format defines, by their order in the part's text.
#pragma once

#include <string>
#include <tuple>
#include <vector>

#include "host/readback/exact_time.h"
#include "shell/host/host_types.h"

namespace standin::readback {

inline constexpr u32 kNone = 0xFFFFFFFF;

struct Place {
    u32 staff = 0;    // counted from 1 through the score; 0 = of the part as a whole
    u32 measure = 0;  // from 0
    ExactTime onset;  // from the barline

    bool operator==(const Place&) const = default;
    bool operator<(const Place& other) const {
        return std::tie(staff, measure, onset) < std::tie(other.staff, other.measure, other.onset);
    }
};

// A range of one of the lists below.
struct Range {
    u32 begin = 0;
    u32 end = 0;
};

// An attachment of a note or rest: an articulation, a lyric, a notehead.
struct Attachment {
    u32 text = 0;         // canonical
    u32 lyric = kNone;    // the number of a lyric
    bool ofNote = false;  // of this note even in a chord
    bool look = false;    // stem or beam
};

struct Note {
    u32 pitch = 0;  // such as "C#4"
    u32 form = 0;   // type, dots, time modification and whether a cue or grace note
    u32 words = 0;  // such as "C#4 dotted quarter"
    ExactTime duration;
    bool tieStart = false;
    bool tieStop = false;
    u32 chord = 0;
    Range attachments;
};

// The notes of one <chord> on one staff, or a rest.
struct Chord {
    Place place;
    u32 part = 0;  // from 0
    u32 voice = 0;
    u32 grace = 0;  // 0, or how many grace notes before the next other note, itself included
    ExactTime duration;
    bool rest = false;
    bool hidden = false;              // of a rest: not printed
    bool sharesTime = false;          // with another of its voice and staff
    bool onTwoStaves = false;         // its voice is on another staff, too
    bool repeatsLyric = false;        // two lyrics have one number
    bool tieRunsBackward = false;     // its tie ends earlier in the text
    bool tieCouldRunForward = false;  // with its voices the other way round
    Range notes;
    u32 ratio = kNone;          // its time modification as written, by text
    u32 head = kNone;           // the chord it continues, of a <chord> over several staves
    std::vector<u32> brackets;  // of the tuplets it is in, by text

    ExactTime End() const { return place.onset + duration; }
};

// One end of a slur, hairpin or the like.
struct LineEnd {
    enum class Type : u8 { kStart, kStop, kOther };
    Type type = Type::kOther;
    u32 kind = 0;    // the element's name
    u32 number = 0;  // as written, "1" if missing
    u32 text = 0;    // canonical
    Place place;
    u32 chord = kNone;  // none in a direction
    u32 note = kNone;
};

// Why an end has no partner, or no certain one.
enum class Loose : u8 { kNoStart, kNoStop, kNumberTakenTwice };

struct LooseEnd {
    u32 end = 0;
    Loose why = Loose::kNoStop;
};

struct Line {
    u32 start = 0;  // ends
    u32 stop = 0;
    bool stopStandsFirst = false;  // in the text
    bool couldRunForward = false;  // with its voices the other way round
};

// A tuplet with <backup> or <forward> between its notes.
struct BrokenTuplet {
    u32 part = 0;
    Place place;  // where it starts
};

// Any other element of a measure or outside the parts.
struct Item {
    u32 part = 0;  // from 0
    Place place;
    bool closesMeasure = false;
    // Names a voice and comes before the first note of its staff in the measure, which has another
    // voice.
    bool comesTooEarly = false;
    u32 text = 0;
};

// Where a measure is in the lists of the score.
struct MeasureRanges {
    Range chords;
    Range notes;
    Range attachments;
    Range ends;
    Range items;
};

struct MeasureContent {
    u32 number = 0;  // as printed, by text
    ExactTime beat{1, 1};
    ExactTime length;           // the latest time of its content
    ExactTime fullestVoice;     // the most that the durations of one voice add up to
    ExactTime divisionsBefore;  // in force where it begins
    ExactTime divisionsAfter;   // likewise, where it ends
    u32 staves = 1;             // the highest number of a staff that it names
    bool isRepeated = false;    // the other file has it word for word
    MeasureRanges ranges;
};

struct Part {
    u32 id = 0;
    u32 firstStaff = 1;  // of the score
    u32 staves = 1;
    std::vector<MeasureContent> measures;
};

struct Score {
    std::vector<Part> parts;
    std::vector<Chord> chords;
    std::vector<Note> notes;
    std::vector<Attachment> attachments;
    std::vector<LineEnd> ends;
    std::vector<Line> lines;
    std::vector<LooseEnd> looseEnds;
    std::vector<BrokenTuplet> brokenTuplets;
    std::vector<Item> items;
};

}  // namespace standin::readback
