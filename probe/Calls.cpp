// What single calls answer, and whether what they answer is what is assumed.
#include <algorithm>
#include <array>
#include <string>

#include "probe/LastWritten.h"
#include "probe/Measure.h"
#include "shell/host/callbacks.h"
#include "shell/host/output_room.h"

namespace probe {

namespace {

constexpr u32 kNumberUnits = 24;
constexpr i16 kNoSuchPart = 32000;

template <std::size_t kUnits>
bool IsEnded(const std::array<char16, kUnits>& buffer) {
    return std::ranges::find(buffer, u'\0') != buffer.end();
}

// Makes current what is current already: the result says whether that worked, or nothing.
void MeasureSwitches(Findings& findings, const Score& score) {
    const i16 made = Host::SetCurrentEnigmaDocument(score.document);
    const i16 part = Host::GetCurrentPartID();
    const i16 partMade = part < 0 ? i16{0} : Host::SetCurrentPartID(part);
    findings.Add("FX_SetCurrentEnigmaDocument", Say(Text::kStaysCurrent),
                 SayNumbers(Text::kResult, made),
                 Host::GetCurrentEnigmaDocument() == score.document);
    if (part >= 0) {
        findings.Add("FX_SetCurrentPartID", Say(Text::kStaysCurrent),
                     SayNumbers(Text::kResult, partMade), Host::GetCurrentPartID() == part);
    }
    findings.Begin(Text::kFreedoms);
    findings.Add("FX_SetCurrentEnigmaDocument", Say(Text::kUsualDone),
                 SayNumbers(Text::kResult, made), made != 0);
    std::array<char16, 512> name{};
    const i16 named = Host::GetPartName(kNoSuchPart, name.data(), u32{511});
    if (Host::GetMaxLayers() > 0 && name[0] == 0) {
        findings.Add("FX_GetPartName_UTF16", Say(Text::kUsualNotDone),
                     SayNumbers(Text::kResult, named), named == 0);
    }
    findings.Begin(Text::kCalls);
}

void MeasureDocuments(Findings& findings, const Score& score) {
    bool isMet = false;
    int steps = 0;
    u16 document = Host::GetNextEnigmaDocument(u16{0});
    for (; document != 0 && steps < 1000; ++steps) {
        isMet = isMet || document == score.document;
        document = Host::GetNextEnigmaDocument(document);
    }
    findings.Add("FX_GetNextEnigmaDocument", Say(Text::kInWalk), std::to_string(steps),
                 isMet && document == 0);
    int parts = 0;
    bool rises = true;
    i16 last = 0;
    i16 part = Host::GetNextPartID(i16{0});
    for (; part >= 0 && parts < 1000; ++parts) {
        rises = rises && part > last;
        last = part;
        part = Host::GetNextPartID(part);
    }
    findings.Add("FX_GetNextPartID", Say(Text::kEndsNegative), std::to_string(parts),
                 rises && part < 0);
    findings.Add("FX_GetCurrentEnigmaDocument", Say(Text::kDocumentAnswered),
                 std::to_string(score.document), score.document != 0);
    findings.Add("FX_GetCurrentPartID", Say(Text::kZeroOrMore),
                 std::to_string(Host::GetCurrentPartID()), Host::GetCurrentPartID() >= 0);
}

void MeasureRegion(Findings& findings, const Score& score) {
    u64 result = 0;
    EREGION selection{};
    EREGION whole{};
    const bool isSelected = Host::GetCurERegions(&result, &selection, &whole) != 0;
    findings.Add("FX_GetCurERegions", Say(Text::kRegionWhole),
                 std::to_string(whole.endSlot) + ", " + std::to_string(whole.endMeasure),
                 whole.startSlot == 1 && whole.startMeasure == 1 && whole.endSlot >= 1 &&
                     whole.endMeasure >= 1 && whole.startStaffList == 0);
    if (isSelected) {
        findings.Add("FX_GetCurERegions selection", Say(Text::kSelectionInside),
                     SayNumbers(Text::kTextsLine, selection.endSlot - selection.startSlot + 1,
                                i16{selection.startMeasure}, i16{selection.endMeasure}),
                     selection.startSlot >= 1 && selection.startMeasure >= 1 &&
                         selection.endMeasure <= score.measures);
    } else {
        findings.AddNotSeen("FX_GetCurERegions selection", Say(Text::kSelectionInside));
    }
}

void MeasureLayersAndStaves(Findings& findings, const Score& score) {
    findings.Add("FX_GetMaxLayers", Say(Text::kFourLayers), std::to_string(Host::GetMaxLayers()),
                 Host::GetMaxLayers() >= 1);
    int shown = 0;
    for (i16 layer = 0; layer < score.layers; ++layer) {
        shown += Host::GetShowLayer(layer) != 0 ? 1 : 0;
    }
    findings.Add("FX_GetShowLayer", Say(Text::kLayerShown),
                 SayNumbers(Text::kCounted, shown, int{score.layers}), shown > 0);
    Tally slots;
    for (i16 slot = 1; slot <= score.slots; ++slot) {
        const u16 staff = Host::SlotToInst(slot, u16{0});
        slots.Count(staff != 0 && Host::InstToSlot(staff, u16{0}) == slot);
    }
    findings.Add("FX_SlotToInst", Say(Text::kSlotStaff), slots);
    findings.Add("FX_InstToSlot", Say(Text::kSlotStaff), slots);
}

void MeasureMeasures(Findings& findings, const Score& score) {
    const u16 staff = Host::SlotToInst(i16{1}, u16{0});
    Tally durations;
    Tally numbers;
    for (i16 measure = 1; measure <= score.measures; ++measure) {
        durations.Count(Host::GetMeasureDuration(u16{0}, measure) > 0 &&
                        Host::GetMeasureDuration(staff, measure) > 0);
        std::array<char16, 2 * kNumberUnits> text;
        text.fill(0x5A5A);
        const bool isThere =
            Host::GetMeasureNumberString(measure, text.data(), kNumberUnits, i16{1}, i16{0}) != 0;
        if (isThere) {
            numbers.Count(IsEnded(text) && std::all_of(text.begin() + kNumberUnits, text.end(),
                                                       [](char16 c) { return c == 0x5A5A; }));
        }
    }
    findings.Add("FX_GetMeasureDuration", Say(Text::kPositive), durations);
    findings.Add("FX_GetMeasureNumberString", Say(Text::kNumberText), numbers);
    findings.Add("FX_GetKeySig", Say(Text::kKeyAnswered),
                 SayNumbers(Text::kResult, Host::GetKeySig(i16{1}, staff, i16{0}, i16{0})), true);
}

void MeasureTexts(Findings& findings, const Score& score) {
    std::array<char16, 2048> path{};
    const i16 pathResult = Host::GetDocumentPath(score.document, path.data(), u32{1024});
    const auto add = [&findings](const char* subject, bool isWritten, bool isEnded, i16 result) {
        if (!isWritten) {
            findings.AddNotSeen(subject, Say(Text::kTextWritten));
            return;
        }
        findings.Add(subject, Say(Text::kTextWritten), SayNumbers(Text::kResult, result), isEnded);
    };
    add("FX_GetDocumentPath text", path[0] != 0, IsEnded(path), pathResult);
    std::array<char16, 4096> name{};
    const i16 nameResult =
        Host::AutoNumberedName(Host::SlotToInst(i16{1}, u16{0}), i16{1}, i32{0}, name.data());
    add("FX_AutoNumberedName_UTF16 text", name[0] != 0, IsEnded(name), nameResult);
}

void MeasureWindow(Findings& findings, const Score& score) {
    OutputRoom<WINDOWINFO> room;
    if (Host::GetCurrentWindowInfo(room.Address()) == 0) {
        findings.AddNotSeen("FX_GetCurrentWindowInfo", Say(Text::kFrontWindow));
        return;
    }
    const WINDOWINFO window = room.Known();
    findings.Add("FX_GetCurrentWindowInfo", Say(Text::kFrontWindow),
                 std::to_string(window.document) + ", " + std::to_string(window.view),
                 window.document == score.document && window.view <= 2);
}

}  // namespace

Score LookAtScore() {
    Score score;
    score.document = Host::GetCurrentEnigmaDocument();
    u64 result = 0;
    EREGION selection{};
    EREGION whole{};
    score.isSelected = Host::GetCurERegions(&result, &selection, &whole) != 0;
    score.slots = std::clamp<i16>(whole.endSlot, 0, 1000);
    score.measures = std::max<i16>(whole.endMeasure, 0);
    score.layers = std::clamp<i16>(Host::GetMaxLayers(), 0, 16);
    return score;
}

void MeasureCalls(Findings& findings, const Score& score) {
    findings.Begin(Text::kCalls);
    MeasureWindow(findings, score);
    if (score.document == 0) {
        return;
    }
    MeasureSwitches(findings, score);
    MeasureDocuments(findings, score);
    MeasureRegion(findings, score);
    MeasureLayersAndStaves(findings, score);
    MeasureMeasures(findings, score);
    MeasureTexts(findings, score);
}

}  // namespace probe
