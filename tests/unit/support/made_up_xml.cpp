#include "tests/unit/support/made_up_xml.h"

#include <algorithm>
#include <map>
#include <random>
#include <utility>

#include "tests/unit/support/made_up_rhythm.h"

namespace standin {
namespace {

using Texts = std::vector<std::string>;

std::string Element(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}
std::string Element(const std::string& name, int content) {
    return Element(name, std::to_string(content));
}
std::string Numbered(const std::string& name, const char* type, int number) {
    return "<" + name + " type=\"" + type + "\" number=\"" + std::to_string(number) + "\"/>";
}

struct Pitch {
    std::string step;
    int alter = 0;
    int octave = 4;
    bool tieFrom = false;  // the one before
    bool tieTo = false;    // the next
};

// A chord, a note, a rest or a grace note.
struct Event {
    std::vector<Pitch> pitches = {};  // none: a rest
    MadeUpValue value = {};
    int start = 0;    // from the barline
    int measure = 0;  // from 0
    int staff = 1;
    int voice = 1;
    bool grace = false;
    bool leftOut = false;
    bool silent = false;    // its pitches are left out
    Texts notations = {};   // of the first note
    Texts ornaments = {};   // lyrics, behind the notations
    Texts directions = {};  // before it

    bool IsNote() const { return !pitches.empty() && !silent; }
    bool CarriesLines() const { return IsNote() && !leftOut; }
};

struct Stream {
    int voice = 1;
    int staff = 1;    // its own
    int silence = 0;  // before its first event
    bool leftOut = false;
    std::vector<Event> events;
    int End() const {
        int end = silence;
        for (const Event& event : events) {
            end += event.grace ? 0 : event.value.length;
        }
        return end;
    }
};

struct Measure {
    int length = 0;
    std::vector<Stream> streams;
};

constexpr const char* kSteps[] = {"C", "D", "E", "F", "G", "B"};

class Maker {
public:
    Maker(u32 seed, const MadeUpWishes& wishes) : m_random{seed}, m_wishes{wishes} {}

    MadeUpXml Run() {
        const int parts = 1 + Below(10) / 8;
        m_measures = 1 + Below(4);
        m_beats = 2 + Below(3);
        m_upbeat = Chance(25);
        std::string list;
        std::string music;
        for (int part = 1; part <= parts; ++part) {
            const std::string id = "P" + std::to_string(part);
            list += "<score-part id=\"" + id + "\">" + Element("part-name", id) + "</score-part>";
            music += "<part id=\"" + id + "\">\n" + Part() + "</part>\n";
        }
        return {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<score-partwise version=\"4.0\">\n" +
                    Element("part-list", list) + "\n" + music + "</score-partwise>\n",
                m_features};
    }

private:
    int Below(int end) { return static_cast<int>(m_random() % static_cast<u32>(end)); }
    bool Chance(int percent) { return Below(100) < percent; }
    // Something that the score could do without: whether it comes in.
    bool Wants(bool wanted) { return wanted && !m_wishes.without.contains(m_features++); }

    std::string Part() {
        m_staves = Chance(55) ? 2 : 1;
        m_crossing = m_staves == 2 && Chance(50);
        std::vector<Measure> measures;
        const std::vector<std::pair<int, int>> voices = Voices();
        for (int number = 0; number < m_measures; ++number) {
            measures.push_back(MakeMeasure(number, voices));
        }
        LeaveOutMeasures(measures);
        const std::vector<Event*> events = EventsOf(measures);
        Tie(events);
        Slur(events);
        AddDirections(measures, "wedge");
        AddDirections(measures, "octave-shift");
        return Text(measures);
    }

    // At the end.
    void LeaveOutMeasures(std::vector<Measure>& measures) {
        bool leftOut = false;
        for (std::size_t i = 1; i < measures.size(); ++i) {
            leftOut = !Wants(true) || leftOut;
            for (Stream& stream : measures[i].streams) {
                stream.leftOut = stream.leftOut || leftOut;
                for (Event& event : stream.events) {
                    event.leftOut = event.leftOut || leftOut;
                }
            }
        }
    }

    // Each with its staff. Four at most go over a staff.
    std::vector<std::pair<int, int>> Voices() {
        std::vector<std::pair<int, int>> voices;
        for (int staff = 1; staff <= m_staves; ++staff) {
            const int count = m_crossing ? 1 + Below(2) : 1 + Below(Chance(70) ? 2 : 4);
            for (int voice = 1; voice <= count; ++voice) {
                voices.emplace_back(4 * (staff - 1) + voice, staff);
            }
        }
        return voices;
    }

    Measure MakeMeasure(int number, const std::vector<std::pair<int, int>>& voices) {
        Measure measure;
        measure.length = number == 0 && m_upbeat ? kQuarter : m_beats * kQuarter;
        const auto below = [this](int end) { return Below(end); };
        const MadeUpRhythm shared[] = {MakeUpRhythm(measure.length, below),
                                       MakeUpRhythm(measure.length, below)};
        for (const auto& [voice, staff] : voices) {
            const bool isFirst = voice % 4 == 1;
            const bool comesIn = isFirst || Wants(Chance(75));
            Stream stream{voice, staff, 0, !comesIn, {}};
            if (!isFirst && Chance(20)) {
                stream.silence = Below(measure.length / kQuarter) * kQuarter;
            }
            MadeUpRhythm rhythm = shared[Below(2)];
            if (stream.silence > 0 || Chance(30)) {
                rhythm = MakeUpRhythm(measure.length - stream.silence, below);
            }
            FillStream(stream, rhythm, number);
            measure.streams.push_back(std::move(stream));
        }
        return measure;
    }

    void FillStream(Stream& stream, const MadeUpRhythm& rhythm, int measure) {
        int time = stream.silence;
        std::vector<std::size_t> places;  // of the rhythm's values among the events
        int staff = stream.staff;
        for (const MadeUpValue& value : rhythm.values) {
            if (Wants(m_crossing && stream.voice % 4 == 1 && Chance(35))) {
                staff = 3 - staff;
            }
            const bool hasGrace = Chance(8);
            if (hasGrace) {
                stream.events.push_back(GraceNote(stream.voice, staff, measure, time));
                stream.events.back().leftOut = !Wants(true) || stream.leftOut;
            }
            places.push_back(stream.events.size());
            Event event{.value = value, .start = time, .measure = measure, .staff = staff};
            event.voice = stream.voice;
            event.leftOut = stream.leftOut;
            const bool isRest = Chance(18);
            std::vector<Pitch> pitches = Pitches();
            event.pitches = isRest ? std::vector<Pitch>{} : std::move(pitches);
            event.silent = !Wants(true);
            AddMarks(event);
            stream.events.push_back(std::move(event));
            time += value.length;
        }
        for (const MadeUpTuplet& tuplet : rhythm.tuplets) {
            Bracket(stream.events[places[tuplet.first]], stream.events[places[tuplet.last]],
                    tuplet);
        }
    }

    Event GraceNote(int voice, int staff, int measure, int time) {
        Event event{.value = {.type = "eighth"}, .start = time, .measure = measure, .staff = staff};
        event.voice = voice;
        event.grace = true;
        event.pitches = {SomePitch()};
        return event;
    }

    Pitch SomePitch() { return {kSteps[Below(6)], Chance(15) ? 1 : 0, 3 + Below(3)}; }

    std::vector<Pitch> Pitches() {
        std::vector<Pitch> pitches = {SomePitch()};
        for (int more = Chance(25) ? 1 + Below(2) : 0; more > 0; --more) {
            const Pitch pitch = SomePitch();
            const bool isThere = std::any_of(pitches.begin(), pitches.end(), [&](const Pitch& p) {
                return p.step == pitch.step && p.octave == pitch.octave;
            });
            if (Wants(true) && !isThere) {
                pitches.push_back(pitch);
            }
        }
        return pitches;
    }

    void AddMarks(Event& event) {
        const bool articulation = Wants(Chance(10));
        const bool lyric = Wants(event.voice % 4 <= 2 && Chance(15));
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

    // Without a bracket the time modification alone says what the notes are.
    void Bracket(Event& first, Event& last, const MadeUpTuplet& tuplet) {
        if (!tuplet.isInner) {
            m_bracketed = Wants(!Chance(15)) || m_wishes.allBracketed;
        }
        if (m_bracketed) {
            const int number = tuplet.isInner ? 2 : 1;
            first.notations.push_back(Numbered("tuplet", "start", number));
            last.notations.push_back(Numbered("tuplet", "stop", number));
        }
    }

    static std::vector<Event*> EventsOf(std::vector<Measure>& measures) {
        std::vector<Event*> events;
        for (Measure& measure : measures) {
            for (Stream& stream : measure.streams) {
                for (Event& event : stream.events) {
                    events.push_back(&event);
                }
            }
        }
        return events;
    }

    // Ties have a pitch of their own in each voice, so that no other note comes between.
    void Tie(const std::vector<Event*>& events) {
        std::map<int, Event*> before;
        for (Event* event : events) {
            const bool tied = Wants(Chance(12));
            if (event->grace) {
                continue;
            }
            Event* previous = std::exchange(before[event->voice], event);
            if (previous != nullptr && tied && CanBeTied(*previous, *event)) {
                TiedPitch(*previous).tieTo = true;
                TiedPitch(*event).tieFrom = true;
            }
        }
    }

    bool CanBeTied(const Event& one, const Event& other) const {
        return IsNext(one, other) && one.staff == other.staff && one.CarriesLines() &&
               other.CarriesLines();
    }

    static Pitch& TiedPitch(Event& event) {
        const auto found = std::find_if(event.pitches.begin(), event.pitches.end(),
                                        [](const Pitch& pitch) { return pitch.step == "A"; });
        if (found != event.pitches.end()) {
            return *found;
        }
        event.pitches.push_back({"A", 0, event.voice});
        return event.pitches.back();
    }

    bool IsNext(const Event& one, const Event& other) const {
        const int end = one.start + one.value.length;
        const int length = one.measure == 0 && m_upbeat ? kQuarter : m_beats * kQuarter;
        return one.measure == other.measure
                   ? end == other.start
                   : one.measure + 1 == other.measure && end == length && other.start == 0;
    }

    struct Line {
        Event* start = nullptr;
        int number = 1;
    };

    // In the order of the text a number is free again behind the stop.
    void Slur(const std::vector<Event*>& events) {
        std::vector<Line> open;
        for (Event* event : events) {
            if (event->pitches.empty()) {
                continue;
            }
            for (std::size_t i = 0; i < open.size();) {
                const Line line = open[i];
                const bool ends = !event->grace && IsBefore(*line.start, *event) &&
                                  Chance(line.start->voice == event->voice ? 50 : 4);
                if (!ends) {
                    ++i;
                    continue;
                }
                open.erase(open.begin() + static_cast<std::ptrdiff_t>(i));
                if (Wants(true) && line.start->CarriesLines() && event->CarriesLines()) {
                    line.start->notations.push_back(Numbered("slur", "start", line.number));
                    event->notations.push_back(Numbered("slur", "stop", line.number));
                }
            }
            if (open.size() < 3 && Chance(18)) {
                open.push_back({event, FreeNumber(open)});
            }
        }
    }

    static bool IsBefore(const Event& one, const Event& other) {
        return std::pair{one.measure, one.start} < std::pair{other.measure, other.start};
    }

    static int FreeNumber(const std::vector<Line>& open) {
        int number = 1;
        while (std::any_of(open.begin(), open.end(),
                           [number](const Line& line) { return line.number == number; })) {
            ++number;
        }
        return number;
    }

    // Lines between times of a staff: they start before a note and stop before a later one.
    void AddDirections(std::vector<Measure>& measures, const std::string& kind) {
        std::vector<Line> open;
        for (Event* event : EventsOf(measures)) {
            for (std::size_t i = 0; i < open.size();) {
                const Line line = open[i];
                if (event->grace || line.start->voice != event->voice ||
                    !IsBefore(*line.start, *event) || !Chance(45)) {
                    ++i;
                    continue;
                }
                open.erase(open.begin() + static_cast<std::ptrdiff_t>(i));
                if (Wants(true) && line.start->CarriesLines() && event->CarriesLines()) {
                    const int staff = line.start->staff;
                    line.start->directions.push_back(Direction(kind, true, line.number, staff));
                    event->directions.push_back(Direction(kind, false, line.number, staff));
                }
            }
            const bool hasOne = std::any_of(open.begin(), open.end(), [event](const Line& line) {
                return line.start->voice / 5 == event->voice / 5;  // of the same staff
            });
            if (!event->grace && !hasOne && Chance(kind == "wedge" ? 10 : 4)) {
                open.push_back({event, FreeNumber(open)});
            }
        }
    }

    std::string Direction(const std::string& kind, bool isStart, int number, int staff) const {
        const bool isWedge = kind == "wedge";
        std::string line = Numbered(kind,
                                    !isStart  ? "stop"
                                    : isWedge ? "crescendo"
                                              : "down",
                                    number);
        if (!isWedge) {
            line.insert(line.size() - 2, " size=\"8\"");
        }
        return "<direction>" + Element("direction-type", line) + Staff(staff) + "</direction>\n";
    }

    std::string Staff(int staff) const { return m_staves == 1 ? "" : Element("staff", staff); }

    std::string Text(const std::vector<Measure>& measures) const {
        std::string text;
        for (std::size_t i = 0; i < measures.size(); ++i) {
            const std::vector<Stream>& streams = measures[i].streams;
            if (std::all_of(streams.begin(), streams.end(),
                            [](const Stream& stream) { return stream.leftOut; })) {
                break;
            }
            const bool isUpbeat = i == 0 && m_upbeat;
            text += "<measure number=\"" +
                    std::to_string(static_cast<int>(i) + (m_upbeat ? 0 : 1)) +
                    (isUpbeat ? "\" implicit=\"yes\">\n" : "\">\n");
            text += i == 0 ? Attributes() : "";
            int position = 0;
            for (const Stream& stream : streams) {
                if (stream.leftOut) {
                    continue;
                }
                text += position > 0 ? Move("backup", position) : "";
                text += stream.silence > 0 ? Move("forward", stream.silence) : "";
                for (const Event& event : stream.events) {
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

    std::string Attributes() const {
        std::string text = Element("divisions", kQuarter) + Element("key", Element("fifths", 0)) +
                           Element("time", Element("beats", m_beats) + Element("beat-type", 4)) +
                           Element("staves", m_staves);
        for (int staff = 1; staff <= m_staves; ++staff) {
            text += "<clef number=\"" + std::to_string(staff) +
                    (staff == 1 ? "\"><sign>G</sign><line>2</line></clef>"
                                : "\"><sign>F</sign><line>4</line></clef>");
        }
        return Element("attributes", text) + "\n";
    }

    static std::string Move(const std::string& name, int length) {
        return Element(name, Element("duration", length)) + "\n";
    }

    std::string Text(const Event& event) const {
        std::string text;
        for (const std::string& direction : event.directions) {
            text += direction;
        }
        if (!event.IsNote()) {
            return text + NoteText(event, nullptr, true);
        }
        for (const Pitch& pitch : event.pitches) {
            text += NoteText(event, &pitch, &pitch == &event.pitches.front());
        }
        return text;
    }

    std::string NoteText(const Event& event, const Pitch* pitch, bool isFirst) const {
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
        text += Staff(event.staff) + NotationsText(event, pitch, isFirst);
        if (isFirst) {
            for (const std::string& ornament : event.ornaments) {
                text += ornament;
            }
        }
        return Element("note", text) + "\n";
    }

    static std::string PitchText(const Pitch& pitch) {
        return Element("pitch", Element("step", pitch.step) +
                                    (pitch.alter != 0 ? Element("alter", pitch.alter) : "") +
                                    Element("octave", pitch.octave));
    }

    static std::string NotationsText(const Event& event, const Pitch* pitch, bool isFirst) {
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

    std::mt19937 m_random;
    const MadeUpWishes& m_wishes;
    int m_features = 0;
    int m_measures = 1;
    int m_beats = 4;
    bool m_upbeat = false;
    int m_staves = 1;
    bool m_crossing = false;
    bool m_bracketed = true;  // the outer tuplet that was made last
    int m_syllables = 0;
};

}  // namespace

MadeUpXml MakeUpXml(u32 seed, const MadeUpWishes& wishes) {
    return Maker{seed, wishes}.Run();
}

}  // namespace standin
