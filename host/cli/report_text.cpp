#include "host/cli/report_text.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

namespace standin::cli {

namespace {

constexpr std::size_t kMostRemarks = 10;  // in the text

std::string Count(int number, const char* one, const char* many) {
    return std::to_string(number) + ' ' + (number == 1 ? one : many);
}

std::map<Stay, int> StayedByReason(const MergeReport& report) {
    std::map<Stay, int> counts;
    for (const MergedMeasure& measure : report.measures) {
        for (const StayedEntry& entry : measure.stayed) {
            ++counts[entry.reason];
        }
    }
    return counts;
}

// A name for programs.
const char* NameOf(Stay reason) {
    switch (reason) {
        case Stay::kOtherDuration:
            return "otherDuration";
        case Stay::kNoRestToFill:
            return "noRestToFill";
        case Stay::kTooManyNotes:
            return "tooManyNotes";
    }
    return "";
}

const char* NameOf(Remark::Kind kind) {
    switch (kind) {
        case Remark::Kind::kVoiceNotMerged:
            return "voiceNotMerged";
        case Remark::Kind::kLyricNumber:
            return "lyricNumber";
        case Remark::Kind::kMarking:
            return "marking";
    }
    return "";
}

nlohmann::ordered_json AsJson(const Remark& remark) {
    nlohmann::ordered_json json{
        {"kind", NameOf(remark.kind)}, {"staff", remark.staff}, {"measure", remark.measure}};
    json["number"] = remark.number;
    if (remark.layer) {
        json["layer"] = *remark.layer + 1;
    }
    if (remark.onset) {
        json["beat"] = remark.beat;
    }
    json["what"] = remark.what;
    json["text"] = WordsFor(remark);
    return json;
}

}  // namespace

MergeReport ReportRun(const ImportedScore& score, const EREGION& selection,
                      const MergeOptions& options) {
    MergeReport report = ReportMerge(score, options.destination, selection);
    report.remarks = RemarksOn(score, options.destination, selection);
    for (const ReadWarning& warning : score.warnings.All()) {
        report.warnings.push_back("line " + std::to_string(warning.line) + ": " + warning.Words());
    }
    if (options.source != kAllLayers) {
        for (MergedMeasure& measure : report.measures) {
            std::erase_if(measure.stayed, [&options](const StayedEntry& entry) {
                return entry.layer != options.source;
            });
        }
        std::erase_if(report.measures, [](const MergedMeasure& measure) {
            return measure.notesMoved == 0 && measure.restsFilled == 0 && measure.stayed.empty();
        });
    }
    return report;
}

std::string ReportAsText(const MergeReport& report, bool verified) {
    std::string text = Count(report.ChordsFormed(), "chord", "chords") + " formed, " +
                       Count(report.RestsFilled(), "rest", "rests") + " filled, " +
                       Count(report.NotesMoved(), "note", "notes") + " moved\n" +
                       Count(report.Stayed(), "note or chord", "notes and chords") +
                       " left in other layers\n";
    for (const auto& [reason, count] : StayedByReason(report)) {
        text += "  " + std::to_string(count) + ": " + WordsForReason(reason) + '\n';
    }
    const std::size_t told = std::min(report.remarks.size(), kMostRemarks);
    for (std::size_t i = 0; i < told; ++i) {
        text += WordsFor(report.remarks[i]) + '\n';
    }
    if (told < report.remarks.size()) {
        text += "and " + std::to_string(report.remarks.size() - told) +
                " more such remarks (--json tells all)\n";
    }
    if (verified) {
        text += "Verified: no music was lost\n";
    }
    return text;
}

std::string ReportAsJson(const MergeReport& report, bool verified) {
    nlohmann::ordered_json json{{"chordsFormed", report.ChordsFormed()},
                                {"restsFilled", report.RestsFilled()},
                                {"notesMoved", report.NotesMoved()},
                                {"left", report.Stayed()},
                                {"leftBecause", nlohmann::ordered_json::object()},
                                {"measures", nlohmann::ordered_json::array()},
                                {"verified", verified}};
    for (const auto& [reason, count] : StayedByReason(report)) {
        json["leftBecause"][NameOf(reason)] = count;
    }
    for (const Remark& remark : report.remarks) {
        json["remarks"].push_back(AsJson(remark));
    }
    if (!report.warnings.empty()) {
        json["warnings"] = report.warnings;
    }
    for (const MergedMeasure& measure : report.measures) {
        json["measures"].push_back({{"staff", measure.staff},
                                    {"measure", measure.measure},
                                    {"chordsFormed", measure.chordsFormed},
                                    {"restsFilled", measure.restsFilled},
                                    {"notesMoved", measure.notesMoved},
                                    {"left", measure.stayed.size()}});
    }
    return json.dump(2) + '\n';
}

}  // namespace standin::cli
