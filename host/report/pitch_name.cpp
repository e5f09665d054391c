#include "host/report/pitch_name.h"

#include <cstdlib>
#include <string_view>

#include "host/musicxml/xml/xml_node.h"
#include "host/texts/texts.h"

namespace standin {

std::string PitchName(pugi::xml_node element) {
    const auto value = [element](const char* child) {
        return std::string{Trimmed(element.child_value(child))};
    };
    if (std::string_view{element.name()} != "pitch") {
        const std::string at = value("display-step") + value("display-octave");
        return at.empty() ? Say(Text::kUnpitched, {}) : Say(Text::kUnpitchedAt, {at});
    }
    const std::string alter = value("alter");
    const auto semitones = DecimalOf(alter.empty() ? "0" : alter);
    if (!semitones || semitones->den != 1) {
        return value("step") + '(' + alter + ')' + value("octave");
    }
    std::string name = value("step");
    name.append(static_cast<std::size_t>(std::abs(semitones->num)), semitones->num < 0 ? 'b' : '#');
    return name + value("octave");
}

}  // namespace standin
