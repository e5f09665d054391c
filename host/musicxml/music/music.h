// A score as music: what sounds when on which staff, and what hangs on it, whatever the layers.
#pragma once

#include <string_view>
#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/pitch.h"

namespace standin {

// Something that hangs on an entry or note. The text is the XML; views last as long as the
// score that they come from.
struct Attachment {
    enum class Kind : u8 { kEntry, kLyric, kNote, kSpannerStart, kSpannerEnd, kLook };
    Kind kind = Kind::kEntry;
    u16 otherStaff = 0;  // a spanner's other end
    u16 otherMeasure = 0;
    u16 otherLayer = 0;
    i32 otherPosition = 0;
    std::string_view text;
    bool otherIsRest = false;
};

struct MusicNote {
    WrittenPitch pitch;
    std::string_view pitchElement;  // of an unpitched or microtonal note
    bool tieStart = false;
    bool tieEnd = false;
    u32 firstAttachment = 0;  // those of this note
    u32 attachmentCount = 0;
};

struct MusicEntry {
    u16 staff = 0;     // counted from 1 through the score
    u16 measure = 0;   // from 1
    u16 layer = 0;     // only tells where it came from
    i32 onset = 0;     // duration units from the barline
    i32 length = 0;    // the time it takes; 0 for a grace entry
    i32 grace = 0;     // for a grace entry how far before its main note, negative; else 0
    i16 duration = 0;  // as written
    bool rest = false;
    bool hidden = false;
    bool filler = false;  // a rest that only fills a gap
    u32 firstNote = 0;
    u32 noteCount = 0;
    u32 firstAttachment = 0;  // those of the entry as a whole
    u32 attachmentCount = 0;
};

// A child of a measure other than its notes, such as a direction or a barline.
struct MusicItem {
    u16 part = 0;  // from 1
    u16 measure = 0;
    i32 position = 0;  // kEndOfMeasure for what closes the measure
    std::string_view text;
};

struct Music {
    std::vector<MusicEntry> entries;  // by staff, measure, onset, grace
    std::vector<MusicNote> notes;
    std::vector<Attachment> attachments;
    std::vector<MusicItem> items;
};

// What the score's document holds now. The result refers into the score.
Music MusicOf(const ImportedScore& score);

}  // namespace standin
