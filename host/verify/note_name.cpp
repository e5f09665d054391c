#include "host/verify/note_name.h"

#include <string_view>

namespace standin {

namespace {
constexpr std::string_view kSteps = "cdefgab";
}

std::string NameOfNote(const EXNOTE& note) {
    const int steps = static_cast<i16>(note.pitch) >> 4;
    const int octave = 4 + (steps >= 0 ? steps / 7 : (steps - 6) / 7);
    std::string text = (note.flags & NoteFlag::kTieEnd) != 0 ? "~" : "";
    text += kSteps[static_cast<std::size_t>(steps - (octave - 4) * 7)];
    text.append(note.pitch & 7U, (note.pitch & 8U) != 0 ? 'b' : '#');
    text += std::to_string(octave);
    return (note.flags & NoteFlag::kTieStart) != 0 ? text + '~' : text;
}

}  // namespace standin
