// Writes one measure of one part according to its plan.
#pragma once

#include <string>

#include "host/musicxml/write/lines/line_numbers.h"
#include "host/musicxml/write/measure_plan.h"
#include "host/musicxml/write/note_writer.h"

namespace standin {

class MeasureWriter {
public:
    // measure: counted from 0.
    MeasureWriter(const ImportedScore& score, const ScorePart& part, std::size_t measure,
                  const LineNumbers& numbers);

    // The text between the measure's tags.
    std::string Write(const MeasurePlan& plan);

private:
    void WriteEvent(const PlannedEvent& event, std::string_view voice);
    // The lengths of the rests to write for one; empty if it is written as it is.
    std::vector<i16> PartsOfRest(const PlannedEvent& event) const;
    void WriteInParts(const PlannedEvent& rest, const std::vector<i16>& lengths,
                      NoteContext context);
    bool WriteCarried(const PlannedEvent& event);
    void WriteItem(const PlannedStep& step);
    void MoveTo(Rational time);
    void MakeRoomFor(Rational length);
    void SetDivisions(Rational divisions);
    void WriteMove(std::string_view name, Rational length);

    const ImportedScore& m_score;
    const ScorePart& m_part;
    const PartMeasure& m_original;
    const LineNumbers& m_numbers;
    int m_fifths;
    std::string m_indent;   // before a child of the measure, with its line break
    std::string m_unit;     // one step of indentation
    std::string m_closing;  // before the measure's end tag
    NoteWriter m_notes;
    const MeasurePlan* m_plan = nullptr;
    bool m_mayMove = true;  // durations have a unit
    Rational m_time{};
    Rational m_reached{};
    Rational m_divisions;
    std::string m_out;
};

}  // namespace standin
