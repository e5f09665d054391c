// Records: keys, their order, and how record numbers move.
#include <array>

#include "shell/host/detail_flags.h"
#include "shell/host/host_functions.h"
#include "tests/unit/support/stand_in.h"

namespace standin {
namespace {

constexpr u32 kArticulation = HostTag("edIM");
constexpr u32 kKeyFormat = HostTag("otKF");  // an 'other' record of 12 bytes

using Words = std::array<u16, 3>;

i16 Create(u32 tag, Words& key, char content, u32 size = 12) {
    return FX_CreateEData(tag, key.data(), Bytes(size, content).data(), size, kInterfaceVersion);
}

// The item's records in the order of their numbers, by their first byte.
std::string ItemContents(u32 tag, Words first) {
    std::string contents;
    for (u16 inci = 0;; ++inci) {
        first[1] = inci;
        Bytes data(12, '\0');
        u32 size = 12;
        if (FX_LoadEData(tag, first.data(), data.data(), &size, kInterfaceVersion) == 0) {
            return contents;
        }
        contents += data[0];
    }
}

TEST(HostRecords, NumbersMoveWithTheirItem) {
    const struct {
        char operation;  // create, save or delete
        u16 inci;
        i16 result;
        u16 inciUsed;
        const char* afterwards;
    } cases[] = {
        {'c', kAppend, 1, 3, "abcx"}, {'c', 9, 1, 3, "abcx"}, {'c', 1, 1, 1, "axbc"},
        {'s', kAppend, 1, 3, "abcx"}, {'s', 3, 0, 3, "abc"},  {'s', 1, 1, 1, "axc"},
        {'d', 0, 1, 0, "bc"},         {'d', 3, 0, 3, "abc"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.operation + std::to_string(c.inci));
        StandIn host;
        for (u16 item = 4; item <= 6; ++item) {
            for (const char content : {'a', 'b', 'c'}) {
                Words key{item, kAppend};
                ASSERT_EQ(Create(kKeyFormat, key, content), 1);
            }
        }
        Words key{5, c.inci};
        const Bytes data(12, 'x');
        const i16 result =
            c.operation == 'c' ? Create(kKeyFormat, key, 'x')
            : c.operation == 's'
                ? FX_SaveEData(kKeyFormat, key.data(), data.data(), 12, kInterfaceVersion)
                : FX_DeleteEData(kKeyFormat, key.data(), kInterfaceVersion);
        EXPECT_EQ(result, c.result);
        EXPECT_EQ(key[1], c.inciUsed);
        EXPECT_EQ(ItemContents(kKeyFormat, {4}), "abc");
        EXPECT_EQ(ItemContents(kKeyFormat, {5}), c.afterwards);
        EXPECT_EQ(ItemContents(kKeyFormat, {6}), "abc");
    }
}

TEST(HostRecords, WalkInTheOrderOfTheirKeys) {
    StandIn host;
    const u32 detail = HostTag("SDFL");
    constexpr std::array<Words, 4> kOrdered = {Words{1, 2, 0}, {1, 2, 1}, {1, 300, 0}, {2, 1, 0}};
    for (const int i : {3, 0, 2, 1}) {
        Words key = kOrdered[static_cast<std::size_t>(i)];
        ASSERT_EQ(Create(detail, key, 'd'), 1);
    }
    Bytes data(12, '\0');
    u32 size = 12;
    Words key{};
    for (const Words& expected : kOrdered) {
        ASSERT_EQ(FX_NextEData(detail, key.data(), data.data(), &size, kInterfaceVersion), 1);
        EXPECT_EQ(key, expected);
    }
    EXPECT_EQ(FX_NextEData(detail, key.data(), data.data(), &size, kInterfaceVersion), 0);
    EXPECT_EQ(key, kOrdered[3]) << "a step that finds nothing leaves the key";
    key = {2, 0, 0};
    ASSERT_EQ(FX_PreviousEData(detail, key.data(), data.data(), &size, kInterfaceVersion), 1);
    EXPECT_EQ(key, kOrdered[2]);
}

TEST(HostRecords, LoadCutsAndLeavesTheRestOfTheBuffer) {
    StandIn host;
    Words key{1, kAppend};
    ASSERT_EQ(Create(kKeyFormat, key, 'x'), 1);
    Bytes data(16, '-');
    u32 size = 4;
    ASSERT_EQ(FX_LoadEData(kKeyFormat, key.data(), data.data(), &size, kInterfaceVersion), 1);
    EXPECT_EQ(data, "xxxx------------");
    EXPECT_EQ(size, 12U);
}

TEST(HostRecords, EntryDetailsNeedTheirEntryAndTheirSizeAndSetItsFlag) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4 q:d4");
    const u32 first = host.EntryNumber({1, 1, 0, 0});
    Words key{static_cast<u16>(first), static_cast<u16>(first >> 16U), kAppend};
    ASSERT_EQ(Create(kArticulation, key, 'a'), 1);
    EXPECT_EQ(key[2], 0);
    EXPECT_NE(host.Entry({1, 1, 0, 0}).flags & DetailFlag::kArticulation, 0U);
    EXPECT_EQ(host.Entry({1, 1, 0, 1}).flags & DetailFlag::kArticulation, 0U);

    Words nobody{60000, 0, 0};
    EXPECT_EQ(Create(kArticulation, nobody, 'a'), 0);
    EXPECT_EQ(Create(kArticulation, key, 'a', 24), 0) << "a detail of this tag has 12 bytes";

    ASSERT_EQ(FX_DeleteEData(kArticulation, key.data(), kInterfaceVersion), 1);
    EXPECT_EQ(host.Entry({1, 1, 0, 0}).flags & DetailFlag::kArticulation, 0U);
}

TEST(HostRecords, RefuseWhatIsNoRecordCall) {
    StandIn host;
    Words key{1, 0};
    Bytes data(12, '\0');
    u32 size = 12;
    EXPECT_EQ(FX_LoadEData(0, key.data(), data.data(), &size, kInterfaceVersion), 0);
    EXPECT_EQ(FX_LoadEData(kKeyFormat, nullptr, data.data(), &size, kInterfaceVersion), 0);
    EXPECT_EQ(FX_LoadEData(Tag::kMeasure, key.data(), nullptr, &size, kInterfaceVersion), 0);
    EXPECT_EQ(FX_LoadEData(Tag::kMeasure, key.data(), data.data(), &size, 0), 0);
    EXPECT_EQ(FX_LoadEData(Tag::kMeasure, key.data(), data.data(), &size, 0x1B400001), 0);
    EXPECT_EQ(App().calls.refusedByRule, 5U);
    EXPECT_EQ(FX_LoadEData(Tag::kMeasure, key.data(), data.data(), &size, 0x09000000), 1);
    EXPECT_EQ(FX_CreateEData(Tag::kMeasure, key.data(), data.data(), 12, kInterfaceVersion), 0)
        << "measure 1 exists, and a measure has one record";
}

}  // namespace
}  // namespace standin
