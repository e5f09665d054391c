// A MusicXML score as a host document, with everything needed to write it back.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "host/musicxml/fragments.h"
#include "host/musicxml/lines.h"
#include "host/musicxml/read_warnings.h"
#include "host/musicxml/written_forms.h"
#include "host/musicxml/xml/xml_text.h"
#include "host/score/document.h"
#include "host/score/time/rational.h"

namespace standin {

// The layers that the host knows. A voice without a free layer is carried: its frames are in
// further layers that no host function reaches, so no merge or Replace changes it.
inline constexpr u16 kLayers = 4;

// A child of <measure> other than a note, backup or forward, and its time.
struct MeasureItem {
    std::size_t begin = 0;  // its text in the score's text
    std::size_t end = 0;
    Rational time{};
    Rational offset{};           // that it is displayed later, by its own <offset>
    bool closesMeasure = false;  // the right barline
    Rational divisions{};        // that it sets; 0 = none
    // The entry of the next note in its stream, else of the previous one; 0 = none, between
    // <backup> and <forward>.
    u32 before = 0;
    u32 after = 0;
    u16 staff = 0;      // of that entry
    std::string voice;  // likewise
    u32 lastEntry = 0;  // the last one of the measure before it; 0 = none
};

// One <measure> of one part.
struct PartMeasure {
    std::size_t bodyBegin = 0;  // its text between the measure's tags, in the score's text
    std::size_t bodyEnd = 0;
    Rational divisions{1, 1};       // a quarter note, in force where the measure starts
    Rational grid{1, 1};            // likewise, where it ends
    Rational length{};              // the latest time of its content
    u32 lastEntry = 0;              // the last entry of the file, 0 = none; later ones are new
    bool changesDivisions = false;  // by <attributes> that contain nothing else and are not an item
    u16 layers = kLayers;           // layers from kLayers on are carried voices
    std::vector<MeasureItem> items;
};

// One staff of a part: the voice of each layer.
struct StaffVoices {
    u16 staff = 0;
    std::array<std::string, kLayers> names;             // empty = no voice yet
    std::map<std::pair<u16, u16>, std::string> others;  // by measure and layer, where different
    std::unordered_map<u32, std::string> guests{};  // by entry, where one shares another's layer

    // Empty when no voice of that layer is known.
    const std::string& Name(u16 measure, u16 layer) const;
    // The voice of an entry in that layer.
    const std::string& NameAt(u16 measure, u16 layer, u32 entry) const;
};

struct ScorePart {
    std::string id;
    std::string name;
    std::vector<StaffVoices> staves;  // from the top; at least one
    // The measures where brackets of tuplets start and stop, of those that cross a barline.
    std::map<u32, std::pair<u16, u16>> crossingBrackets;
    std::vector<PartMeasure> measures;
    PartLines lines;
    // Entries that the file has as <chord> notes of one on another staff.
    std::unordered_set<u32> chordParts;
    bool namesVoices = false;     // its notes say their voice
    bool namesStaves = false;     // and their staff
    bool namesDivisions = false;  // its durations have a unit that the file gives
};

// A carried entry's <note> elements as in the score's text.
struct CarriedText {
    std::size_t begin = 0;
    std::size_t end = 0;
    Rational divisions{};  // of its durations
};

struct ImportedScore {
    std::string text;  // the file's XML in UTF-8; fragments refer into it
    TextFormat format;
    ReadWarnings warnings;
    std::string archive;        // the .mxl's bytes; empty for a plain file
    std::string archiveMember;  // the score in it
    std::vector<ScorePart> parts;
    Fragments fragments;
    Fragments pitches;  // unpitched and microtonal notes, by the second field of a note
    WrittenForms forms;
    std::unordered_map<u32, CarriedText> carried;  // by entry
    // Text expression definitions, by text and whether they belong to an entry.
    std::map<std::pair<FragmentId, bool>, u16> definitions;
    Document* document = nullptr;
    std::unique_ptr<Document> ownDocument;  // unless it was imported into an existing document
};

}  // namespace standin
