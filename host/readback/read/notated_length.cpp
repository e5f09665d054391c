#include "host/readback/read/notated_length.h"

#include <array>
#include <string>
#include <string_view>

#include "host/readback/read/canonical_xml.h"

namespace standin::readback {

namespace {
// From the longest; each is half as long as the previous one.
constexpr std::array<std::string_view, 14> kTypes{"maxima",  "long",   "breve", "whole", "half",
                                                  "quarter", "eighth", "16th",  "32nd",  "64th",
                                                  "128th",   "256th",  "512th", "1024th"};
constexpr i64 kQuartersOfMaxima = 32;
}  // namespace

ExactTime NotatedLength(pugi::xml_node note) {
    const std::string type = TrimmedValue(note.child("type"));
    ExactTime length;
    for (std::size_t i = 0; i < kTypes.size(); ++i) {
        if (kTypes[i] == type) {
            length = {kQuartersOfMaxima, i64{1} << i};
        }
    }
    ExactTime dot = length;
    for (pugi::xml_node node = note.child("dot"); node; node = node.next_sibling("dot")) {
        dot = dot / ExactTime{2, 1};
        length = length + dot;
    }
    const pugi::xml_node ratio = note.child("time-modification");
    const i64 actual = ratio.child("actual-notes").text().as_int();
    const i64 normal = ratio.child("normal-notes").text().as_int();
    return actual > 0 && normal > 0 ? length / ExactTime{actual, normal} : length;
}

}  // namespace standin::readback
