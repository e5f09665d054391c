// The attachments of an entry, from its records.
#pragma once

#include <string_view>
#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/note_details.h"

namespace standin {

// A detail of one note of the entry.
struct NoteDetail {
    u16 noteID = 0;
    u32 tag = 0;
    FragmentId fragment = 0;
    FragmentId second = 0;  // of a tie: <tied>, while fragment is <tie>
};

struct SpannerAtEntry {
    u16 shape = 0;
    FragmentId fragment = 0;
    bool isStart = false;
    SpannerNote note{};
    EDTSmartShapeEnd other{};
};

struct LyricAtEntry {
    FragmentId fragment = 0;
    bool joined = false;  // came here after the import
};

struct EntryTexts {
    std::vector<EntryText> texts;  // articulations, ornaments, notations, rest's extras
    std::vector<LyricAtEntry> lyrics;
    std::vector<SpannerAtEntry> spanners;
    std::vector<NoteDetail> notes;
    FragmentId beams = 0;  // the first on record counts
    FragmentId stem = 0;
    std::vector<TupletText> tuplets;  // those with brackets

    void Clear();
};

// Replaces the content of texts. If equal notes of a chord have their details all on the first,
// they are distributed again. A spanner whose other end is no longer marked is left out.
void GatherEntryTexts(const Document& document, const EXENTRY& entry, EntryTexts& texts);

// The brackets in a tuplet's record.
TupletText TupletTextOf(const Bytes& record);

// Calls visit(element) for each element of a bundle: attributes first, then elements.
template <typename Visit>
void ForEachElement(std::string_view bundle, Visit visit) {
    for (std::size_t at = bundle.find('<'); at < bundle.size(); at = bundle.find('<', at)) {
        const std::size_t end = NodeEnd(bundle, at);
        visit(bundle.substr(at, end - at));
        at = end;
    }
}

// The attributes at the start of a bundle.
inline std::string_view BundleAttributes(std::string_view bundle) {
    return bundle.substr(0, bundle.find('<'));
}

// The note of the entry that has the spanner's end, from 0; the first if that note is gone.
int NoteOfSpanner(const EXENTRY& entry, const SpannerAtEntry& end);

}  // namespace standin
