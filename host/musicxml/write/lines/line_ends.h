// The elements of lines in the order in which they are written.
#pragma once

#include <vector>

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/lines.h"

namespace standin {

// An element of a line in the text to be written.
struct WrittenEnd {
    u32 line = 0;  // in the part
    LineRole role = LineRole::kStart;
};

// The ends of lines at one note of the entry, from 0, as they are written: lines that come to an
// end there before those that begin.
std::vector<SpannerAtEntry> SpannersOfNote(const EXENTRY& entry, const EntryTexts& texts, int note,
                                           const PartLines& lines, const Fragments& fragments);

// Of all notes of the entry, added to those there are.
void AddEndsOfEntry(const EXENTRY& entry, const EntryTexts& texts, const PartLines& lines,
                    const Fragments& fragments, std::vector<WrittenEnd>& ends);

// Of a piece of the text as it was read, likewise.
void AddEndsOfText(const PartLines& lines, std::size_t begin, std::size_t end,
                   std::vector<WrittenEnd>& ends);

}  // namespace standin
