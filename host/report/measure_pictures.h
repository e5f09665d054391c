// What each measure of a report looks like before and after, for an engraver.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/report/merge_report.h"

namespace standin {

struct PicturedNote {
    std::optional<u16> layer;  // that it belonged to before the merge, from 0
    bool stays = false;        // it was to move, and did not
};

struct Picture {
    std::string measure;              // MusicXML; the notes have the ids "n0", "n1" ...
    std::vector<PicturedNote> notes;  // in the order of these ids
    std::string words;                // "Layer 1: C5, rest. Layer 2: A4"
};

struct MeasurePictures {
    Picture before;
    Picture after;
};

// One for each measure of the report, in that order. result: the merged score's XML, in UTF-8.
std::vector<MeasurePictures> PicturesOf(const MergeReport& report, const ImportedScore& score,
                                        const std::string& result);

}  // namespace standin
