#include "tests/unit/support/made_up_music.h"

#include <algorithm>
#include <utility>

namespace standin {
namespace {

constexpr const char* kSteps[] = {"C", "D", "E", "F", "G", "B"};

class PartMaker {
public:
    PartMaker(const MadeUpShape& shape, MadeUpChances& chances)
        : m_shape{shape}, m_chances{chances} {}

    MadeUpPart Run() {
        m_part.staves = m_chances.Chance(55) ? 2 : 1;
        m_crossing = m_part.staves == 2 && m_chances.Chance(50);
        const std::vector<std::pair<int, int>> voices = Voices();
        for (int number = 0; number < m_shape.measures; ++number) {
            m_part.measures.push_back(MakeMeasure(number, voices));
        }
        LeaveOutMeasures();
        return std::move(m_part);
    }

private:
    // At the end.
    void LeaveOutMeasures() {
        std::vector<MadeUpMeasure>& measures = m_part.measures;
        bool leftOut = false;
        for (std::size_t i = 1; i < measures.size(); ++i) {
            leftOut = !m_chances.Wants(true) || leftOut;
            for (MadeUpStream& stream : measures[i].streams) {
                stream.leftOut = stream.leftOut || leftOut;
                for (MadeUpEvent& event : stream.events) {
                    event.leftOut = event.leftOut || leftOut;
                }
            }
        }
    }

    // Each with its staff. Four at most go over a staff.
    std::vector<std::pair<int, int>> Voices() {
        std::vector<std::pair<int, int>> voices;
        for (int staff = 1; staff <= m_part.staves; ++staff) {
            const int count = m_crossing ? 1 + m_chances.Below(2)
                                         : 1 + m_chances.Below(m_chances.Chance(70) ? 2 : 4);
            for (int voice = 1; voice <= count; ++voice) {
                voices.emplace_back(4 * (staff - 1) + voice, staff);
            }
        }
        return voices;
    }

    MadeUpMeasure MakeMeasure(int number, const std::vector<std::pair<int, int>>& voices) {
        MadeUpMeasure measure;
        measure.length = number == 0 && m_shape.upbeat ? kQuarter : m_shape.beats * kQuarter;
        const auto below = [this](int end) { return m_chances.Below(end); };
        const MadeUpRhythm shared[] = {MakeUpRhythm(measure.length, below),
                                       MakeUpRhythm(measure.length, below)};
        for (const auto& [voice, staff] : voices) {
            const bool isFirst = voice % 4 == 1;
            const bool comesIn = isFirst || m_chances.Wants(m_chances.Chance(75));
            MadeUpStream stream{voice, staff, 0, !comesIn, {}};
            if (!isFirst && m_chances.Chance(20)) {
                stream.silence = m_chances.Below(measure.length / kQuarter) * kQuarter;
            }
            MadeUpRhythm rhythm = shared[m_chances.Below(2)];
            if (stream.silence > 0 || m_chances.Chance(30)) {
                rhythm = MakeUpRhythm(measure.length - stream.silence, below);
            }
            FillStream(stream, rhythm, number);
            measure.streams.push_back(std::move(stream));
        }
        return measure;
    }

    void FillStream(MadeUpStream& stream, const MadeUpRhythm& rhythm, int measure) {
        int time = stream.silence;
        std::vector<std::size_t> places;  // of the rhythm's values among the events
        int staff = stream.staff;
        for (const MadeUpValue& value : rhythm.values) {
            if (m_chances.Wants(m_crossing && stream.voice % 4 == 1 && m_chances.Chance(35))) {
                staff = 3 - staff;
            }
            const bool hasGrace = m_chances.Chance(8);
            if (hasGrace) {
                stream.events.push_back(GraceNote(stream.voice, staff, measure, time));
                stream.events.back().leftOut = !m_chances.Wants(true) || stream.leftOut;
            }
            places.push_back(stream.events.size());
            MadeUpEvent event{.value = value, .start = time, .measure = measure, .staff = staff};
            event.voice = stream.voice;
            event.leftOut = stream.leftOut;
            const bool isRest = m_chances.Chance(18);
            std::vector<MadeUpPitch> pitches = Pitches();
            event.pitches = isRest ? std::vector<MadeUpPitch>{} : std::move(pitches);
            event.silent = !m_chances.Wants(true);
            AddMarks(event);
            stream.events.push_back(std::move(event));
            time += value.length;
        }
        for (const MadeUpTuplet& tuplet : rhythm.tuplets) {
            Bracket(stream.events[places[tuplet.first]], stream.events[places[tuplet.last]],
                    tuplet);
        }
    }

    MadeUpEvent GraceNote(int voice, int staff, int measure, int time) {
        MadeUpEvent event{
            .value = {.type = "eighth"}, .start = time, .measure = measure, .staff = staff};
        event.voice = voice;
        event.grace = true;
        event.pitches = {SomePitch()};
        return event;
    }

    MadeUpPitch SomePitch() {
        return {kSteps[m_chances.Below(6)], m_chances.Chance(15) ? 1 : 0, 3 + m_chances.Below(3)};
    }

    std::vector<MadeUpPitch> Pitches() {
        std::vector<MadeUpPitch> pitches = {SomePitch()};
        for (int more = m_chances.Chance(25) ? 1 + m_chances.Below(2) : 0; more > 0; --more) {
            const MadeUpPitch pitch = SomePitch();
            const bool isThere = std::ranges::any_of(pitches, [&](const MadeUpPitch& p) {
                return p.step == pitch.step && p.octave == pitch.octave;
            });
            if (m_chances.Wants(true) && !isThere) {
                pitches.push_back(pitch);
            }
        }
        return pitches;
    }

    void AddMarks(MadeUpEvent& event) {
        const bool articulation = m_chances.Wants(m_chances.Chance(10));
        const bool lyric = m_chances.Wants((event.voice - 1) % 4 < 2 && m_chances.Chance(15));
        if (!event.IsNote()) {
            return;
        }
        if (articulation) {
            event.notations.push_back("<articulations><staccato/></articulations>");
        }
        if (lyric) {
            event.ornaments.push_back("<lyric number=\"" + std::to_string(event.voice % 4) +
                                      "\"><syllabic>single</syllabic><text>la" +
                                      std::to_string(++m_syllables) + "</text></lyric>");
        }
    }

    // With its own ratio, which the time modification of a nested tuplet does not give.
    static std::string TupletStart(int number, const MadeUpTuplet& tuplet) {
        std::string start = NumberedElement("tuplet", "start", number);
        start.erase(start.size() - 2);
        return start + "><tuplet-actual><tuplet-number>" + std::to_string(tuplet.actual) +
               "</tuplet-number></tuplet-actual><tuplet-normal><tuplet-number>" +
               std::to_string(tuplet.normal) + "</tuplet-number></tuplet-normal></tuplet>";
    }

    // Without a bracket, only the time modification defines the notes.
    void Bracket(MadeUpEvent& first, MadeUpEvent& last, const MadeUpTuplet& tuplet) {
        if (!tuplet.isInner) {
            m_bracketed = m_chances.Wants(!m_chances.Chance(15)) || m_shape.allBracketed;
        }
        if (m_bracketed) {
            const int number = tuplet.isInner ? 2 : 1;
            first.notations.push_back(TupletStart(number, tuplet));
            last.notations.push_back(NumberedElement("tuplet", "stop", number));
        }
    }

    const MadeUpShape& m_shape;
    MadeUpChances& m_chances;
    MadeUpPart m_part;
    bool m_crossing = false;  // voices go to the other staff and back
    bool m_bracketed = true;  // the outer tuplet that was made last
    int m_syllables = 0;
};

}  // namespace

std::vector<MadeUpEvent*> MadeUpPart::Events() {
    std::vector<MadeUpEvent*> events;
    for (MadeUpMeasure& measure : measures) {
        for (MadeUpStream& stream : measure.streams) {
            for (MadeUpEvent& event : stream.events) {
                events.push_back(&event);
            }
        }
    }
    return events;
}

MadeUpPart MakeUpPart(const MadeUpShape& shape, MadeUpChances& chances) {
    return PartMaker{shape, chances}.Run();
}

std::string NumberedElement(const std::string& name, const std::string& type, int number) {
    return "<" + name + " type=\"" + type + "\" number=\"" + std::to_string(number) + "\"/>";
}

}  // namespace standin
