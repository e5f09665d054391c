#include "host/musicxml/write/measure_writer.h"

#include <algorithm>
#include <cstring>

#include "host/musicxml/expressions.h"
#include "host/musicxml/pitch.h"
#include "host/musicxml/write/beam_writer.h"
#include "host/musicxml/xml/xml_node.h"
#include "host/score/tags.h"

namespace standin {
namespace {

constexpr std::string_view kSpaces = " \t\r\n";

// The white space from the position backwards to and including the line break; empty when the
// line holds anything else.
std::string_view LineIndent(std::string_view text, std::size_t position) {
    std::size_t begin = position;
    while (begin > 0 && kSpaces.find(text[begin - 1]) != kSpaces.npos) {
        --begin;
        if (text[begin] == '\n') {
            return text.substr(begin, position - begin);
        }
    }
    return {};
}

std::string ChildIndent(const ImportedScore& score, const PartMeasure& measure) {
    const std::size_t first = score.text.find('<', measure.bodyBegin);
    return first < measure.bodyEnd ? std::string{LineIndent(score.text, first)} : std::string{};
}

// By how much the measure's children stand deeper than the measure.
std::string IndentUnit(const ImportedScore& score, const PartMeasure& measure,
                       std::string_view indent) {
    const std::size_t tag = score.text.rfind('<', measure.bodyBegin - 1);
    const std::string_view outer = LineIndent(score.text, tag);
    const bool isDeeper = indent.size() > outer.size();
    return isDeeper ? std::string{indent.substr(outer.size())} : std::string{"  "};
}

// The text of the element's first child of that name, past comments; empty when there is none.
std::string_view ValueOfChild(std::string_view element, std::string_view name) {
    std::size_t at = element.find('<', TagEnd(element, 0));
    while (at < element.size() && ElementName(element.substr(at)) != name) {
        at = element.find('<', NodeEnd(element, at));
    }
    if (at >= element.size()) {
        return {};
    }
    for (at = TagEnd(element, at); element.substr(at).starts_with("<!--");) {
        at = NodeEnd(element, at);
    }
    return element.substr(at, element.find('<', at) - at);
}

// A hidden rest that nobody needs to see written when its voice holds nothing else.
bool IsFiller(const EXENTRY& entry, const WrittenForm& form) {
    const bool hidden = entry.noteCount == 0 && (entry.flags & EntryFlag::kIgnore) != 0;
    return hidden && (form.gap || (entry.flags & EntryFlag::kMadeRest) != 0);
}

}  // namespace

MeasureWriter::MeasureWriter(const ImportedScore& score, std::size_t part, std::size_t measure,
                             const SpannerNumbers& numbers)
    : m_score{score},
      m_part{score.parts[part]},
      m_original{m_part.measures[measure]},
      m_measure{static_cast<u16>(measure + 1)},
      m_fifths{FifthsOfKeyWord(score.document->Measure(m_measure).key)},
      m_indent{ChildIndent(score, m_original)},
      m_unit{IndentUnit(score, m_original, m_indent)},
      m_closing{LineIndent(score.text, m_original.bodyEnd)},
      m_numbers{numbers},
      m_notes{score, numbers, m_indent, m_unit},
      m_crossing{CrossingEndsOf(score, m_part, m_measure)},
      m_divisions{m_original.divisions} {}

std::string MeasureWriter::Write() {
    CollectStreams();
    DropFillers();
    PlaceBracketsOfVoices();
    MendLines();
    CollectItems();
    if (m_original.changesDivisions) {
        SetDivisions(m_original.grid);
    }
    for (const Stream& stream : m_streams) {
        WriteStream(stream);
    }
    for (; m_nextItem < m_items.size(); ++m_nextItem) {
        WriteItem(*m_items[m_nextItem]);
    }
    if (m_reached < m_original.length) {
        MoveTo(m_original.length);
    }
    if (!(m_divisions == m_original.grid)) {
        SetDivisions(m_original.grid);
    }
    m_out += m_closing;
    return std::move(m_out);
}

void MeasureWriter::CollectStreams() {
    for (std::size_t staff = 0; staff < m_part.staves.size(); ++staff) {
        for (u16 layer = 0; layer < m_original.layers; ++layer) {
            const FrameKey key{m_part.staves[staff].staff, m_measure, layer};
            const Frame* frame = m_score.document->FindFrame(key);
            const Frame* imported = m_score.document->ImportedFrame(key);
            const bool bothAre = frame != nullptr && imported != nullptr;
            if (bothAre ? !(*imported == *frame) : imported != frame) {
                m_changedVoices.insert(VoiceName(m_measure, staff, layer));
                for (const EXENTRY& entry : (imported != nullptr ? imported : frame)->entries) {
                    m_changedVoices.insert(VoiceName(m_measure, staff, layer, entry.entryNumber));
                }
            }
            if (frame != nullptr) {
                CollectStreams(*frame, key, staff, false);
                CollectStreams(*frame, key, staff, true);
            }
        }
    }
}

// Voices that share a layer are streams of their own.
void MeasureWriter::CollectStreams(const Frame& frame, FrameKey key, std::size_t staff,
                                   bool voice2) {
    std::vector<std::pair<const std::string*, std::vector<TimedEntry>>> voices;
    for (const TimedEntry& timed : TimedEntriesOf(m_score, frame, voice2, m_original.grid)) {
        const std::string& name =
            m_part.staves[staff].NameAt(m_measure, key.layer, timed.entry->entryNumber);
        auto voice = std::find_if(voices.begin(), voices.end(),
                                  [&name](const auto& known) { return *known.first == name; });
        if (voice == voices.end()) {
            voice = voices.insert(voices.end(), {&name, {}});
        }
        voice->second.push_back(timed);
    }
    for (const auto& [name, entries] : voices) {
        CollectStream(frame, key, staff, entries);
    }
}

void MeasureWriter::CollectStream(const Frame& frame, FrameKey key, std::size_t staff,
                                  const std::vector<TimedEntry>& entries) {
    std::set<u32> known;
    if (const Frame* imported = m_score.document->ImportedFrame(key)) {
        for (const EXENTRY& entry : imported->entries) {
            known.insert(entry.entryNumber);
        }
    }
    Stream& stream = m_streams.emplace_back();
    stream.voice = VoiceName(m_measure, staff, key.layer, entries.front().entry->entryNumber);
    std::vector<std::size_t> indices;
    for (const TimedEntry& timed : entries) {
        Event& event = stream.events.emplace_back();
        event.time = timed;
        event.staff = staff;
        event.layer = key.layer;
        event.beamedByHost = frame.BeamedByHost();
        GatherEntryTexts(*m_score.document, *timed.entry, event.texts);
        const WrittenForm& form = m_score.forms[timed.entry->fieldAt12];
        const bool isHiddenRest =
            timed.entry->noteCount == 0 && (timed.entry->flags & EntryFlag::kIgnore) != 0;
        event.isFiller = IsFiller(*timed.entry, form);
        event.place = {timed.start, timed.start + timed.length, !(form.gap && isHiddenRest),
                       event.isFiller};
        event.cameIn = !known.contains(timed.entry->entryNumber);
        event.place.isAsRead = !event.cameIn && (timed.entry->flags & EntryFlag::kMadeRest) == 0;
        const auto index = static_cast<std::size_t>(timed.entry - frame.entries.data());
        indices.push_back(index);
        if (frame.BeamedByHost()) {
            event.beams = WriteBeams(frame.beams[index]);
        } else {
            event.beams = m_score.fragments[event.texts.beams];
        }
    }
    AddBracketTuplets(frame.entries, m_score.document->Records(), indices, stream.tuplets);
}

// What is all filler is not written, unless a tuplet would lack what it has on this staff.
void MeasureWriter::DropFillers() {
    const auto isFiller = [](const Stream& stream) {
        return std::all_of(stream.events.begin(), stream.events.end(),
                           [](const Event& event) { return event.isFiller; });
    };
    std::set<std::pair<std::string, u32>> shared;
    for (const Stream& stream : m_streams) {
        for (const BracketTuplet& tuplet : stream.tuplets) {
            if (!isFiller(stream) || m_part.crossingBrackets.contains(tuplet.text.bracket)) {
                shared.insert({stream.voice, tuplet.text.bracket});
            }
        }
    }
    std::erase_if(m_streams, [&](const Stream& stream) {
        return isFiller(stream) &&
               std::none_of(stream.tuplets.begin(), stream.tuplets.end(),
                            [&](const BracketTuplet& tuplet) {
                                return shared.contains({stream.voice, tuplet.text.bracket});
                            });
    });
}

// Where part of a tuplet was on another staff of its voice, and came into another voice, it takes
// hidden rests to fill the tuplet.
void MeasureWriter::WriteGapsThatCameIn(const std::vector<Event*>& events,
                                        const std::vector<BracketTuplet>& tuplets) {
    for (const BracketTuplet& tuplet : tuplets) {
        for (std::size_t i = tuplet.first; i <= tuplet.last && i < events.size(); ++i) {
            BracketPlace& gap = events[i]->place;
            gap.isWritten = gap.isWritten ||
                            (events[i]->cameIn &&
                             std::none_of(events.begin(), events.end(), [&gap](const Event* other) {
                                 return other->place.isWritten && other->place.start < gap.end &&
                                        gap.start < other->place.end;
                             }));
        }
    }
}

void MeasureWriter::PlaceBracketsOfVoices() {
    std::set<std::string> done;
    for (const Stream& stream : m_streams) {
        if (done.insert(stream.voice).second) {
            PlaceBracketsOf(stream.voice);
        }
    }
    for (Stream& stream : m_streams) {
        std::erase_if(stream.events, [](const Event& event) { return !event.place.isWritten; });
    }
}

void MeasureWriter::PlaceBracketsOf(const std::string& voice) {
    std::vector<Event*> events;
    std::vector<BracketTuplet> tuplets;
    for (Stream& stream : m_streams) {
        if (stream.voice != voice) {
            continue;
        }
        const int firstTuplet = static_cast<int>(tuplets.size());
        for (BracketTuplet tuplet : stream.tuplets) {
            tuplet.first += events.size();
            tuplet.last += events.size();
            tuplet.outer += tuplet.outer < 0 ? 0 : firstTuplet;
            tuplets.push_back(tuplet);
        }
        for (Event& event : stream.events) {
            events.push_back(&event);
        }
    }
    WriteGapsThatCameIn(events, tuplets);
    std::vector<BracketPlace> places;
    places.reserve(events.size());
    for (const Event* event : events) {
        places.push_back(event->place);
    }
    PlaceBrackets(
        places, tuplets, m_score.fragments, [&](const BracketPlace& place, const TupletText& text) {
            return m_part.crossingBrackets.contains(text.bracket) ? HasOtherEnd(voice, text)
                                                                  : place.isAsRead;
        });
    for (std::size_t i = 0; i < events.size(); ++i) {
        events[i]->place = std::move(places[i]);
    }
}

// The other end of a bracket that crosses a barline, in the same voice.
bool MeasureWriter::HasOtherEnd(const std::string& voice, const TupletText& text) const {
    const auto& [first, last] = m_part.crossingBrackets.at(text.bracket);
    const u16 measure = text.start != 0 ? last : first;
    const auto isOther = [&](const EXENTRY& entry) {
        EntryTexts texts;
        GatherEntryTexts(*m_score.document, entry, texts);
        return std::any_of(texts.tuplets.begin(), texts.tuplets.end(), [&](const TupletText& end) {
            return end.bracket == text.bracket && (end.start != 0) != (text.start != 0);
        });
    };
    for (std::size_t staff = 0; staff < m_part.staves.size(); ++staff) {
        for (u16 layer = 0; layer < m_part.measures[measure - 1U].layers; ++layer) {
            const Frame* frame =
                m_score.document->FindFrame({m_part.staves[staff].staff, measure, layer});
            const auto isOtherHere = [&](const EXENTRY& entry) {
                return VoiceName(measure, staff, layer, entry.entryNumber) == voice &&
                       isOther(entry);
            };
            if (frame != nullptr &&
                std::any_of(frame->entries.begin(), frame->entries.end(), isOtherHere)) {
                return true;
            }
        }
    }
    return false;
}

// As it is written: the layer's own voice; for a layer that never had one, the first number not
// in use.
std::string MeasureWriter::VoiceName(u16 measure, std::size_t staff, u16 layer, u32 entry) const {
    const std::string& known = m_part.staves[staff].NameAt(measure, layer, entry);
    if (!known.empty()) {
        return Escaped(known);
    }
    const auto isUsed = [this](const std::string& name) {
        return std::any_of(m_part.staves.begin(), m_part.staves.end(),
                           [&](const StaffVoices& voices) {
                               return std::find(voices.names.begin(), voices.names.end(), name) !=
                                      voices.names.end();
                           });
    };
    const std::size_t first = staff * kLayers + layer + 1;
    std::size_t number = first;
    while (isUsed(std::to_string(number))) {
        number += m_part.staves.size() * kLayers;
    }
    return std::to_string(number);
}

// A voice may run over several staves, and its beams and brackets with it; streams of one name
// that share time are voices of their own.
void MeasureWriter::MendLines() {
    for (auto stream = m_streams.begin(); stream != m_streams.end(); ++stream) {
        const auto hasItsName = [&stream](const Stream& other) {
            return other.voice == stream->voice;
        };
        if (!m_changedVoices.contains(stream->voice) ||
            std::any_of(m_streams.begin(), stream, hasItsName)) {
            continue;
        }
        std::vector<Line> lines;
        Line whole;
        for (auto other = stream; other != m_streams.end(); ++other) {
            if (hasItsName(*other)) {
                Line& line = lines.emplace_back();
                for (Event& event : other->events) {
                    line.push_back(&event);
                    whole.push_back(&event);
                }
            }
        }
        std::stable_sort(whole.begin(), whole.end(), [](const Event* a, const Event* b) {
            return a->time.start < b->time.start;
        });
        const auto shared =
            std::adjacent_find(whole.begin(), whole.end(), [](const Event* a, const Event* b) {
                return b->time.start < a->time.start + a->time.length;
            });
        if (shared == whole.end()) {
            lines = {whole};
        }
        for (Line& line : lines) {
            MendLine(std::move(line));
        }
    }
}

void MeasureWriter::MendLine(Line line) {
    std::erase_if(line, [](const Event* event) { return event->beamedByHost; });
    MendBeams(line);
}

void MeasureWriter::MendBeams(const Line& line) const {
    std::vector<BeamedEntry> beamed;
    beamed.reserve(line.size());
    for (const Event* event : line) {
        const EXENTRY& entry = *event->time.entry;
        beamed.push_back({ReadBeams(event->beams), entry.noteCount == 0,
                          (entry.flags & EntryFlag::kGrace) != 0});
        for (const CrossingEnds& ends : m_crossing) {
            const bool isThis = ends.time == event->time.start && ends.beams == event->beams;
            beamed.back().comesIn |= isThis && ends.beamsCome;
            beamed.back().goesOn |= isThis && ends.beamsGo;
        }
    }
    std::vector<BeamedEntry> whole = beamed;
    MakeBeamsWhole(whole);
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (whole[i].levels != beamed[i].levels) {
            line[i]->beams = WriteBeams(whole[i].levels);
        }
    }
}

void MeasureWriter::CollectItems() {
    m_items.reserve(m_original.items.size());
    for (const MeasureItem& item : m_original.items) {
        m_items.push_back(&item);
    }
    std::stable_sort(
        m_items.begin(), m_items.end(), [](const MeasureItem* a, const MeasureItem* b) {
            return a->closesMeasure != b->closesMeasure ? b->closesMeasure : a->time < b->time;
        });
}

void MeasureWriter::WriteStream(const Stream& stream) {
    for (const Event& event : stream.events) {
        WriteItemsUntil(event.time.start);
        MoveTo(event.time.start);
        if (WriteCarried(event)) {
            continue;
        }
        MakeRoomFor(event.time.length);
        NoteContext context;
        context.time = event.time;
        context.divisions = m_divisions;
        context.fifths = m_fifths;
        context.voice = m_part.namesVoices || m_streams.size() > 1 ? std::string_view{stream.voice}
                                                                   : std::string_view{};
        context.staff = m_part.namesStaves ? static_cast<int>(event.staff) + 1 : 0;
        context.beams = event.beams;
        context.brackets = event.place.brackets;
        m_notes.Write(context, event.texts, m_out);
        m_time = event.time.start + event.time.length;
        m_reached = m_reached < m_time ? m_time : m_reached;
    }
}

// A carried entry goes out as it came, unless one of its lines needs another number.
bool MeasureWriter::WriteCarried(const Event& event) {
    const auto carried = m_score.carried.find(event.time.entry->entryNumber);
    const bool isRenumbered =
        std::any_of(event.texts.spanners.begin(), event.texts.spanners.end(),
                    [this](const SpannerAtEntry& end) { return m_numbers.contains(end.shape); });
    if (carried == m_score.carried.end() || isRenumbered) {
        return false;
    }
    const CarriedText& text = carried->second;
    if (!text.divisions.IsZero() && !(m_divisions == text.divisions)) {
        SetDivisions(text.divisions);
    }
    m_out += m_indent;
    m_out += std::string_view{m_score.text}.substr(text.begin, text.end - text.begin);
    m_time = event.time.start + event.time.length;
    m_reached = m_reached < m_time ? m_time : m_reached;
    return true;
}

// Items come before the notes of their time, whichever voice is written first.
void MeasureWriter::WriteItemsUntil(Rational time) {
    while (m_nextItem < m_items.size() && !m_items[m_nextItem]->closesMeasure &&
           !(time < m_items[m_nextItem]->time)) {
        WriteItem(*m_items[m_nextItem++]);
    }
}

void MeasureWriter::WriteItem(const MeasureItem& item) {
    MoveTo(item.time);
    const std::string_view element =
        std::string_view{m_score.text}.substr(item.begin, item.end - item.begin);
    m_out += m_indent;
    if (ElementName(element) == "direction") {
        m_out += WithVoiceOf(static_cast<std::size_t>(&item - m_original.items.data()), element);
        return;
    }
    m_out += element;
    m_divisions = item.divisions.IsZero() ? m_divisions : item.divisions;
}

// The direction with the voice of the layer that its expression is assigned to.
std::string MeasureWriter::WithVoiceOf(std::size_t item, std::string_view element) const {
    const std::string_view voice = ValueOfChild(element, "voice");
    const RecordStore::Table& expressions = m_score.document->Records().OfTag(Tag::kExpression);
    std::string result{element};
    if (voice.empty()) {
        return result;
    }
    for (auto at = expressions.lower_bound(RecordKey::Other(m_measure));
         at != expressions.end() && at->first.OtherItem() == m_measure; ++at) {
        const auto expression = FromBytes<MyExpressionAssign>(at->second);
        const Bytes* imported = m_score.document->ImportedRecord(Tag::kExpression, at->first);
        const bool stayed = imported != nullptr &&
                            FromBytes<MyExpressionAssign>(*imported).layer == expression.layer;
        const u16 layer = expression.layer & ExpressionLayer::kLayerMask;
        for (std::size_t staff = 0; staff < m_part.staves.size(); ++staff) {
            const bool isThis = m_part.staves[staff].staff == static_cast<u16>(expression.staff) &&
                                ItemOfExpression(at->second) == item && layer > 0;
            if (isThis && stayed) {
                return result;
            }
            if (isThis) {
                return result.replace(static_cast<std::size_t>(voice.data() - element.data()),
                                      voice.size(),
                                      VoiceName(m_measure, staff, static_cast<u16>(layer - 1)));
            }
        }
    }
    return result;
}

void MeasureWriter::MoveTo(Rational time) {
    if (m_streams.empty() && !m_part.namesDivisions) {
        return;  // without a note's type, nothing would tell what a duration means
    }
    if (time < m_time) {
        WriteMove("backup", m_time - time);
    } else if (m_time < time) {
        WriteMove("forward", time - m_time);
    }
    m_time = time;
    m_reached = m_reached < m_time ? m_time : m_reached;
}

// Music moves to where other divisions hold, which may not tell its length.
void MeasureWriter::MakeRoomFor(Rational length) {
    if (DurationText(length, m_divisions).empty()) {
        const bool fits = !DurationText(length, m_original.grid).empty();
        SetDivisions(fits ? m_original.grid : Rational{length.den, 1});
    }
}

void MeasureWriter::SetDivisions(Rational divisions) {
    m_divisions = divisions;
    m_out.append(m_indent).append("<attributes><divisions>");
    m_out.append(DurationText(divisions, {1, 1})).append("</divisions></attributes>");
}

void MeasureWriter::WriteMove(std::string_view name, Rational length) {
    MakeRoomFor(length);
    const std::string inner = m_indent.empty() ? m_indent : m_indent + m_unit;
    m_out.append(m_indent).append(1, '<').append(name).append(1, '>').append(inner);
    m_out.append("<duration>").append(DurationText(length, m_divisions)).append("</duration>");
    m_out.append(m_indent).append("</").append(name).append(1, '>');
}

}  // namespace standin
