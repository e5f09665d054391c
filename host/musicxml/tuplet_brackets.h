// The brackets of tuplets in one voice, made whole where a change broke them.
#pragma once

#include <string>
#include <vector>

namespace standin {

// The <tuplet> elements of one entry.
struct EntryBrackets {
    std::string stops;
    std::string starts;
    bool hidden = false;  // a rest that is not shown
};

// Takes out starts without a stop, stops without a start, and pairs around nothing but hidden
// rests. Entries in playing order.
void DropUnpairedBrackets(std::vector<EntryBrackets>& entries);

}  // namespace standin
