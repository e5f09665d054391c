#include "tests/unit/support/made_up_xml.h"

#include <algorithm>

#include "tests/unit/support/made_up_lines.h"
#include "tests/unit/support/made_up_music.h"

namespace standin {
namespace {

std::string Element(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}
std::string Element(const std::string& name, int content) {
    return Element(name, std::to_string(content));
}

class PartWriter {
public:
    PartWriter(const MadeUpShape& shape, const MadeUpPart& part) : m_shape{shape}, m_part{part} {}

    std::string Text() const {
        const std::vector<MadeUpMeasure>& measures = m_part.measures;
        std::string text;
        for (std::size_t i = 0; i < measures.size(); ++i) {
            const std::vector<MadeUpStream>& streams = measures[i].streams;
            if (std::ranges::all_of(streams,
                                    [](const MadeUpStream& stream) { return stream.leftOut; })) {
                break;
            }
            const bool isUpbeat = i == 0 && m_shape.upbeat;
            text += "<measure number=\"" +
                    std::to_string(static_cast<int>(i) + (m_shape.upbeat ? 0 : 1)) +
                    (isUpbeat ? "\" implicit=\"yes\">\n" : "\">\n");
            text += i == 0 ? Attributes() : "";
            int position = 0;
            for (const MadeUpStream& stream : streams) {
                if (stream.leftOut) {
                    continue;
                }
                text += position > 0 ? Move("backup", position) : "";
                text += stream.silence > 0 ? Move("forward", stream.silence) : "";
                for (const MadeUpEvent& event : stream.events) {
                    text += event.leftOut ? "" : Text(event);
                }
                position = stream.End();
            }
            text +=
                position < measures[i].length ? Move("forward", measures[i].length - position) : "";
            text += "</measure>\n";
        }
        return text;
    }

private:
    std::string Attributes() const {
        std::string text =
            Element("divisions", kQuarter) + Element("key", Element("fifths", 0)) +
            Element("time", Element("beats", m_shape.beats) + Element("beat-type", 4)) +
            Element("staves", m_part.staves);
        for (int staff = 1; staff <= m_part.staves; ++staff) {
            text += "<clef number=\"" + std::to_string(staff) +
                    (staff == 1 ? "\"><sign>G</sign><line>2</line></clef>"
                                : "\"><sign>F</sign><line>4</line></clef>");
        }
        return Element("attributes", text) + "\n";
    }

    static std::string Move(const std::string& name, int length) {
        return Element(name, Element("duration", length)) + "\n";
    }

    std::string Text(const MadeUpEvent& event) const {
        std::string text;
        for (const std::string& direction : event.directions) {
            text += direction;
        }
        if (!event.IsNote()) {
            return text + NoteText(event, nullptr, true);
        }
        for (const MadeUpPitch& pitch : event.pitches) {
            text += NoteText(event, &pitch, &pitch == &event.pitches.front());
        }
        return text;
    }

    std::string NoteText(const MadeUpEvent& event, const MadeUpPitch* pitch, bool isFirst) const {
        const MadeUpValue& value = event.value;
        std::string text = event.grace ? "<grace/>" : "";
        text += isFirst ? "" : "<chord/>";
        text += pitch == nullptr ? "<rest/>" : PitchText(*pitch);
        text += event.grace ? "" : Element("duration", value.length);
        if (pitch != nullptr) {
            text += pitch->tieFrom ? "<tie type=\"stop\"/>" : "";
            text += pitch->tieTo ? "<tie type=\"start\"/>" : "";
        }
        text += Element("voice", event.voice) + Element("type", value.type);
        text += value.dots > 0 ? "<dot/>" : "";
        if (value.actual != 1) {
            text += Element("time-modification", Element("actual-notes", value.actual) +
                                                     Element("normal-notes", value.normal));
        }
        text += (m_part.staves > 1 ? Element("staff", event.staff) : "") +
                NotationsText(event, pitch, isFirst);
        if (isFirst) {
            for (const std::string& ornament : event.ornaments) {
                text += ornament;
            }
        }
        return Element("note", text) + "\n";
    }

    static std::string PitchText(const MadeUpPitch& pitch) {
        return Element("pitch", Element("step", pitch.step) +
                                    (pitch.alter != 0 ? Element("alter", pitch.alter) : "") +
                                    Element("octave", pitch.octave));
    }

    static std::string NotationsText(const MadeUpEvent& event, const MadeUpPitch* pitch,
                                     bool isFirst) {
        std::string text;
        if (pitch != nullptr) {
            text += pitch->tieFrom ? "<tied type=\"stop\"/>" : "";
            text += pitch->tieTo ? "<tied type=\"start\"/>" : "";
        }
        if (isFirst) {
            for (const std::string& notation : event.notations) {
                text += notation;
            }
        }
        return text.empty() ? "" : Element("notations", text);
    }

    const MadeUpShape& m_shape;
    const MadeUpPart& m_part;
};

}  // namespace

MadeUpXml MakeUpXml(u32 seed, const MadeUpWishes& wishes) {
    MadeUpChances chances{seed, wishes.without};
    const int parts = 1 + chances.Below(10) / 8;
    MadeUpShape shape;
    shape.measures = 1 + chances.Below(4);
    shape.beats = 2 + chances.Below(3);
    shape.upbeat = chances.Chance(25);
    shape.allBracketed = wishes.allBracketed;
    std::string list;
    std::string music;
    for (int number = 1; number <= parts; ++number) {
        MadeUpPart part = MakeUpPart(shape, chances);
        AddTies(part, chances);
        AddSlurs(part, chances);
        AddDirections(part, "wedge", chances);
        AddDirections(part, "octave-shift", chances);
        const std::string id = "P" + std::to_string(number);
        list += "<score-part id=\"" + id + "\">" + Element("part-name", id) + "</score-part>";
        music += "<part id=\"" + id + "\">\n" + PartWriter{shape, part}.Text() + "</part>\n";
    }
    return {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<score-partwise version=\"4.0\">\n" +
                Element("part-list", list) + "\n" + music + "</score-partwise>\n",
            chances.Features()};
}

}  // namespace standin
