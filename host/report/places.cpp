#include "host/report/places.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "host/musicxml/pitch.h"
#include "host/report/pitch_name.h"
#include "host/texts/texts.h"
#include "platform/text.h"

namespace standin {

std::vector<std::string> StaffNames(const ImportedScore& score) {
    std::vector<std::string> names{std::string{}};
    for (const ScorePart& part : score.parts) {
        for (std::size_t staff = 0; staff < part.staves.size(); ++staff) {
            if (part.name.empty()) {
                names.push_back(Say(Text::kStaffOfScore, {std::to_string(names.size())}));
            } else if (part.staves.size() == 1) {
                names.push_back(part.name);
            } else {
                names.push_back(Say(Text::kStaffOfPart, {part.name, std::to_string(staff + 1)}));
            }
        }
    }
    return names;
}

std::string PrintedNumber(const Document& document, u16 measure) {
    return platform::Utf8Of(document.MeasureNumberText(measure));
}

std::string NameOfNote(const ImportedScore& score, u16 measure, const EXNOTE& note) {
    if (note.second != 0) {
        const std::string_view element = score.pitches[note.second];
        pugi::xml_document parsed;
        parsed.load_buffer(element.data(), element.size());
        return PitchName(parsed.document_element());
    }
    const int fifths = FifthsOfKeyWord(score.document->Measure(measure).key);
    const WrittenPitch pitch = PitchOfField(note.pitch, fifths);
    std::string name(1, "CDEFGAB"[pitch.step]);
    name.append(static_cast<std::size_t>(std::abs(pitch.alter)), pitch.alter < 0 ? 'b' : '#');
    return name + std::to_string(pitch.octave);
}

double BeatAt(const Document& document, u16 measure, i32 onset) {
    const double beat = document.Measure(measure).beatDuration;
    return std::round((onset / beat + 1) * 1000) / 1000;
}

std::string BeatText(double beat) {
    char text[32];
    std::snprintf(text, sizeof(text), "%g", beat);
    return text;
}

}  // namespace standin
