#include <iostream>

#include "host/cli/commands.h"
#include "host/cli/open_score.h"
#include "host/musicxml/music/compare.h"

namespace standin::cli {

ExitCode CompareScores(const CompareCommand& command) {
    const OpenScore first{command.first};
    if (!first) {
        return kUnreadable;
    }
    const OpenScore second{command.second};
    if (!second) {
        return kUnreadable;
    }
    const auto differences = Compare(MusicOf(first.Score()), MusicOf(second.Score()));
    for (const std::string& difference : differences) {
        std::cout << difference << '\n';
    }
    if (differences.empty()) {
        std::cout << "The music is the same\n";
    }
    return differences.empty() ? kDone : kFailed;
}

}  // namespace standin::cli
