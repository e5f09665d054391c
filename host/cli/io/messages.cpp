#include "host/cli/io/messages.h"

#include <iostream>

#include "host/cli/io/output_file.h"
#include "host/cli/io/terminal.h"
#include "host/texts/texts.h"

namespace standin::cli {

void Complain(const std::string& problem) {
    const Paint paint = ErrorPaint();
    std::cerr << paint(Ink::kError, "plyweld:") << ' ' << problem << '\n';
}

void Warn(const std::string& place, const std::string& words) {
    const Paint paint = ErrorPaint();
    std::cerr << "plyweld: " << place << ": " << paint(Ink::kWarning, Say(Text::kWarning)) << ' '
              << words << '\n';
}

std::string PlaceIn(const std::string& score, std::size_t line) {
    const std::string name =
        score == kStandardStream ? std::string{Say(Text::kStandardInput)} : score;
    return line == 0 ? name : name + ':' + std::to_string(line);
}

}  // namespace standin::cli
