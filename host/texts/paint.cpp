#include "host/texts/paint.h"

namespace standin {

namespace {

const char* CodeOf(Ink ink) {
    switch (ink) {
        case Ink::kHeading:
            return "\x1b[1m";
        case Ink::kError:
            return "\x1b[1;31m";
        case Ink::kWarning:
            return "\x1b[33m";
        case Ink::kSuccess:
            return "\x1b[32m";
    }
    return "";
}

}  // namespace

std::string Paint::operator()(Ink ink, std::string_view text) const {
    if (!m_usesColors) {
        return std::string{text};
    }
    std::string painted = CodeOf(ink);
    return painted.append(text).append("\x1b[0m");
}

}  // namespace standin
