// The children of <note>: how reading keeps each, and where writing puts it.
#pragma once

#include <cstddef>
#include <string_view>

namespace standin {

// The places within <note>, in the order of the schema.
enum class NoteSlot : std::size_t {
    kGrace,
    kCue,
    kChord,
    kPitch,
    kDuration,
    kTie,
    kInstrument,
    kEditorial,
    kVoice,
    kType,
    kDots,
    kAccidental,
    kTimeModification,
    kStem,
    kNotehead,
    kStaff,
    kBeams,
    kNotations,
    kLyrics,
    kPlay,
    kListen,
    kComments,
    kCount,
};

enum class KeptAs {
    kMusic,   // pitch, time, voice and staff of the entry, from which it is written
    kRecord,  // a detail or flag of the entry; plain values may follow from the music
    kText,    // with the other text of the note, or of the rest
};

struct NoteChild {
    std::string_view element;
    NoteSlot slot;
    KeptAs keptAs;
    bool isLookOfRest;  // a rest with it may be replaced by music
};

// Unknown elements count as text, which is written among the <notations>. The name of a comment or
// instruction begins with "!" or "?".
const NoteChild& NoteChildOf(std::string_view element);

}  // namespace standin
