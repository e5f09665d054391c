#include "host/musicxml/music/music_words.h"

#include <array>
#include <cstdlib>

#include "host/musicxml/lines.h"
#include "host/musicxml/note_values.h"
#include "host/musicxml/read/spanners.h"
#include "host/musicxml/xml/xml_node.h"
#include "host/musicxml/xml/xml_text.h"

namespace standin {
namespace {

constexpr std::size_t kLongestText = 60;

// A position as a beat from 1, at most three decimals.
std::string Beat(i32 position) {
    const i64 thousandths = (i64{position} * 1000 + kQuarterNote / 2) / kQuarterNote + 1000;
    std::string text = std::to_string(thousandths / 1000);
    std::string decimals = std::to_string(1000 + thousandths % 1000).substr(1);
    while (!decimals.empty() && decimals.back() == '0') {
        decimals.pop_back();
    }
    return decimals.empty() ? text : text + '.' + decimals;
}

// Takes the part between the marks out, marks included.
void Erase(std::string& text, std::string_view from, std::string_view to) {
    const std::size_t begin = text.find(from);
    const std::size_t end = begin == std::string::npos ? begin : text.find(to, begin);
    if (end != std::string::npos) {
        text.erase(begin, end + to.size() - begin);
    }
}

// The item without the numbers of its lines.
std::string WithoutNumbers(std::string_view xml) {
    std::string text;
    for (std::size_t at = 0; at < xml.size();) {
        const std::size_t end =
            xml[at] == '<' ? TagEnd(xml, at) : std::min(xml.find('<', at), xml.size());
        const std::string_view piece = xml.substr(at, end - at);
        const bool isLine = piece.starts_with('<') && LineKindOf(ElementName(piece)).has_value();
        text += isLine ? WithAttribute(piece, "number", {}) : std::string{piece};
        at = end;
    }
    return text;
}

std::string WithoutSpace(std::string_view xml) {
    std::string text;
    text.reserve(xml.size());
    for (std::size_t at = 0; at < xml.size();) {
        const std::size_t tag = std::min(xml.find('<', at), xml.size());
        const std::string_view content = xml.substr(at, tag - at);
        text += Trimmed(content).empty() ? std::string_view{} : content;
        if (tag == xml.size()) {
            break;
        }
        const std::size_t end = TagEnd(xml, tag);
        std::string_view element = xml.substr(tag, end - tag);
        const bool closesItself = element.ends_with("/>");
        element.remove_suffix(std::min<std::size_t>(closesItself ? 2 : 1, element.size()));
        text.append(Trimmed(element)).append(closesItself ? "/>" : ">");
        at = end;
    }
    return text;
}

}  // namespace

std::string CanonicalText(std::string_view xml) {
    std::string text = WithoutSpace(xml);
    const std::size_t inner = text.starts_with("<notations") ? TagEnd(text, 0) : 0;
    if (text.starts_with('<') && IsSpanner(ElementName(std::string_view{text}.substr(inner)))) {
        text = text.substr(0, inner) +
               WithAttribute(std::string_view{text}.substr(inner), "number", {});
    }
    if (text.starts_with("<direction")) {
        Erase(text, "<voice>", "</voice>");
    }
    if (text.starts_with("<direction") || text.starts_with("<harmony")) {
        Erase(text, "<offset", "</offset>");  // counted in the position
    }
    return text.starts_with("<direction") || text.starts_with("<barline") ? WithoutNumbers(text)
                                                                          : text;
}

std::string WordsForPlace(const MusicEntry& entry) {
    return "staff " + std::to_string(entry.staff) + ", measure " + std::to_string(entry.measure) +
           ", beat " + Beat(entry.onset);
}

std::string WordsForLength(const MusicEntry& entry) {
    const NoteValue value = ValueOfLength(entry.duration);
    std::string words{value.type == 0 ? std::string_view{"note"} : NoteTypeName(value.type)};
    if (value.dots > 0) {
        words.insert(0, value.dots == 1 ? "dotted " : "double-dotted ");
    }
    return entry.grace != 0 ? "grace " + words : words;
}

std::string WordsForNote(const MusicEntry& entry, const MusicNote& note) {
    if (note.pitchElement.starts_with("<unpitched")) {
        return "unpitched " + WordsForLength(entry);
    }
    const WrittenPitch& pitch = note.pitch;
    constexpr std::string_view kSteps = "CDEFGAB";
    std::string words(1, kSteps[static_cast<std::size_t>(pitch.step)]);
    words.append(static_cast<std::size_t>(std::abs(pitch.alter)), pitch.alter > 0 ? '#' : 'b');
    return words + std::to_string(pitch.octave) + ' ' + WordsForLength(entry);
}

std::string WordsForText(std::string_view xml) {
    std::string text = CanonicalText(xml);
    if (text.size() <= kLongestText) {
        return text;
    }
    std::size_t end = kLongestText;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end;  // a character of several bytes is not cut
    }
    return text.substr(0, end) + "...";
}

}  // namespace standin
