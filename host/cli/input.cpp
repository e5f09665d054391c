#include "host/cli/input.h"

#include <iostream>
#include <iterator>
#include <utility>

#include "host/cli/output_file.h"

namespace standin::cli {

ReadResult ReadInput(const std::string& name, Document* into) {
    if (name != kStandardStream) {
        return ReadScore(PathOf(name), into);
    }
    std::string bytes{std::istreambuf_iterator<char>{std::cin}, {}};
    return ReadScore(std::move(bytes), into);
}

void ReportUnreadable(const std::string& name, const ReadResult& result) {
    std::cerr << (name == kStandardStream ? "standard input" : name);
    if (result.line > 0) {
        std::cerr << ':' << result.line;
    }
    std::cerr << ": " << result.message << '\n';
}

}  // namespace standin::cli
