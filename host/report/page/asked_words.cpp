#include "host/report/page/asked_words.h"

#include "host/report/places.h"
#include "host/score/selection.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

void Append(std::string& list, const std::string& item) {
    list += (list.empty() ? "" : ", ") + item;
}

std::string MeasuresOf(const EREGION& selection, const Document& document) {
    const auto number = [&document](int measure) {
        return PrintedNumber(document, static_cast<u16>(measure));
    };
    const std::string first = number(selection.startMeasure);
    const std::string last = number(selection.endMeasure);
    std::string words = first == last ? first : first + "\u2013" + last;
    const auto beat = [&document](int measure, i32 position) {
        return BeatAt(document, static_cast<u16>(measure), position);
    };
    if (selection.startPosition > 0) {
        Append(words, Say(Text::kPageFromBeat,
                          {BeatText(beat(selection.startMeasure, selection.startPosition))}));
    }
    if (selection.endPosition != kEndOfMeasure) {
        // The whole of the last beat belongs to it.
        const double next = beat(selection.endMeasure, selection.endPosition + 1);
        Append(words, Say(Text::kPageToBeat, {BeatText(next - 1)}));
    }
    return words;
}

std::string StavesOf(const EREGION& selection, const std::vector<std::string>& names) {
    const auto count = static_cast<int>(names.size()) - 1;
    if (selection.startSlot == 1 && selection.endSlot == count) {
        return std::string{Say(Text::kPageAllStaves)};
    }
    std::string list;
    for (int staff = selection.startSlot; staff <= selection.endSlot && staff <= count; ++staff) {
        Append(list, names[static_cast<std::size_t>(staff)]);
    }
    return list;
}

std::string OptionsOf(const MergeOptions& options) {
    std::string list;
    Append(list, std::string{Say(options.mode != 0 ? Text::kPageReplaces : Text::kPageMerges)});
    Append(list,
           std::string{Say(options.rebeam != 0 ? Text::kPageRebeams : Text::kPageKeepsBeams)});
    if (options.hideAddedRests != 0) {
        Append(list, std::string{Say(Text::kPageHidesRests)});
    }
    return list;
}

}  // namespace

std::string FileName(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

std::vector<std::pair<std::string, std::string>> AskedWords(const MergeReport& report,
                                                            const ImportedScore& score) {
    const MergeOptions& options = report.request.options;
    const std::string from = options.source == kAllLayers
                                 ? std::string{Say(Text::kPageAllLayers)}
                                 : Say(Text::kPageLayer, {std::to_string(options.source + 1)});
    std::string measures;
    for (const EREGION& selection : report.request.selections) {
        Append(measures, MeasuresOf(selection, *score.document));
    }
    return {{std::string{Say(Text::kPageFrom)}, from},
            {std::string{Say(Text::kPageTo)},
             Say(Text::kPageLayer, {std::to_string(options.destination + 1)})},
            {std::string{Say(Text::kPageMeasureList)}, measures},
            {std::string{Say(Text::kPageStaves)},
             StavesOf(report.request.selections.front(), report.staffNames)},
            {std::string{Say(Text::kOptions)}, OptionsOf(options)}};
}

}  // namespace standin
