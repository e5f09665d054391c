#include "host/readback/read/note_words.h"

#include <string_view>
#include <utility>

#include "host/readback/read/canonical_xml.h"
#include "host/texts/texts.h"

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
    return at.empty() ? std::string{Say(Text::kUnpitched)} : Say(Text::kUnpitchedAt, {at});
}

std::string LengthWords(pugi::xml_node note) {
    static constexpr std::pair<std::string_view, Text> kTypes[] = {
        {"breve", Text::kBreve},     {"whole", Text::kWhole},   {"half", Text::kHalf},
        {"quarter", Text::kQuarter}, {"eighth", Text::kEighth}, {"16th", Text::k16th},
        {"32nd", Text::k32nd},       {"64th", Text::k64th},     {"", Text::kNoLength},
    };
    std::string words = TrimmedValue(note.child("type"));
    for (const auto& [type, text] : kTypes) {
        if (words == type) {
            words = Say(text);
            break;
        }
    }
    if (const pugi::xml_node dot = note.child("dot")) {
        words = Say(dot.next_sibling("dot") ? Text::kDoubleDotted : Text::kDotted, {words});
    }
    return note.child("grace") ? Say(Text::kGraceLength, {words}) : words;
}

}  // namespace standin::readback
