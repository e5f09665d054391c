#include "host/musicxml/write/measure_writer.h"

#include <algorithm>
#include <numeric>

#include "host/musicxml/pitch.h"
#include "host/musicxml/write/item_text.h"

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

// The indentation of the measure's children relative to the measure.
std::string IndentUnit(const ImportedScore& score, const PartMeasure& measure,
                       std::string_view indent) {
    const std::size_t tag = score.text.rfind('<', measure.bodyBegin - 1);
    const std::string_view outer = LineIndent(score.text, tag);
    const bool isDeeper = indent.size() > outer.size();
    return isDeeper ? std::string{indent.substr(outer.size())} : std::string{"  "};
}

}  // namespace

MeasureWriter::MeasureWriter(const ImportedScore& score, const ScorePart& part, std::size_t measure,
                             const LineNumbers& numbers)
    : m_score{score},
      m_part{part},
      m_original{part.measures[measure]},
      m_numbers{numbers},
      m_fifths{FifthsOfKeyWord(score.document->Measure(static_cast<u16>(measure + 1)).key)},
      m_indent{ChildIndent(score, m_original)},
      m_unit{IndentUnit(score, m_original, m_indent)},
      m_closing{LineIndent(score.text, m_original.bodyEnd)},
      m_notes{score, numbers, m_indent, m_unit},
      m_divisions{m_original.divisions} {}

std::string MeasureWriter::Write(const MeasurePlan& plan) {
    m_plan = &plan;
    m_mayMove = plan.HasNotes() || m_part.namesDivisions;
    bool changesDivisions = m_original.changesDivisions;
    for (const PlannedStream& stream : plan.streams) {
        for (const PlannedStep& step : stream.steps) {
            if (step.event != nullptr && changesDivisions) {
                SetDivisions(m_original.grid);
                changesDivisions = false;
            }
            MoveTo(step.time);
            if (step.event != nullptr) {
                WriteEvent(*step.event, stream.voice);
            } else {
                WriteItem(step);
            }
        }
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

// A carried entry is copied, except for the numbers of its lines.
bool MeasureWriter::WriteCarried(const PlannedEvent& event) {
    const auto carried = m_score.carried.find(u32{event.time.entry->entryNumber});
    if (carried == m_score.carried.end()) {
        return false;
    }
    const CarriedText& text = carried->second;
    if (!text.divisions.IsZero() && !(m_divisions == text.divisions)) {
        SetDivisions(text.divisions);
    }
    m_out += m_indent;
    m_out += WithNewNumbers(m_score.text, text.begin, text.end, m_part.lines, m_numbers);
    m_time = event.End();
    m_reached = m_reached < m_time ? m_time : m_reached;
    return true;
}

void MeasureWriter::WriteEvent(const PlannedEvent& event, std::string_view voice) {
    if (WriteCarried(event)) {
        return;
    }
    const bool namesVoice = m_part.namesVoices ||
                            std::ranges::count_if(m_plan->streams, [](const PlannedStream& stream) {
                                return !stream.events.empty();
                            }) > 1;
    NoteContext context;
    context.fifths = m_fifths;
    context.voice = namesVoice ? voice : std::string_view{};
    context.staff = m_part.namesStaves ? static_cast<int>(event.staff) + 1 : 0;
    context.beams = event.beams;
    context.brackets = event.place.brackets;
    if (const std::vector<i16> parts = PartsOfRest(event); !parts.empty()) {
        WriteInParts(event, parts, context);
    } else {
        MakeRoomFor(event.time.length);
        context.time = event.time;
        context.divisions = m_divisions;
        m_notes.Write(context, event.texts, m_out);
    }
    m_time = event.End();
    m_reached = m_reached < m_time ? m_time : m_reached;
}

// A rest that is longer than any note value, or between two, is not written as one: without a type,
// readers take it for a rest of the whole measure.
std::vector<i16> MeasureWriter::PartsOfRest(const PlannedEvent& event) const {
    const EXENTRY& entry = *event.time.entry;
    const WrittenForm& form = m_score.forms[entry.fieldAt12];
    const bool hasType = form.notated == entry.duration && form.type != 0;
    const bool isNew = form.gap || !event.place.isAsRead;
    const bool isWhole = event.Sounds() || event.IsGrace() || hasType || !isNew ||
                         ValueOfLength(entry.duration).type != 0;
    return isWhole ? std::vector<i16>{} : ValuesAddingUpTo(entry.duration);
}

// Brackets start at the first part and stop at the last.
void MeasureWriter::WriteInParts(const PlannedEvent& rest, const std::vector<i16>& lengths,
                                 NoteContext context) {
    std::string starts;
    std::string stops;
    ForEachElement(context.brackets, [&](std::string_view bracket) {
        (bracket.find("\"stop\"") == bracket.npos ? starts : stops) += bracket;
    });
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const bool isFirst = i == 0;
        EXENTRY part = *rest.time.entry;
        part.duration = lengths[i];
        part.actualDuration = static_cast<i32>(i64{rest.time.entry->actualDuration} * lengths[i] /
                                               rest.time.entry->duration);
        context.time = rest.time;
        context.time.entry = &part;
        context.time.length =
            rest.time.length * Rational::Of(lengths[i], rest.time.entry->duration);
        context.brackets = isFirst ? starts : i + 1 == lengths.size() ? stops : std::string_view{};
        MakeRoomFor(context.time.length);
        context.divisions = m_divisions;
        m_notes.Write(context, isFirst ? rest.texts : EntryTexts{}, m_out);
    }
}

void MeasureWriter::WriteItem(const PlannedStep& step) {
    const MeasureItem& item = m_original.items[step.item];
    const auto change = std::ranges::find(m_plan->itemVoices, step.item, &ItemVoice::item);
    const std::string_view voice =
        change == m_plan->itemVoices.end() ? std::string_view{} : change->voice;
    m_out += m_indent + ItemText(m_score, m_part.lines, item, m_numbers, voice);
    m_divisions = item.divisions.IsZero() ? m_divisions : item.divisions;
}

void MeasureWriter::MoveTo(Rational time) {
    if (!m_mayMove) {
        return;  // without a note's type, a duration would have no meaning
    }
    if (time < m_time) {
        WriteMove("backup", m_time - time);
    } else if (m_time < time) {
        WriteMove("forward", time - m_time);
    }
    m_time = time;
    m_reached = m_reached < m_time ? m_time : m_reached;
}

// Music may move to a measure whose divisions cannot express its length. Finer divisions express
// both.
void MeasureWriter::MakeRoomFor(Rational length) {
    if (DurationText(length, m_divisions).empty()) {
        const bool fits = !DurationText(length, m_original.grid).empty();
        const i64 finer = std::lcm(length.den, m_original.grid.num);
        SetDivisions(fits ? m_original.grid : Rational{finer, 1});
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
