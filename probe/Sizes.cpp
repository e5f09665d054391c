// How far the host writes where it gets no size, or a size that it must keep to.
#include "probe/LastWritten.h"
#include "probe/Measure.h"
#include "shell/host/callbacks.h"
#include "shell/host/host_frames.h"

namespace probe {

namespace {

constexpr u32 kPathUnits = 1024;
constexpr u32 kNameUnits = 511;

char16* Units(u8* room) {
    return reinterpret_cast<char16*>(room);
}

void AddExact(Findings& findings, const char* subject, std::size_t assumed, std::size_t seen) {
    if (seen == 0) {
        findings.AddNotSeen(subject, SayNumbers(Text::kAtMostBytes, assumed));
        return;
    }
    findings.Add(subject, SayNumbers(Text::kAtMostBytes, assumed), SayNumbers(Text::kBytes, seen),
                 seen <= assumed);
}

void MeasureRegions(Findings& findings) {
    u64 result = 0;
    EREGION selection{};
    EREGION whole{};
    AddExact(findings, "FX_GetCurERegions result", sizeof result, LastWritten([&](u8* room) {
                 Host::GetCurERegions(reinterpret_cast<u64*>(room), &selection, &whole);
             }));
    AddExact(findings, "FX_GetCurERegions EREGION", sizeof selection, LastWritten([&](u8* room) {
                 Host::GetCurERegions(&result, reinterpret_cast<EREGION*>(room), &whole);
             }));
    AddExact(findings, "FX_GetCurERegions EREGION", sizeof whole, LastWritten([&](u8* room) {
                 Host::GetCurERegions(&result, &selection, reinterpret_cast<EREGION*>(room));
             }));
}

void MeasureTextSizes(Findings& findings, const Score& score) {
    AddExact(findings, "FX_GetDocumentPath", kPathUnits * sizeof(char16),
             LastWritten([&](u8* room) {
                 Host::GetDocumentPath(score.document, Units(room), kPathUnits);
             }));
    const i16 part = Host::GetNextPartID(i16{0});
    AddExact(findings, "FX_GetPartName_UTF16", kNameUnits * sizeof(char16),
             part < 1 ? 0 : LastWritten([part](u8* room) {
                 Host::GetPartName(part, Units(room), kNameUnits);
             }));
    const u16 staff = Host::SlotToInst(i16{1}, u16{0});
    AddExact(findings, "FX_AutoNumberedName_UTF16", kNameUnits * sizeof(char16),
             LastWritten([staff](u8* room) {
                 Host::AutoNumberedName(staff, i16{1}, i32{0}, Units(room));
             }));
    // No more than a few units are there for it, though the text may be longer.
    constexpr u32 kFewUnits = 2;
    AddExact(findings, "FX_GetMeasureNumberString", kFewUnits * sizeof(char16),
             LastWritten([&](u8* room) {
                 Host::GetMeasureNumberString(score.measures, Units(room), kFewUnits, i16{1},
                                              i16{0});
             }));
}

}  // namespace

void MeasureSizes(Findings& findings, const Score& score) {
    findings.Begin(Text::kSizes);
    AddExact(findings, "FX_GetCurrentWindowInfo WINDOWINFO", sizeof(WINDOWINFO),
             LastWritten([](u8* room) {
                 Host::GetCurrentWindowInfo(reinterpret_cast<WINDOWINFO*>(room));
             }));
    MeasureRegions(findings);
    if (score.document != 0) {
        MeasureTextSizes(findings, score);
    }
}

}  // namespace probe
