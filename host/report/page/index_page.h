// The page that leads to the reports of several scores.
#pragma once

#include <string>
#include <vector>

namespace standin {

struct IndexRow {
    std::string score;  // its file
    std::string page;   // its report, relative to the index
    bool isMerged = true;
    std::string problem;  // why it was not merged
    int chordsFormed = 0;
    int restsFilled = 0;
    int notesMoved = 0;
    int notesCleared = 0;
    int stayed = 0;
};

std::string IndexAsPage(const std::vector<IndexRow>& rows);

}  // namespace standin
