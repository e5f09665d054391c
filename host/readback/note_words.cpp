#include "host/readback/note_words.h"

#include <string_view>

#include "host/readback/canonical_xml.h"

namespace standin::readback {

namespace {

std::string AlterationWords(const std::string& alter) {
    static constexpr struct {
        std::string_view value;
        std::string_view sign;
    } kSigns[] = {{"", ""}, {"0", ""}, {"1", "#"}, {"2", "##"}, {"-1", "b"}, {"-2", "bb"}};
    for (const auto& [value, sign] : kSigns) {
        if (alter == value) {
            return std::string{sign};
        }
    }
    return '(' + alter + ')';
}

}  // namespace

std::string PitchWords(pugi::xml_node note) {
    if (const pugi::xml_node pitch = note.child("pitch")) {
        return TrimmedValue(pitch.child("step")) +
               AlterationWords(TrimmedValue(pitch.child("alter"))) +
               TrimmedValue(pitch.child("octave"));
    }
    const pugi::xml_node unpitched = note.child("unpitched");
    const std::string at = TrimmedValue(unpitched.child("display-step")) +
                           TrimmedValue(unpitched.child("display-octave"));
    return at.empty() ? "unpitched" : "unpitched " + at;
}

std::string LengthWords(pugi::xml_node note) {
    std::string words = TrimmedValue(note.child("type"));
    if (words.empty()) {
        words = "note";
    }
    const pugi::xml_node dot = note.child("dot");
    if (dot) {
        words.insert(0, dot.next_sibling("dot") ? "double-dotted " : "dotted ");
    }
    return note.child("grace") ? "grace " + words : words;
}

}  // namespace standin::readback
