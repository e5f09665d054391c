#include "host/readback/note_words.h"

#include <string_view>

namespace standin::readback {

namespace {

// Trimmed, since values may stand on lines of their own.
std::string ValueOf(pugi::xml_node node) {
    constexpr std::string_view kSpace = " \t\r\n";
    const std::string_view text = node.child_value();
    const std::size_t first = text.find_first_not_of(kSpace);
    return first == std::string_view::npos
               ? std::string{}
               : std::string{text.substr(first, text.find_last_not_of(kSpace) + 1 - first)};
}

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
        return ValueOf(pitch.child("step")) + AlterationWords(ValueOf(pitch.child("alter"))) +
               ValueOf(pitch.child("octave"));
    }
    const pugi::xml_node unpitched = note.child("unpitched");
    const std::string at =
        ValueOf(unpitched.child("display-step")) + ValueOf(unpitched.child("display-octave"));
    return at.empty() ? "unpitched" : "unpitched " + at;
}

std::string LengthWords(pugi::xml_node note) {
    std::string words = ValueOf(note.child("type"));
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
