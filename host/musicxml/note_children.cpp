#include "host/musicxml/note_children.h"

#include <algorithm>
#include <iterator>

namespace standin {
namespace {

constexpr NoteChild kChildren[] = {
    {"grace", NoteSlot::kGrace, KeptAs::kRecord, false},
    {"cue", NoteSlot::kCue, KeptAs::kText, true},
    {"chord", NoteSlot::kChord, KeptAs::kMusic, false},
    {"pitch", NoteSlot::kPitch, KeptAs::kMusic, false},
    {"unpitched", NoteSlot::kPitch, KeptAs::kMusic, false},
    {"rest", NoteSlot::kPitch, KeptAs::kMusic, false},
    {"duration", NoteSlot::kDuration, KeptAs::kMusic, false},
    {"tie", NoteSlot::kTie, KeptAs::kRecord, false},
    {"instrument", NoteSlot::kInstrument, KeptAs::kText, true},
    {"footnote", NoteSlot::kEditorial, KeptAs::kText, false},
    {"level", NoteSlot::kEditorial, KeptAs::kText, false},
    {"voice", NoteSlot::kVoice, KeptAs::kMusic, false},
    {"type", NoteSlot::kType, KeptAs::kRecord, true},
    {"dot", NoteSlot::kDots, KeptAs::kRecord, true},
    {"accidental", NoteSlot::kAccidental, KeptAs::kRecord, false},
    {"time-modification", NoteSlot::kTimeModification, KeptAs::kMusic, false},
    {"stem", NoteSlot::kStem, KeptAs::kRecord, false},
    {"notehead", NoteSlot::kNotehead, KeptAs::kRecord, false},
    {"notehead-text", NoteSlot::kNotehead, KeptAs::kRecord, false},
    {"staff", NoteSlot::kStaff, KeptAs::kMusic, false},
    {"beam", NoteSlot::kBeams, KeptAs::kRecord, false},
    {"notations", NoteSlot::kNotations, KeptAs::kRecord, false},
    {"lyric", NoteSlot::kLyrics, KeptAs::kRecord, false},
    {"play", NoteSlot::kPlay, KeptAs::kText, false},
    {"listen", NoteSlot::kListen, KeptAs::kText, false},
};

constexpr NoteChild kUnknown{{}, NoteSlot::kNotations, KeptAs::kText, false};
constexpr NoteChild kComment{{}, NoteSlot::kComments, KeptAs::kText, false};

}  // namespace

const NoteChild& NoteChildOf(std::string_view element) {
    if (element.starts_with('!') || element.starts_with('?')) {
        return kComment;
    }
    const auto* const found = std::ranges::find(kChildren, element, &NoteChild::element);
    return found == std::end(kChildren) ? kUnknown : *found;
}

}  // namespace standin
