#include "host/musicxml/write/lines/line_numbers.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

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

// What lines with one number cover of the text.
class Cover {
public:
    void Add(const Span& span) {
        Span whole = span;
        auto at = FirstFrom(span.first);
        while (at != m_stretches.end() && at->first <= span.last) {
            whole.first = std::min(whole.first, at->first);
            whole.last = std::max(whole.last, at->second);
            at = m_stretches.erase(at);
        }
        m_stretches.emplace(whole.first, whole.last);
        if (span.hasStart && !span.hasStop) {
            m_firstStart = std::min(m_firstStart, span.first);
        } else if (span.hasStop && !span.hasStart) {
            m_lastStop = std::max(m_lastStop, span.first);
        }
    }

    // Whether a line over this span needs another number. A start and a later stop would pair if
    // neither had an end of its own.
    bool Excludes(const Span& span) const {
        const auto at = FirstFrom(span.first);
        return (at != m_stretches.end() && at->first <= span.last) ||
               (span.hasStop && !span.hasStart && m_firstStart < span.first) ||
               (span.hasStart && !span.hasStop && m_lastStop > span.first);
    }

private:
    using Stretches = std::map<std::size_t, std::size_t>;  // first to last; none overlap

    // The first stretch that ends at the position or behind it.
    Stretches::const_iterator FirstFrom(std::size_t position) const {
        const auto after = m_stretches.upper_bound(position);
        const bool isInside = after != m_stretches.begin() && std::prev(after)->second >= position;
        return isInside ? std::prev(after) : after;
    }

    Stretches m_stretches;
    std::size_t m_firstStart = kNever;  // of a line without a stop
    std::size_t m_lastStop = 0;         // of a line without a start
};

class Numbering {
public:
    Numbering(const PartLines& lines, const std::vector<MeasureEnds>& measures)
        : m_lines{lines}, m_spans(lines.lines.size()), m_chosen{LineNumbers{lines}, {}} {
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
            }
        }
        std::ranges::sort(m_order, {}, [this](u32 line) { return m_spans[line].first; });
    }

    ChosenNumbers Run() {
        CountUses();
        for (const u32 line : m_order) {
            if (m_spans[line].isFixed) {
                UseOf(line).cover.Add(m_spans[line]);
            }
        }
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
    // The lines of one kind that have one number.
    struct Use {
        Cover cover;  // of those whose number is chosen
        int lines = 0;
        int halves = 0;  // with one end
    };

    Use& UseOf(u32 line) { return m_uses[{m_lines.lines[line].kind, m_chosen.numbers.Of(line)}]; }

    // Nothing is covered yet.
    void CountUses() {
        m_uses.clear();
        for (const u32 line : m_order) {
            Count(line, 1);
        }
    }

    void Count(u32 line, int more) {
        Use& use = UseOf(line);
        use.lines += more;
        use.halves += m_spans[line].IsWhole() ? 0 : more;
    }

    // False: the line needs another number, and none is free.
    bool Choose(u32 line) {
        bool done = true;
        if (UseOf(line).cover.Excludes(m_spans[line])) {
            const int number = FreeNumber(line);
            done = number != 0;
            if (done) {
                Count(line, -1);
                m_chosen.numbers.Set(line, number);
                Count(line, 1);
            }
        }
        UseOf(line).cover.Add(m_spans[line]);
        return done;
    }

    // 0: none. Where a line has one end, one that no other line has is better.
    int FreeNumber(u32 line) {
        const Span& span = m_spans[line];
        int free = 0;
        for (int number = 1; number <= kMaxLineNumbers; ++number) {
            const Use& use = m_uses[{m_lines.lines[line].kind, number}];
            if (use.cover.Excludes(span)) {
                continue;
            }
            if ((span.IsWhole() ? use.halves : use.lines) == 0) {
                return number;
            }
            free = free == 0 ? number : free;
        }
        return free;
    }

    // Numbers ran out: in document order no line needs more of them than overlap at one place.
    void StartAfresh() {
        m_chosen.numbers = LineNumbers{m_lines};
        std::vector<Span> read(m_spans.size());
        for (std::size_t i = 0; i < m_lines.ends.size(); ++i) {
            Extend(read[m_lines.ends[i].line], i, m_lines.ends[i].role);
        }
        CountUses();
        for (const u32 line : m_order) {
            if (Choose(line) || m_chosen.failure) {
                continue;
            }
            const Line& own = m_lines.lines[line];
            const bool wasApart = std::ranges::none_of(m_order, [&](u32 other) {
                return other != line && m_lines.lines[other].kind == own.kind &&
                       m_lines.lines[other].number == own.number &&
                       m_spans[line].Overlaps(m_spans[other]) && read[line].Overlaps(read[other]);
            });
            if (wasApart) {
                m_chosen.failure = {line, m_spans[line].measure};
            }
        }
    }

    const PartLines& m_lines;
    std::vector<Span> m_spans;  // by line
    std::vector<u32> m_order;   // of those that are written, by their first end
    std::map<std::pair<LineKind, int>, Use> m_uses;  // by number
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
