// The records in which an imported score keeps the attachments of entries and notes. The texts are
// in the score's table of fragments; a record holds their numbers.
#pragma once

#include <cstddef>

#include "host/musicxml/fragments.h"
#include "shell/host/entry_detail_tags.h"

namespace standin {

// Tags used in addition to those of host/score/records/tags.h.
namespace DetailTag {
inline constexpr u32 kArticulation = EntryDetailTag::kArticulation;  // EntryText
inline constexpr u32 kRestLook = EntryDetailTag::kNoteAlts;          // EntryText, kRestLook
inline constexpr u32 kLyric = EntryDetailTag::kVerseAssign;  // EDTLyric2011, fragment at offset 4
inline constexpr u32 kBeams = EntryDetailTag::kBeamStubDirection;  // EntryText, kBeams
inline constexpr u32 kStem = EntryDetailTag::kFirstStemAlt;        // EntryText, kStem
inline constexpr u32 kNoteExtras = EntryDetailTag::kPercNoteCode;  // NoteText
inline constexpr u32 kNotehead = EntryDetailTag::kNoteheadMods;    // NoteText and room
inline constexpr u32 kAccidental = EntryDetailTag::kAccidentalMods;
inline constexpr u32 kDots = EntryDetailTag::kDotAlts;
inline constexpr u32 kTieStart = EntryDetailTag::kTieStartRaw;
inline constexpr u32 kTieEnd = EntryDetailTag::kTieEndRaw;
}  // namespace DetailTag

// The place of an entry's text within <note>.
enum class EntryTextKind : u16 {
    kArticulation = 1,  // inside <notations><articulations>
    kOrnament,          // inside <notations><ornaments>; with the accidental marks after it
    kNotation,          // inside <notations>, or its own <notations>
    kRestLook,          // of a rest: attributes and children that are not needed without it
    kRestExtras,        // its other children beyond the usual
    kBeams,
    kStem,
};

#pragma pack(push, 2)

struct EntryText {
    EntryTextKind kind;
    u16 unused2;
    FragmentId fragment;
    u32 lineOnItsWay;  // 1 + the line of the part that continues there; 0 = none
};

// What one note of an entry has: its attributes first, then elements one after the other.
struct NoteText {
    u16 noteID;
    u16 unused2;
    FragmentId fragment;
    u32 unused8;
};

struct NoteText24 {
    NoteText text;
    u8 unused12[12];
};

// A tie end with elements other than one plain <tie> and one plain <tied>.
struct TieText {
    u16 noteID;
    u16 unused2;
    FragmentId tie;   // 0 = no <tie>
    FragmentId tied;  // 0 = no <tied>
    u8 unused12[24];
};

// The note at an end, identified by its pitch wherever it moves: the two fields of EXNOTE.
struct SpannerNote {
    u16 pitch;
    u16 second;
};

// In a smart shape's own bytes, from offset 36 on. A line without an end has no text for it, and
// both of the shape's ends are at one entry.
struct SpannerText {
    FragmentId start;
    FragmentId stop;
    SpannerNote startNote;
    SpannerNote stopNote;
};

#pragma pack(pop)

// In a tuplet record's own bytes, from offset 8 on: the elements of its bracket, if the file had
// one. A bracket that could not become one tuplet of the host has a record for each end, at that
// end's entry.
struct TupletText {
    FragmentId start;
    FragmentId stop;
    u32 bracket;  // the same number for all parts of one bracket, on all staves of its voice
};

inline constexpr std::size_t kSpannerTextOffset = 36;
inline constexpr std::size_t kTupletTextOffset = 8;
inline constexpr std::size_t kLyricFragmentOffset = 4;
inline constexpr std::size_t kExpressionItemOffset = 4;

static_assert(sizeof(EntryText) == 12 && sizeof(NoteText) == 12 && sizeof(NoteText24) == 24);
static_assert(sizeof(TieText) == 36 && sizeof(SpannerText) == 16 && sizeof(TupletText) == 12);

}  // namespace standin
