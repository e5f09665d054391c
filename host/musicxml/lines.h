// Lines from one place of a part to another, identified by numbers: slurs and the like between
// notes, wedges and the like between directions.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "shell/host/host_types.h"

namespace standin {

enum class LineKind : u8 {
    kSlur,
    kGlissando,
    kSlide,
    kWavyLine,
    kWedge,
    kOctaveShift,
    kDashes,
    kBracket,
    kPedal,
};

// The role of an element in its line. A point on the way neither starts nor stops it.
enum class LineRole : u8 { kStart, kOnTheWay, kStop };

inline constexpr int kMaxLineNumbers = 16;  // that the format knows, from 1

// None if elements of that name do not belong to lines.
std::optional<LineKind> LineKindOf(std::string_view elementName);
std::string_view NameOfLine(LineKind kind);  // the element's

// By the element's type attribute; none for other types.
std::optional<LineRole> LineRoleOf(LineKind kind, std::string_view type);

// One element that belongs to a line, as it was read.
struct LineEnd {
    std::size_t offset = 0;  // of its '<' in the score's text
    u32 line = 0;            // in the part
    LineRole role = LineRole::kStart;
};

struct Line {
    LineKind kind = LineKind::kSlur;
    int number = 1;        // as it was read
    bool isWhole = false;  // has both its ends
};

// The lines of one part.
struct PartLines {
    std::vector<Line> lines;
    std::vector<LineEnd> ends;                   // in document order
    std::unordered_map<u16, u32> lineOfShape{};  // by the number of the smart shape
};

}  // namespace standin
