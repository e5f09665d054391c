// Numbers that tell the lines of a part apart in the order in which their ends are written.
#pragma once

#include <optional>
#include <vector>

#include "host/musicxml/lines.h"
#include "host/musicxml/write/line_ends.h"

namespace standin {

class LineNumbers {
public:
    // All as they were read.
    explicit LineNumbers(const PartLines& lines);

    // The number, where it is not the one that was read.
    std::optional<int> NewOf(u32 line) const;
    std::optional<int> NewOfShape(u16 shape) const;

    const PartLines& Lines() const { return *m_lines; }
    int Of(u32 line) const { return m_numbers[line]; }
    void Set(u32 line, int number) { m_numbers[line] = number; }

private:
    const PartLines* m_lines;
    std::vector<int> m_numbers;  // by line
};

// What one measure will hold.
struct MeasureEnds {
    std::vector<WrittenEnd> ends;  // in document order
    bool rewritten = false;        // else it stays as it was read
};

struct ChosenNumbers {
    LineNumbers numbers;
    // A line that finds no number among 16, with the measure, from 0, that it stands in.
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
