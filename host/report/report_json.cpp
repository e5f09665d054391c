#include "host/report/report_json.h"

#include <nlohmann/json.hpp>

#include "host/report/places.h"

namespace standin {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormat = 1;  // changes when programs that read it would have to change

const char* NameOf(Remark::Kind kind) {
    switch (kind) {
        case Remark::Kind::kVoiceNotMerged:
            return "voiceNotMerged";
        case Remark::Kind::kLyricNumber:
            return "lyricNumber";
        case Remark::Kind::kMarking:
            return "marking";
        case Remark::Kind::kTie:
            return "tie";
        case Remark::Kind::kLine:
            return "line";
        case Remark::Kind::kTuplet:
            return "tuplet";
    }
    return "";
}

Json AsJson(const Remark& remark) {
    Json json{{"kind", NameOf(remark.kind)},
              {"staff", remark.staff},
              {"measure", remark.measure},
              {"number", remark.number}};
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

Json AsJson(const MergedMeasure& measure, const MergeReport& report) {
    Json stayed = Json::array();
    for (const StayedEntry& entry : measure.stayed) {
        stayed.push_back({{"layer", entry.layer + 1},
                          {"beat", entry.beat},
                          {"pitches", entry.pitches},
                          {"reason", NameOf(entry.reason)},
                          {"text", WordsForReason(entry.reason)}});
    }
    return {{"staff", measure.staff},
            {"staffName", report.staffNames[measure.staff]},
            {"measure", measure.measure},
            {"number", measure.number},
            {"chordsFormed", measure.chordsFormed},
            {"restsFilled", measure.restsFilled},
            {"notesMoved", measure.notesMoved},
            {"notesCleared", measure.notesCleared},
            {"stayed", stayed}};
}

Json AsJson(const MergeOptions& options) {
    Json json{{"from", options.source == kAllLayers ? Json("all") : Json(options.source + 1)},
              {"to", options.destination + 1},
              {"replace", options.mode != 0}};
    for (const MergeSwitch& each : kMergeSwitches) {
        json[each.jsonName] = options.*each.member != 0;
    }
    return json;
}

// Positions are duration units from the barline; a last position of null is the measure's end.
Json AsJson(const EREGION& selection) {
    // Copies, because fields of a packed structure cannot be bound to references.
    const i32 first = selection.startPosition;
    const i32 last = selection.endPosition;
    return {{"firstStaff", i16{selection.startSlot}},
            {"lastStaff", i16{selection.endSlot}},
            {"firstMeasure", i16{selection.startMeasure}},
            {"firstPosition", first},
            {"lastMeasure", i16{selection.endMeasure}},
            {"lastPosition", last == kEndOfMeasure ? Json(nullptr) : Json(last)}};
}

Json Totals(const MergeReport& report) {
    Json reasons = Json::object();
    for (const auto& [reason, count] : report.StayedByReason()) {
        reasons[NameOf(reason)] = count;
    }
    return {{"chordsFormed", report.ChordsFormed()},
            {"restsFilled", report.RestsFilled()},
            {"notesMoved", report.NotesMoved()},
            {"notesCleared", report.NotesCleared()},
            {"stayed", report.Stayed()},
            {"stayedBecause", reasons}};
}

template <typename Rows, typename Convert>
Json ArrayOf(const Rows& rows, Convert convert) {
    Json array = Json::array();
    for (const auto& row : rows) {
        array.push_back(convert(row));
    }
    return array;
}

}  // namespace

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

Json ReportAsJson(const MergeReport& report) {
    return {{"format", kFormat},
            {"program", "Plyweld " PLYWELD_VERSION},
            {"input", report.request.input},
            {"output", report.request.output.empty() ? Json(nullptr) : Json(report.request.output)},
            {"options", AsJson(report.request.options)},
            {"selections", ArrayOf(report.request.selections,
                                   [](const EREGION& selection) { return AsJson(selection); })},
            {"verified", report.verified},
            {"totals", Totals(report)},
            {"measures",
             ArrayOf(report.measures, [&](const MergedMeasure& m) { return AsJson(m, report); })},
            {"remarks", ArrayOf(report.remarks, [](const Remark& r) { return AsJson(r); })},
            {"warnings", report.warnings}};
}

std::string ReportAsJsonText(const MergeReport& report) {
    return ReportAsJson(report).dump(2);
}

}  // namespace standin
