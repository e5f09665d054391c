// Any entries in any layers, any selection and options: the plug-in merges them without losing a
// note, or leaves the score unchanged and reports an error.
#include <cstddef>
#include <fuzzer/FuzzedDataProvider.h>
#include <iostream>
#include <memory>

#include "host/score/entry_form.h"
#include "tests/unit/support/plugin_driver.h"

using namespace standin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr u32 kEntryFlags[] = {EntryFlag::kVoice2, EntryFlag::kLaunchVoice2, EntryFlag::kGrace,
                               EntryFlag::kIgnore};
constexpr i16 kDurations[] = {4096, 2048, 1536, 1024, 768, 512, 256, 128, 0};

EXENTRY EntryFrom(FuzzedDataProvider& input) {
    EXENTRY entry{};
    entry.duration =
        input.ConsumeBool() ? input.PickValueInArray(kDurations) : input.ConsumeIntegral<i16>();
    entry.fieldAt6 = input.ConsumeIntegral<i16>();
    entry.noteCount = input.ConsumeIntegralInRange<i16>(0, kMaxNotesPerEntry);
    entry.flags = entry.noteCount > 0 ? EntryFlag::kNote : EntryFlag::kNoNotes;
    for (const u32 flag : kEntryFlags) {
        entry.flags |= input.ConsumeIntegralInRange(0, 7) == 0 ? flag : 0;
    }
    for (i16 i = 0; i < entry.noteCount; ++i) {
        entry.notes[i].pitch = input.ConsumeIntegral<u16>();
        entry.notes[i].noteID = static_cast<u16>(i + 1);
        entry.notes[i].flags = input.ConsumeBool() ? NoteFlag::kTieStart : 0;
    }
    return entry;
}

void AddTuplet(FuzzedDataProvider& input, Document& document, u32 entry) {
    Bytes bytes = input.ConsumeBytesAsString(offsetof(EDTTuplet2005, opaque8));
    bytes.resize(sizeof(EDTTuplet2005));
    document.Records().Create(Tag::kTuplet, RecordKey::OfEntry(entry, kAppend), bytes);
}

void FillLayer(FuzzedDataProvider& input, StandIn& host, u16 measure, u16 layer) {
    constexpr int kMaxEntries = 10;
    std::vector<EXENTRY> entries(
        static_cast<std::size_t>(input.ConsumeIntegralInRange(0, kMaxEntries)));
    for (EXENTRY& entry : entries) {
        entry = EntryFrom(input);
        entry.entryNumber = host.Score().NewEntryNumber();
        if (input.ConsumeIntegralInRange(0, 15) == 0) {
            AddTuplet(input, host.Score(), entry.entryNumber);
        }
    }
    if (WhyNotStorable(entries) == nullptr) {
        host.Score().PutFrame(host.Key(1, measure, layer), std::move(entries));
    }
}

EREGION RegionFrom(FuzzedDataProvider& input) {
    EREGION region{};
    region.startSlot = input.ConsumeIntegralInRange<i16>(-1, 2);
    region.endSlot = input.ConsumeIntegralInRange<i16>(-1, 3);
    region.startMeasure = input.ConsumeIntegralInRange<i16>(-1, 3);
    region.endMeasure = input.ConsumeIntegralInRange<i16>(-1, 4);
    region.startPosition = input.ConsumeBool() ? 0 : input.ConsumeIntegral<i32>();
    region.endPosition = input.ConsumeBool() ? kEndOfMeasure : input.ConsumeIntegral<i32>();
    return region;
}

[[noreturn]] void Fail(const char* what) {
    std::cerr << what << '\n';
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto plugin = std::make_unique<Plugin>();
    FuzzedDataProvider input{data, size};
    StandIn host{1, 2};
    MergeOptions options{.source = input.ConsumeBool() ? u16{65535} : input.ConsumeIntegral<u16>(),
                         .destination = input.ConsumeIntegralInRange<u16>(0, 4)};
    for (const MergeSwitch& each : kMergeSwitches) {
        options.*each.member = input.ConsumeBool() ? 1 : 0;
    }
    host.Score().selection = RegionFrom(input);
    for (u16 layer = 0; layer < 4; ++layer) {
        FillLayer(input, host, input.ConsumeIntegralInRange<u16>(1, 2), layer);
    }
    const u64 before = host.Score().Digest();
    const std::vector<std::string> music = Music(host.Score());
    App().faults.guardFrames = true;
    plugin->Merge(host, options);
    if (Music(host.Score()) != music) {
        Fail("music was lost, added or moved");
    }
    if (!App().alerts.empty() && host.Score().Digest() != before) {
        Fail("an alert, but the score changed");
    }
    if (App().lent.Count() != 0 || host.Score().IsEditOpen()) {
        Fail("frames on loan, or an open edit");
    }
    return 0;
}
