// A document's content in words: music, its places and its attachments.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/score/document.h"

namespace standin {

struct EntryFacts {
    const EXENTRY* entry;
    FrameKey key;
    std::string time;                      // onset, durations, whether it is a grace entry
    std::vector<std::string> notes;        // sorted
    std::vector<std::string> attachments;  // sorted, each once; tuplets are part of the times

    bool IsNote() const { return (entry->flags & EntryFlag::kNote) != 0; }
    std::string Place() const;  // "staff 1, measure 2, 1024+1024"
};

// In order of staff, measure, layer and place. Refers into the content.
std::vector<EntryFacts> FactsOf(const DocumentContent& content);

// The flags that match the stored details, by entry number.
std::map<u32, u32> DetailFlagsByEntry(const DocumentContent& content);

}  // namespace standin
