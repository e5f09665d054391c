#include "host/report/report_text.h"

#include <algorithm>
#include <set>

#include "host/report/places.h"
#include "host/texts/texts.h"

namespace standin {

namespace {

constexpr std::size_t kMaxLines = 10;  // of a list, without details
constexpr std::size_t kMaxBeats = 8;   // in a line

std::string Count(int number, Text one, Text many) {
    return Say(number == 1 ? one : many, {std::to_string(number)});
}

// Music that stayed in one layer of one staff for one reason, in consecutive measures.
struct Stretch {
    u16 staff = 0;
    u16 layer = 0;
    Stay reason = Stay::kNoRestToFill;
    const MergedMeasure* first = nullptr;
    const MergedMeasure* last = nullptr;
    int count = 0;
    std::set<double> beats;
};

// Extends the range that ends in the previous measure, or starts a new one.
void Add(std::vector<Stretch>& stretches, const MergedMeasure& measure, const StayedEntry& entry) {
    const auto goesOn = [&](const Stretch& stretch) {
        return stretch.staff == measure.staff && stretch.layer == entry.layer &&
               stretch.reason == entry.reason && stretch.last->measure + 1 >= measure.measure;
    };
    const auto found = std::find_if(stretches.rbegin(), stretches.rend(), goesOn);
    Stretch& stretch = found != stretches.rend() ? *found : stretches.emplace_back();
    if (stretch.first == nullptr) {
        stretch = {measure.staff, entry.layer, entry.reason, &measure, &measure, 0, {}};
    }
    stretch.last = &measure;
    ++stretch.count;
    stretch.beats.insert(entry.beat);
}

std::vector<Stretch> StretchesOf(const MergeReport& report) {
    std::vector<Stretch> stretches;
    for (const MergedMeasure& measure : report.measures) {
        for (const StayedEntry& entry : measure.stayed) {
            Add(stretches, measure, entry);
        }
    }
    return stretches;
}

std::string BeatsOf(const Stretch& stretch) {
    std::string list;
    std::size_t shown = 0;
    for (const double beat : stretch.beats) {
        if (shown++ == kMaxBeats) {
            return list + ", ...";
        }
        list += (list.empty() ? "" : ", ") + BeatText(beat);
    }
    return list;
}

std::string LineOf(const Stretch& stretch, const MergeReport& report) {
    const bool isOne = stretch.first == stretch.last;
    const std::string range =
        stretch.first->number + (isOne ? "" : "\u2013" + stretch.last->number);
    return Say(Text::kStayLine, {range, report.staffNames[stretch.staff],
                                 Count(stretch.count, Text::kOneStays, Text::kManyStay),
                                 std::to_string(stretch.layer + 1), WordsForReason(stretch.reason),
                                 Say(stretch.beats.size() == 1 ? Text::kOneBeat : Text::kManyBeats,
                                     {BeatsOf(stretch)})});
}

}  // namespace

std::string ListOf(const std::vector<std::string>& lines, const std::string& indent,
                   bool withDetails) {
    const std::size_t shown = withDetails ? lines.size() : std::min(lines.size(), kMaxLines);
    std::string text;
    for (std::size_t i = 0; i < shown; ++i) {
        text.append(indent).append(lines[i]).append("\n");
    }
    if (shown < lines.size()) {
        text += indent + Say(Text::kMoreLines, {std::to_string(lines.size() - shown)}) + '\n';
    }
    return text;
}

std::string ClearedLine(const MergeReport& report) {
    return Say(Text::kClearedLine,
               {Count(report.NotesCleared(), Text::kOneNote, Text::kManyNotes),
                Count(report.MeasuresCleared(), Text::kOneMeasure, Text::kManyMeasures),
                std::to_string(report.request.options.destination + 1)});
}

std::string ReportAsText(const MergeReport& report, bool withDetails, const Paint& paint) {
    const std::string moved =
        Count(report.ChordsFormed(), Text::kOneChordFormed, Text::kManyChordsFormed) + ", " +
        Count(report.RestsFilled(), Text::kOneRestFilled, Text::kManyRestsFilled) + ", " +
        Count(report.NotesMoved(), Text::kOneNoteMoved, Text::kManyNotesMoved);
    std::string text = paint(Ink::kHeading, moved) + '\n';
    if (report.NotesCleared() > 0) {
        text += paint(Ink::kWarning, ClearedLine(report)) + '\n';
    }
    std::vector<std::string> stays;
    for (const Stretch& stretch : StretchesOf(report)) {
        stays.push_back(LineOf(stretch, report));
    }
    const std::string left = Count(report.Stayed(), Text::kOneLeft, Text::kManyLeft);
    text += stays.empty() ? left + '\n' : paint(Ink::kHeading, left + ':') + '\n';
    text += ListOf(stays, "  ", withDetails);
    std::vector<std::string> remarks;
    for (const Remark& remark : report.remarks) {
        remarks.push_back(WordsFor(remark));
    }
    if (!remarks.empty()) {
        text += paint(Ink::kHeading, std::string{Say(Text::kRemarks)} + ':') + '\n' +
                ListOf(remarks, "  ", withDetails);
    }
    if (report.verified) {
        const Text verified =
            report.NotesCleared() > 0 ? Text::kVerifiedButCleared : Text::kVerified;
        text += paint(Ink::kSuccess, Say(verified)) + '\n';
    }
    return text;
}

}  // namespace standin
