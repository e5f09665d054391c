// An entry between its <note> elements and its frame.
#pragma once

#include <string_view>
#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/note_details.h"
#include "host/musicxml/written_forms.h"
#include "shell/host/host_frames.h"

namespace standin {

struct TupletGroup;

// The values of <time-modification>.
struct NoteRatio {
    int actual = 0;  // 0 = there is none
    int normal = 0;
    i32 normalUnit = 0;  // the duration of a normal note; 0 = not given

    bool operator==(const NoteRatio&) const = default;
};

struct EntryDraft {
    EXENTRY entry{};
    WrittenForm form;
    Rational start{};
    int staff = 0;           // of the part, from 0
    std::string_view voice;  // as the file names it
    NoteRatio ratio;
    FragmentId brackets = 0;  // the <tuplet> elements of its notes, in the file's order
    CarriedText text{};       // its <note> elements
    bool isOnePiece = true;   // with nothing between them

    TupletGroup* tuplet = nullptr;          // the innermost tuplet that contains it
    std::vector<TupletText> bracketEnds{};  // those of no group

    bool Grace() const noexcept { return (entry.flags & EntryFlag::kGrace) != 0; }
    Rational End() const noexcept { return Grace() ? start : start + form.length; }
};

}  // namespace standin
