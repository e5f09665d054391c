#include "host/musicxml/write/entries/read_tuplets.h"

#include "host/musicxml/write/entries/tuplet_brackets.h"
#include "host/score/records/tags.h"
#include "shell/host/detail_flags.h"

namespace standin {
namespace {

RecordStore ReadTupletRecords(const Document& document, const Frame& frame) {
    RecordStore records;
    for (const EXENTRY& entry : frame.entries) {
        for (u16 number = 0; (entry.flags & DetailFlag::kTuplet) != 0; ++number) {
            const RecordKey key = RecordKey::OfEntry(entry.entryNumber, number);
            const Bytes* record = document.ImportedRecord(Tag::kTuplet, key);
            if (record == nullptr) {
                break;
            }
            records.Exchange(Tag::kTuplet, key, *record);
        }
    }
    return records;
}

void AddReadTuplets(const Frame& frame, const RecordStore& records,
                    const std::vector<TimedEntry>& entries, std::size_t staff, u16 layer,
                    std::vector<ReadTuplet>& all) {
    std::vector<std::size_t> indices;
    indices.reserve(entries.size());
    for (const TimedEntry& timed : entries) {
        indices.push_back(static_cast<std::size_t>(timed.entry - frame.entries.data()));
    }
    std::vector<BracketTuplet> tuplets;
    AddBracketTuplets(frame.entries, records, indices, tuplets);
    for (const BracketTuplet& tuplet : tuplets) {
        if (tuplet.text.start != 0 && tuplet.text.stop != 0) {
            const auto first = entries.begin() + static_cast<std::ptrdiff_t>(tuplet.first);
            const auto last = entries.begin() + static_cast<std::ptrdiff_t>(tuplet.last);
            all.push_back({staff,
                           layer,
                           first->start,
                           last->start + last->length,
                           tuplet.text,
                           {first, last + 1}});
        }
    }
}

}  // namespace

std::vector<ReadTuplet> ReadTupletsOf(const ImportedScore& score, const ScorePart& part,
                                      u16 measure) {
    std::vector<ReadTuplet> all;
    const PartMeasure& original = part.measures[measure - 1U];
    for (std::size_t staff = 0; staff < part.staves.size(); ++staff) {
        for (u16 layer = 0; layer < original.layers; ++layer) {
            const Frame* frame =
                score.document->ImportedFrame({part.staves[staff].staff, measure, layer});
            if (frame == nullptr) {
                continue;
            }
            const RecordStore records = ReadTupletRecords(*score.document, *frame);
            for (const bool voice2 : {false, true}) {
                AddReadTuplets(*frame, records,
                               TimedEntriesOf(score, *frame, voice2, original.grid), staff, layer,
                               all);
            }
        }
    }
    return all;
}

}  // namespace standin
