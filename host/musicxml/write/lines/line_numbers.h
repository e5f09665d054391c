// Numbers that identify the lines of a part in the order in which their ends are written.
#pragma once

#include <optional>
#include <vector>

#include "host/musicxml/lines.h"
#include "host/musicxml/write/lines/line_ends.h"

namespace standin {

class LineNumbers {
public:
    // All unchanged.
    explicit LineNumbers(const PartLines& lines);

    // The number, if it differs from the one in the file.
    std::optional<int> NewOf(u32 line) const;
    std::optional<int> NewOfShape(u16 shape) const;

    const PartLines& Lines() const { return *m_lines; }
    int Of(u32 line) const { return m_numbers[line]; }
    void Set(u32 line, int number) { m_numbers[line] = number; }

private:
    const PartLines* m_lines;
    std::vector<int> m_numbers;  // by line
};

// The future content of one measure.
struct MeasureEnds {
    std::vector<WrittenEnd> ends;  // in document order
    bool rewritten = false;        // else it stays as it was read
};

struct ChosenNumbers {
    LineNumbers numbers;
    // A line for which none of 16 numbers is free, with its measure, from 0.
    struct Failure {
        u32 line = 0;
        std::size_t measure = 0;
    };
    std::optional<Failure> failure;
};

// Each line keeps its number unless one that overlaps it in the text has the same one; then the
// one with more ends in rewritten measures takes another.
ChosenNumbers ChooseLineNumbers(const PartLines& lines, const std::vector<MeasureEnds>& measures);

}  // namespace standin
