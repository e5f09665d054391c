// A document's content in words: music, its places and its attachments.
#pragma once

#include <string>
#include <vector>

#include "host/score/document.h"
#include "host/verify/changed_places.h"

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

// In order of staff, measure, layer and place; of the whole content or of these measures alone.
// Refers into the content.
std::vector<EntryFacts> FactsOf(const DocumentContent& content);
std::vector<EntryFacts> FactsOf(const DocumentContent& content, const StaffMeasures& measures);

}  // namespace standin
