#include "host/readback/read/part_reading.h"

#include <algorithm>
#include <string>

#include "host/readback/read/canonical_xml.h"
#include "host/readback/read/notated_length.h"

namespace standin::readback {
namespace {

bool HasName(pugi::xml_node node, std::string_view name) {
    return name == node.name();
}

}  // namespace

PartReading::PartReading(Score& score, ElementTexts& elements, const KnownMeasures* known)
    : m_score{score},
      m_elements{elements},
      m_texts{elements.AllTexts()},
      m_note{elements},
      m_notes{score, elements},
      m_lines{score, {m_texts.Of("tuplet"), m_texts.Of("wavy-line")}},
      m_known{known},
      m_part{static_cast<u32>(score.parts.size() - 1)},
      m_tuplet{m_texts.Of("tuplet")},
      m_nextEnd{static_cast<u32>(score.ends.size())} {}

bool PartReading::Read(pugi::xml_node part) {
    for (const pugi::xml_node measure : part.children("measure")) {
        const MeasureContent* known =
            m_known == nullptr ? nullptr : m_known->Find(m_part, m_measure);
        if (known != nullptr) {
            Repeat(*known);
        } else {
            ReadMeasure(measure);
        }
        if (!m_isExact) {
            return false;
        }
        ++m_measure;
    }
    m_lines.EndPart();
    return true;
}

void PartReading::ReadMeasure(pugi::xml_node measure) {
    m_cursor = {};
    m_chordOnset = {};
    m_uncounted = {};
    m_score.parts[m_part].measures.push_back({m_texts.Of(measure.attribute("number").value()),
                                              m_beat,
                                              {},
                                              {},
                                              m_divisions,
                                              {},
                                              1,
                                              false,
                                              {}});
    const MeasureRanges begin = Ends();
    AddItem(Here(0), m_texts.Of("<measure" + CanonicalAttributes(measure) + '>'));
    const auto firstChord = static_cast<u32>(m_score.chords.size());
    for (const pugi::xml_node child : measure.children()) {
        if (HasName(child, "note")) {
            ReadNote(child);
        } else if (HasName(child, "backup")) {
            Move(ExactTime{} - m_uncounted - DurationOf(child));
            m_uncounted = {};
        } else if (HasName(child, "forward")) {
            Move(DurationOf(child));
        } else if (HasName(child, "attributes")) {
            ReadAttributes(child);
        } else if (child.type() == pugi::node_element) {
            ReadItem(child);
        }
    }
    Measure().beat = m_beat;
    Measure().divisionsAfter = m_divisions;
    const MeasureRanges end = Ends();
    Measure().ranges = {{begin.chords.end, end.chords.end},
                        {begin.notes.end, end.notes.end},
                        {begin.attachments.end, end.attachments.end},
                        {begin.ends.end, end.ends.end},
                        {begin.items.end, end.items.end}};
    PlaceInStreams(firstChord);
    m_lines.EndMeasure();
    NumberGraceNotes(firstChord);
    SumVoices(firstChord);
}

// Empty ranges at the ends of the lists.
MeasureRanges PartReading::Ends() const {
    const auto endOf = [](const auto& list) {
        const auto size = static_cast<u32>(list.size());
        return Range{size, size};
    };
    return {endOf(m_score.chords), endOf(m_score.notes), endOf(m_score.attachments),
            endOf(m_score.ends), endOf(m_score.items)};
}

namespace {

Range Shifted(Range range, u32 by) {
    return {range.begin + by, range.end + by};
}

}  // namespace

// Takes over what the earlier file says of the measure. What crosses barlines is found again: whose
// ends of lines belong together, and all marks of chords.
void PartReading::Repeat(const MeasureContent& known) {
    const Score& before = m_known->Before();
    const MeasureRanges& from = known.ranges;
    const MeasureRanges here = Ends();
    const u32 chords = here.chords.end - from.chords.begin;  // to add, modulo 2^32
    const u32 notes = here.notes.end - from.notes.begin;
    const u32 attachments = here.attachments.end - from.attachments.begin;
    m_isExact =
        m_isExact && known.divisionsBefore == m_divisions && m_lines.OpenStarts(m_tuplet).empty();
    for (u32 i = from.chords.begin; i < from.chords.end; ++i) {
        const Chord& was = before.chords[i];
        Chord& chord = m_score.chords.emplace_back();
        chord.place = was.place;
        chord.part = was.part;
        chord.voice = was.voice;
        chord.grace = was.grace;
        chord.duration = was.duration;
        chord.rest = was.rest;
        chord.hidden = was.hidden;
        chord.ratio = was.ratio;
        chord.head = was.head == kNone ? kNone : was.head + chords;
        chord.notes = Shifted(was.notes, notes);
    }
    for (u32 i = from.notes.begin; i < from.notes.end; ++i) {
        Note& note = m_score.notes.emplace_back(before.notes[i]);
        note.chord += chords;
        note.attachments = Shifted(note.attachments, attachments);
    }
    const auto append = [](auto& list, const auto& others, Range range) {
        list.insert(list.end(), others.begin() + range.begin, others.begin() + range.end);
    };
    append(m_score.attachments, before.attachments, from.attachments);
    append(m_score.items, before.items, from.items);
    for (u32 i = from.ends.begin; i < from.ends.end; ++i) {
        LineEnd& end = m_score.ends.emplace_back(before.ends[i]);
        end.chord += end.chord == kNone ? 0 : chords;
        end.note += end.note == kNone ? 0 : notes;
    }
    MeasureContent& measure = m_score.parts[m_part].measures.emplace_back(known);
    measure.isRepeated = true;
    measure.ranges = {Shifted(from.chords, chords), Shifted(from.notes, notes),
                      Shifted(from.attachments, attachments),
                      Shifted(from.ends, here.ends.end - from.ends.begin),
                      Shifted(from.items, here.items.end - from.items.begin)};
    m_beat = known.beat;
    m_divisions = known.divisionsAfter;
    PairNewEnds();
    m_lines.EndMeasure();
}

void PartReading::ReadNote(pugi::xml_node node) {
    m_note.Read(node);
    const bool joins = m_note.Has(Child::kChord);
    ExactTime duration = DurationOfNote();
    if (duration.IsZero() && !m_note.Has(Child::kGrace)) {
        duration = LengthOfNone();
    }
    if (!joins) {
        m_chordOnset = m_cursor;
    }
    const NoteChildren::Element* staffOfPart = m_note.Find(Child::kStaff);
    const u32 staff = StaffOfScore(staffOfPart == nullptr ? 1 : staffOfPart->value);
    const bool continues = joins && !m_score.chords.empty() &&
                           m_score.chords.back().part == m_part &&
                           m_score.chords.back().place == Place{staff, m_measure, m_chordOnset};
    if (!continues) {
        BeginChord(staff, duration);
    }
    m_notes.Read(m_note, duration);
    if (!joins) {
        m_cursor = m_cursor + duration;
    }
    m_isExact = m_isExact && (m_chordOnset + duration).IsValid();
    Measure().length = std::max(Measure().length, m_chordOnset + duration);
    PairNewEnds();
}

ExactTime PartReading::DurationOfNote() const {
    const NoteChildren::Element* duration = m_note.Find(Child::kDuration);
    return duration == nullptr || m_note.Has(Child::kGrace)
               ? ExactTime{}
               : ExactTime::OfDecimal(duration->node.child_value()) / m_divisions;
}

// A note without duration lasts as long as its chord, or its notated length. The following notes
// begin later than in the file's count, up to the next <backup>.
ExactTime PartReading::LengthOfNone() {
    if (m_note.Has(Child::kChord) && !m_score.chords.empty()) {
        return m_score.chords.back().duration;
    }
    const ExactTime length = NotatedLength(m_note.Note());
    m_uncounted = m_uncounted + length;
    return length;
}

void PartReading::BeginChord(u32 staff, ExactTime duration) {
    const auto index = static_cast<u32>(m_score.chords.size());
    Chord& chord = m_score.chords.emplace_back();
    if (m_note.Has(Child::kChord) && index > 0) {
        const u32 head = m_score.chords[index - 1].head;
        chord.head = head == kNone ? index - 1 : head;
    }
    chord.place = {staff, m_measure, m_chordOnset};
    chord.part = m_part;
    const NoteChildren::Element* voice = m_note.Find(Child::kVoice);
    chord.voice = voice == nullptr ? m_texts.Of("1") : voice->value;
    chord.grace = m_note.Has(Child::kGrace) ? 1 : 0;
    chord.duration = duration;
    chord.rest = m_note.Has(Child::kRest);
    chord.hidden = std::string_view{m_note.Note().attribute("print-object").value()} == "no";
    chord.notes.begin = static_cast<u32>(m_score.notes.size());
}

// Everything just before the barline counts as being at it.
void PartReading::Move(ExactTime by) {
    m_isExact = m_isExact && (m_cursor + by).IsValid();
    m_cursor = std::max(m_cursor + by, ExactTime{});
    Measure().length = std::max(Measure().length, m_cursor);
    for (const u32 start : m_lines.OpenStarts(m_tuplet)) {
        if (m_broken.insert(start).second) {
            m_score.brokenTuplets.push_back({m_part, m_score.ends[start].place});
        }
    }
}

void PartReading::ReadAttributes(pugi::xml_node attributes) {
    const ExactTime divisions = ExactTime::OfDecimal(attributes.child("divisions").child_value());
    if (divisions > ExactTime{}) {
        m_divisions = divisions;
    }
    m_beat = BeatOf(attributes.child("time"), m_beat);
    for (const pugi::xml_node child : attributes.children()) {
        if (child.type() == pugi::node_element && !HasName(child, "divisions")) {
            AddItem(Here(0), m_texts.Joined(m_texts.Of("<attributes>"), m_elements.Of(child)));
        }
    }
}

void PartReading::ReadItem(pugi::xml_node node) {
    Place place = Here(StaffOf(node));
    if (const pugi::xml_node offset = node.child("offset")) {
        place.onset = place.onset + ExactTime::OfDecimal(offset.child_value()) / m_divisions;
    }
    const std::string_view location = node.attribute("location").as_string("right");
    const bool closes = HasName(node, "barline") && location == "right";
    if (closes) {
        place.onset = {};
    }
    ReadDirectionLines(node, place);
    AddItem(place, m_elements.Of(node), closes);
    if (HasName(node, "direction") || HasName(node, "harmony") || HasName(node, "figured-bass")) {
        const std::string voice = TrimmedValue(node.child("voice"));
        m_unplaced.push_back(
            {static_cast<u32>(m_score.items.size() - 1), static_cast<u32>(m_score.chords.size()),
             voice.empty() ? kNone : m_texts.Of(voice), !node.child("staff").empty()});
    }
}

void PartReading::ReadDirectionLines(pugi::xml_node direction, const Place& place) {
    for (const pugi::xml_node type : direction.children("direction-type")) {
        for (const pugi::xml_node line : type.children()) {
            if (IsLine(line.name())) {
                m_score.ends.push_back({TypeOfLine(line), m_texts.Of(line.name()),
                                        m_texts.Of(NumberOfLine(line)), m_elements.Of(line), place,
                                        kNone, kNone});
            }
        }
    }
    PairNewEnds();
}

void PartReading::PairNewEnds() {
    for (; m_nextEnd < m_score.ends.size(); ++m_nextEnd) {
        m_lines.Add(m_nextEnd);
    }
}

// Without a staff number, the next note's staff counts, or at the measure's end the last note's.
void PartReading::PlaceInStreams(u32 firstChord) {
    const auto end = static_cast<u32>(m_score.chords.size());
    std::map<u32, u32> firstOfStaff;
    for (u32 i = firstChord; i < end; ++i) {
        firstOfStaff.try_emplace(m_score.chords[i].place.staff, i);
    }
    for (const StreamItem& unplaced : m_unplaced) {
        Item& item = m_score.items[unplaced.item];
        if (!unplaced.namesStaff && firstChord < end) {
            item.place.staff = m_score.chords[std::min(unplaced.next, end - 1)].place.staff;
        }
        const auto first = firstOfStaff.find(item.place.staff);
        item.comesTooEarly = unplaced.voice != kNone && first != firstOfStaff.end() &&
                             unplaced.next <= first->second &&
                             m_score.chords[first->second].voice != unplaced.voice;
    }
    m_unplaced.clear();
}

void PartReading::AddItem(const Place& place, u32 text, bool closesMeasure) {
    m_score.items.push_back({m_part, place, closesMeasure, false, text});
}

// Counts back from their main note, in each voice.
void PartReading::NumberGraceNotes(u32 firstChord) {
    std::map<u32, u32> countOfVoice;
    for (auto at = static_cast<u32>(m_score.chords.size()); at > firstChord; --at) {
        Chord& chord = m_score.chords[at - 1];
        u32& count = countOfVoice[chord.voice];
        count = chord.grace != 0 ? count + 1 : 0;
        chord.grace = count;
    }
}

void PartReading::SumVoices(u32 firstChord) {
    std::map<std::pair<u32, u32>, ExactTime> sums;  // by voice and staff
    for (auto at = firstChord; at < m_score.chords.size(); ++at) {
        const Chord& chord = m_score.chords[at];
        ExactTime& sum = sums[{chord.voice, chord.place.staff}];
        sum = sum + chord.duration;
        Measure().fullestVoice = std::max(Measure().fullestVoice, sum);
    }
}

ExactTime PartReading::DurationOf(pugi::xml_node node) const {
    return ExactTime::OfDecimal(node.child_value("duration")) / m_divisions;
}

u32 PartReading::StaffOf(pugi::xml_node node) const {
    return StaffOfScore(node.child("staff").text().as_uint(1));
}

u32 PartReading::StaffOfScore(u32 staffOfPart) const {
    const Part& part = m_score.parts[m_part];
    return part.firstStaff + std::clamp(staffOfPart, 1U, part.staves) - 1;
}

ExactTime BeatOf(pugi::xml_node time, ExactTime fallback) {
    const int count = time.child("beats").text().as_int();
    const int type = time.child("beat-type").text().as_int();
    const bool isSum =
        std::string_view{time.child_value("beats")}.find('+') != std::string_view::npos;
    if (count <= 0 || type <= 0) {
        return fallback;
    }
    constexpr int kQuartersOfWhole = 4;
    const bool isCompound = type > kQuartersOfWhole && count % 3 == 0 && !isSum &&
                            !time.child("beats").next_sibling("beats");
    return {i64{kQuartersOfWhole} * (isCompound ? 3 : 1), type};
}

}  // namespace standin::readback
