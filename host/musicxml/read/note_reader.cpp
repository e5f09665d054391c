#include "host/musicxml/read/note_reader.h"

#include <cstring>
#include <iterator>

#include "host/musicxml/pitch.h"
#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

// No note lasts longer.
constexpr i64 kLongestInQuarters = 10000;

std::optional<int> StepOf(std::string_view name) {
    constexpr std::string_view kSteps = "CDEFGAB";
    const std::size_t step = name.size() == 1 ? kSteps.find(name.front()) : kSteps.npos;
    return step == kSteps.npos ? std::nullopt : std::optional{static_cast<int>(step)};
}

NoteRatio RatioOf(pugi::xml_node timeModification) {
    const auto count = [&](const char* name) {
        return IntegerOf(timeModification.child_value(name)).value_or(0);
    };
    const NoteType unit = NoteTypeOf(Trimmed(timeModification.child_value("normal-type")));
    const auto dots = timeModification.children("normal-dot");
    return {count("actual-notes"), count("normal-notes"),
            NotatedLength(unit, static_cast<int>(std::distance(dots.begin(), dots.end())))};
}

bool IsPlain(std::string_view restElement) {
    return restElement == "<rest/>" || restElement == "<rest />" || restElement == "<rest></rest>";
}

}  // namespace

Problem NoteReader::ReadDuration(pugi::xml_node duration, Rational divisions,
                                 Rational& length) const {
    const auto value = DecimalOf(duration.child_value());
    if (!value || value->num < 0) {
        return {Text::kBadDuration, OffsetOf(duration)};
    }
    if (divisions.IsZero()) {
        return {Text::kNoDivisions, OffsetOf(duration)};
    }
    const Rational numerator = Rational::Of(value->num * divisions.den, divisions.num);
    length = numerator.IsValid() ? Rational::Of(numerator.num, numerator.den * value->den)
                                 : Rational::Invalid();
    if (!length.IsValid() || length.num / length.den > kLongestInQuarters) {
        return {Text::kDurationTooLong, OffsetOf(duration)};
    }
    return {};
}

Problem NoteReader::KeepPitchElement(pugi::xml_node element, NoteElement& note) {
    const FragmentId id = m_pitches.Intern(TextOf(m_text, element));
    if (id > 0xFFFF) {
        return {Text::kTooManyPitches, OffsetOf(element)};
    }
    note.pitchFragment = static_cast<u16>(id);
    return {};
}

Problem NoteReader::ReadPitch(pugi::xml_node pitch, int fifths, NoteElement& note) {
    const auto step = StepOf(Trimmed(pitch.child_value("step")));
    const auto octave = IntegerOf(pitch.child_value("octave"));
    if (!step || !octave) {
        return {Text::kBadPitch, OffsetOf(pitch)};
    }
    WrittenPitch written{*step, *octave, 0};
    const pugi::xml_node alter = pitch.child("alter");
    const Rational semitones = DecimalOf(alter.child_value()).value_or(Rational{});
    written.alter = static_cast<int>(semitones.num / semitones.den);
    const auto field = PitchField(written, fifths);
    note.pitchField = field.value_or(0);
    const bool isExact = semitones.den == 1 && field && (!alter || semitones.num != 0);
    return isExact ? Problem{} : KeepPitchElement(pitch, note);
}

void NoteReader::ReadUnpitched(pugi::xml_node unpitched, int fifths, NoteElement& note) {
    const auto step = StepOf(Trimmed(unpitched.child_value("display-step")));
    const auto octave = IntegerOf(unpitched.child_value("display-octave"));
    const WrittenPitch middleLine{6, 4, 0};
    const WrittenPitch written = step && octave ? WrittenPitch{*step, *octave, 0} : middleLine;
    note.pitchField = PitchField(written, fifths).value_or(0);
}

Problem NoteReader::Read(pugi::xml_node node, Rational divisions, int fifths, NoteElement& note) {
    note = {};
    note.node = node;
    note.hidden = std::strcmp(node.attribute("print-object").value(), "no") == 0;
    pugi::xml_node duration;
    bool hasPitch = false;
    Problem problem;
    for (const pugi::xml_node child : node.children()) {
        const std::string_view name{child.name()};
        if (name == "pitch") {
            problem = ReadPitch(child, fifths, note);
            hasPitch = true;
        } else if (name == "unpitched") {
            ReadUnpitched(child, fifths, note);
            problem = KeepPitchElement(child, note);
            hasPitch = true;
        } else if (name == "rest") {
            note.rest = true;
            const std::string_view element = TextOf(m_text, child);
            note.restElement = IsPlain(element) ? 0 : m_fragments.Intern(element);
        } else if (name == "duration") {
            duration = child;
        } else if (name == "chord") {
            note.chord = true;
        } else if (name == "grace") {
            note.grace = true;
        } else if (name == "voice") {
            note.voice = Trimmed(child.child_value());
        } else if (name == "staff") {
            note.staff = IntegerOf(child.child_value()).value_or(0);
        } else if (name == "type") {
            note.type = NoteTypeOf(Trimmed(child.child_value()));
        } else if (name == "dot") {
            ++note.dots;
        } else if (name == "time-modification") {
            note.timeModification = m_fragments.Intern(TextOf(m_text, child));
            note.ratio = RatioOf(child);
        }
        if (problem) {
            return problem;
        }
    }
    if (!note.rest && !hasPitch) {
        return {Text::kNoPitch, OffsetOf(node)};
    }
    if (note.staff < 1) {
        return {Text::kBadStaff, OffsetOf(node)};
    }
    if (note.grace) {
        return {};
    }
    if (!duration) {
        return {Text::kNoDuration, OffsetOf(node), {node.name()}};
    }
    return ReadDuration(duration, divisions, note.length);
}

}  // namespace standin
