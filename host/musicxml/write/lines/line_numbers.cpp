#include "host/musicxml/write/lines/line_numbers.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <iterator>
#include <limits>

namespace standin {
namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

// The range of the text that a line covers, counted in ends of lines.
struct Span {
    std::size_t first = kNever;
    std::size_t last = 0;
    std::size_t measure = 0;  // of its first end
    bool hasStart = false;
    bool hasStop = false;
    bool isFixed = true;     // no end is in a rewritten measure
    bool isWritten = false;  // every end is in one

    bool Exists() const noexcept { return first != kNever; }
    bool IsWhole() const noexcept { return hasStart && hasStop; }
    bool Overlaps(const Span& other) const noexcept {
        return first <= other.last && other.first <= last;
    }
};

void Extend(Span& span, std::size_t position, LineRole role) {
    span.first = std::min(span.first, position);
    span.last = std::max(span.last, position);
    span.hasStart = span.hasStart || role == LineRole::kStart;
    span.hasStop = span.hasStop || role == LineRole::kStop;
}

using Taken = std::bitset<kMaxLineNumbers + 1>;  // by number; none is 0

void Take(Taken& taken, int number) {
    if (number >= 1 && number <= kMaxLineNumbers) {
        taken.set(static_cast<std::size_t>(number));
    }
}

// 0 when all are taken.
int FirstFree(Taken taken) {
    for (int number = 1; number <= kMaxLineNumbers; ++number) {
        if (!taken[static_cast<std::size_t>(number)]) {
            return number;
        }
    }
    return 0;
}

class Numbering {
public:
    Numbering(const PartLines& lines, const std::vector<MeasureEnds>& measures)
        : m_lines{lines},
          m_spans(lines.lines.size()),
          m_neighbours(lines.lines.size()),
          m_done(lines.lines.size()),
          m_chosen{LineNumbers{lines}, {}} {
        std::size_t position = 0;
        for (std::size_t measure = 0; measure < measures.size(); ++measure) {
            for (const WrittenEnd& end : measures[measure].ends) {
                Span& span = m_spans[end.line];
                if (!span.Exists()) {
                    span.measure = measure;
                    span.isWritten = true;
                }
                Extend(span, position++, end.role);
                span.isFixed = span.isFixed && !measures[measure].rewritten;
                span.isWritten = span.isWritten && measures[measure].rewritten;
            }
        }
        for (u32 line = 0; line < m_spans.size(); ++line) {
            if (m_spans[line].Exists()) {
                m_order.push_back(line);
                m_done[line] = m_spans[line].isFixed;
            }
        }
        std::ranges::sort(m_order,
                          [this](u32 a, u32 b) { return m_spans[a].first < m_spans[b].first; });
        std::ranges::copy_if(m_order, std::back_inserter(m_halves),
                             [this](u32 line) { return !m_spans[line].IsWhole(); });
    }

    ChosenNumbers Run() {
        FindNeighbours();
        bool done = true;
        for (const bool written : {false, true}) {
            for (const u32 line : m_order) {
                if (!m_spans[line].isFixed && m_spans[line].isWritten == written) {
                    done = Choose(line) && done;
                }
            }
        }
        if (!done) {
            StartAfresh();
        }
        return std::move(m_chosen);
    }

private:
    // Lines of a kind that must have different numbers. Unchanged lines are not compared with each
    // other.
    void FindNeighbours() {
        std::array<std::vector<u32>, 9> open;  // by kind: those still open
        std::array<std::vector<u32>, 9> startsOnly;
        for (const u32 line : m_order) {
            const Span& span = m_spans[line];
            const auto kind = static_cast<std::size_t>(m_lines.lines[line].kind);
            std::erase_if(open.at(kind),
                          [&](u32 other) { return m_spans[other].last < span.first; });
            for (const u32 other : open.at(kind)) {
                Join(line, other);
            }
            open.at(kind).push_back(line);
            if (span.hasStart && !span.hasStop) {
                startsOnly.at(kind).push_back(line);
            } else if (span.hasStop && !span.hasStart) {
                for (const u32 other : startsOnly.at(kind)) {
                    Join(line, other);
                }
            }
        }
    }

    void Join(u32 a, u32 b) {
        if (m_spans[a].isFixed && m_spans[b].isFixed) {
            return;
        }
        m_neighbours[a].push_back(b);
        m_neighbours[b].push_back(a);
    }

    bool Choose(u32 line) {
        Taken taken;
        bool isTaken = false;
        for (const u32 other : m_neighbours[line]) {
            if (m_done[other]) {
                const int number = m_chosen.numbers.Of(other);
                Take(taken, number);
                isTaken = isTaken || number == m_lines.lines[line].number;
            }
            if (isTaken && FirstFree(taken) == 0) {
                break;
            }
        }
        m_done[line] = true;
        if (!isTaken) {
            return true;
        }
        Taken cautious = taken;
        for (const u32 other : m_spans[line].IsWhole() ? m_halves : m_order) {
            if (m_lines.lines[other].kind == m_lines.lines[line].kind) {
                Take(cautious, m_chosen.numbers.Of(other));
            }
        }
        const int free = FirstFree(cautious) != 0 ? FirstFree(cautious) : FirstFree(taken);
        if (free != 0) {
            m_chosen.numbers.Set(line, free);
        }
        return free != 0;
    }

    // Numbers ran out: in document order no line needs more of them than overlap at one place.
    void StartAfresh() {
        m_chosen.numbers = LineNumbers{m_lines};
        std::vector<Span> read(m_spans.size());
        for (std::size_t i = 0; i < m_lines.ends.size(); ++i) {
            Extend(read[m_lines.ends[i].line], i, m_lines.ends[i].role);
        }
        for (Span& span : m_spans) {
            span.isFixed = false;
        }
        m_done.assign(m_spans.size(), false);
        for (std::vector<u32>& neighbours : m_neighbours) {
            neighbours.clear();
        }
        FindNeighbours();
        for (const u32 line : m_order) {
            if (Choose(line) || m_chosen.failure) {
                continue;
            }
            const bool wasTold = std::ranges::none_of(m_neighbours[line], [&](u32 other) {
                return m_lines.lines[other].number == m_lines.lines[line].number &&
                       read[line].Overlaps(read[other]);
            });
            if (wasTold) {
                m_chosen.failure = {line, m_spans[line].measure};
            }
        }
    }

    const PartLines& m_lines;
    std::vector<Span> m_spans;  // by line
    std::vector<std::vector<u32>> m_neighbours;
    std::vector<bool> m_done;   // whose number is chosen
    std::vector<u32> m_order;   // of those that are written, by their first end
    std::vector<u32> m_halves;  // likewise, of those with one end
    ChosenNumbers m_chosen;
};

}  // namespace

LineNumbers::LineNumbers(const PartLines& lines) : m_lines{&lines} {
    m_numbers.reserve(lines.lines.size());
    for (const Line& line : lines.lines) {
        m_numbers.push_back(line.number);
    }
}

std::optional<int> LineNumbers::NewOf(u32 line) const {
    const int number = m_numbers[line];
    return number == m_lines->lines[line].number ? std::nullopt : std::optional{number};
}

std::optional<int> LineNumbers::NewOfShape(u16 shape) const {
    const auto line = m_lines->lineOfShape.find(shape);
    return line == m_lines->lineOfShape.end() ? std::nullopt : NewOf(line->second);
}

ChosenNumbers ChooseLineNumbers(const PartLines& lines, const std::vector<MeasureEnds>& measures) {
    return Numbering{lines, measures}.Run();
}

}  // namespace standin
