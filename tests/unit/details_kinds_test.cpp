// What each kind of details does when it is copied and deleted.
#include <utility>

#include "tests/unit/details_fixture.h"

namespace standin {
namespace {

TEST_F(Details, OnlyThoseThatSuitAnyEntryAreCopiedOntoARest) {
    WriteAndLoad("q:c4", "q:r", {{kArticulation, "dot"}, {HostTag("edsB"), "break"}});
    EXPECT_EQ(Copy(kOntoPlaced), 1);
    EXPECT_EQ(host.Attached(Target(), kArticulation), "");
    EXPECT_EQ(host.Attached(Target(), HostTag("edsB")), "break");
}

// The two kinds share a flag, which must tell of the one that stays.
TEST_F(Details, AreLeftAloneUnlessTheirKindIsSelected) {
    constexpr u32 kStem = HostTag("edST");
    constexpr u32 kStub = HostTag("edub");
    WriteAndLoad("q:c4", "q:c4", {{kStem, "stem"}, {kStub, "stub"}});
    EXPECT_EQ(Copy(kOntoPlaced & ~DetailKind::kStemAlt), 1);
    EXPECT_EQ(host.Attached(Target(), kStem), "");
    EXPECT_EQ(host.Attached(Target(), kStub), "stub");
    EXPECT_EQ(Delete(kFromSource & ~DetailKind::kStemAlt), 1);
    EXPECT_EQ(host.Attached(Source(), kStem), "stem");
    EXPECT_EQ(host.Attached(Source(), kStub), "");
}

TEST_F(Details, FlagsAreCopiedAndDeletedWithoutARecord) {
    // The flags afterwards of a target note with its stem down and of a rest.
    const auto copied = [&](u32 kinds, u32 flags) {
        constexpr u32 kAll = 0x800 | 0x101 | 0x10 | 0x08;
        WriteAndLoad("q:c4 q:d4", "q:c4 q:r");
        source.EntryAt(0)->flags |= flags;
        EXPECT_EQ(Copy(kinds, 0, 0) + Copy(kinds, 0, 0) + Copy(kinds, 0, 1), 3);
        const u32 ontoNote = target.EntryAt(0)->flags & kAll;
        EXPECT_EQ(Delete(kinds), ontoNote != 0 ? 1 : 0);
        EXPECT_EQ(source.EntryAt(0)->flags & ontoNote, 0U);
        EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 0U);
        return std::pair<u32, u32>{ontoNote, target.EntryAt(1)->flags & kAll};
    };
    using Flags = std::pair<u32, u32>;
    EXPECT_EQ(copied(DetailKind::kPrimaryBeamBreak, 0x800), (Flags{0x800, 0x800}));
    EXPECT_EQ(copied(DetailKind::kFlagDetails, 0x10), (Flags{0x10, 0}));
    EXPECT_EQ(copied(DetailKind::kFlagDetails, 0x08), (Flags{0x08, 0}));
    EXPECT_EQ(copied(DetailKind::kFrozenStem, 0x101), (Flags{0x100, 0}));
    EXPECT_EQ(copied(DetailKind::kFrozenStem, 0x001), (Flags{0, 0})) << "it is not frozen";
}

TEST_F(Details, EntriesWithoutDetailsCostNoHostCall) {
    WriteAndLoad("q:c4", "q:c4");
    EXPECT_EQ(Copy(kOntoPlaced), 1);
    EXPECT_EQ(Delete(kFromSource), 0);
    EXPECT_EQ(target.EntryAt(0).MoveSmartShapeAssigns(source.EntryAt(0), HostTag("edEx")), 1);
    EXPECT_EQ(App().calls.Total(), 0U);
}

TEST_F(Details, EntryFieldsGoToEntriesOfTheSameKind) {
    WriteAndLoad("q:c4 q:d4", "h:c4 h:r");
    source.EntryAt(0)->fieldAt6 = 77;
    for (const i16 to : {i16{0}, i16{1}}) {
        EXPECT_EQ(Copy(DetailKind::kDuration | DetailKind::kEntryField6, 0, to), 1);
        EXPECT_EQ(target.EntryAt(to)->duration, to == 0 ? 1024 : 2048) << "a rest is no note";
        EXPECT_EQ(target.EntryAt(to)->fieldAt6, to == 0 ? 77 : 0);
    }
    EXPECT_EQ(Delete(DetailKind::kEntryField6), 1);
    EXPECT_EQ(source.EntryAt(0)->fieldAt6, 0);
}

TEST_F(Details, PositioningByHandRaisesTheModeOfTheMeasure) {
    WriteAndLoad("q:c4", "q:c4");
    const u16 modes[][2] = {{0, 0}, {1, 4}, {2, 6}, {3, 3}, {0x19, 0x1C}};
    for (const auto& [before, after] : modes) {
        EDTMeasureSpec2014 measure = host.Score().Measure(1);
        measure.positioning = before;
        Put(Tag::kMeasure, RecordKey::Other(1), measure);
        EXPECT_EQ(Copy(DetailKind::kEntryField6), 1);
        EXPECT_EQ(host.Score().Measure(1).positioning, after) << before;
    }
}

}  // namespace
}  // namespace standin
