// The brackets of tuplets in one voice, made whole where a change broke them.
#pragma once

#include <string>
#include <vector>

namespace standin {

// The <tuplet> elements of one entry.
struct EntryBrackets {
    std::string stops;
    std::string starts;
    bool hidden = false;     // a rest that is not shown
    std::string crossing{};  // those that have their other end in another measure
};

// Takes out starts without a stop, stops without a start, unless they cross a barline, and pairs
// around nothing but hidden rests. Entries in playing order.
void DropUnpairedBrackets(std::vector<EntryBrackets>& entries);

}  // namespace standin
