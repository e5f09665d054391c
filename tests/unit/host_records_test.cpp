// Records: keys, their order, and how record numbers move.
#include <algorithm>
#include <array>
#include <random>

#include "shell/host/detail_flags.h"
#include "shell/host/host_functions.h"
#include "tests/unit/support/stand_in.h"

namespace standin {
namespace {

constexpr u32 kKeyFormat = HostTag("otKF");  // an 'other' record of 12 bytes

using Words = std::array<u16, 3>;

i16 Create(u32 tag, Words& key, char content, u32 size = 12) {
    return FX_CreateEData(tag, key.data(), Bytes(size, content).data(), size, kInterfaceVersion);
}

// The item's records in the order of their numbers, by their first byte.
std::string ItemContents(StandIn& host, u16 item) {
    std::string contents;
    while (const Bytes* found = host.Score().Records().Find(
               kKeyFormat, RecordKey::Other(item, static_cast<u16>(contents.size())))) {
        contents += found->front();
    }
    return contents;
}

TEST(HostRecords, NumbersMoveWithinItem) {
    // Creates, saves or deletes: the result, the record number used and what the item has then.
    const auto done = [](char operation, u16 inci) {
        StandIn host;
        for (const u16 item : {u16{4}, u16{5}, u16{6}}) {
            for (const char content : {'a', 'b', 'c'}) {
                Words key{item, kAppend};
                EXPECT_EQ(Create(kKeyFormat, key, content), 1);
            }
        }
        Words key{5, inci};
        const Bytes data(12, 'x');
        const i16 result =
            operation == 'c' ? Create(kKeyFormat, key, 'x')
            : operation == 's'
                ? FX_SaveEData(kKeyFormat, key.data(), data.data(), 12, kInterfaceVersion)
                : FX_DeleteEData(kKeyFormat, key.data(), kInterfaceVersion);
        EXPECT_EQ(ItemContents(host, 4) + ItemContents(host, 6), "abcabc");
        return std::to_string(result) + " " + std::to_string(key[1]) + " " + ItemContents(host, 5);
    };
    EXPECT_EQ(done('c', kAppend), "1 3 abcx");
    EXPECT_EQ(done('c', 9), "1 3 abcx");
    EXPECT_EQ(done('c', 1), "1 1 axbc");
    EXPECT_EQ(done('s', 1), "1 1 axc");
    EXPECT_EQ(done('s', 3), "0 3 abc");
    EXPECT_EQ(done('s', kAppend), "1 3 abcx");
    EXPECT_EQ(done('d', 0), "1 0 bc");
    EXPECT_EQ(done('d', 3), "0 3 abc");
}

TEST(HostRecords, ManyOperationsGiveTheSameItemsAsAList) {
    constexpr u32 kTag = kArticulation;
    RecordStore store;
    std::array<std::string, 2> items;  // what each entry's records should be
    std::mt19937 random{7};
    const auto below = [&random](std::size_t limit) {
        return static_cast<u16>(std::uniform_int_distribution<std::size_t>{0, limit - 1}(random));
    };
    for (int step = 0; step < 5000; ++step) {
        const std::size_t which = below(2);
        std::string& item = items.at(which);
        const u32 entry = static_cast<u32>(which + 1);
        const u16 inci = below(5);
        const bool exists = inci < item.size();
        const auto content = static_cast<char>('a' + step % 26);
        switch (below(6)) {
            case 0:
            case 1:
                store.Create(kTag, RecordKey::OfEntry(entry, inci), Bytes(1, content));
                item.insert(std::min<std::size_t>(inci, item.size()), 1, content);
                break;
            case 2:
                ASSERT_EQ(store.Save(kTag, RecordKey::OfEntry(entry, inci), Bytes(1, content)),
                          exists);
                if (exists) {
                    item[inci] = content;
                }
                break;
            case 3: {  // the last record up to that number
                const auto* last = store.Previous(kTag, RecordKey::OfEntry(entry, kAppend));
                const bool isOfEntry = last != nullptr && last->first.Entry() == entry;
                ASSERT_EQ(isOfEntry ? last->second : "",
                          item.empty() ? "" : item.substr(item.size() - 1));
                break;
            }
            default:
                for (int times = below(4); times >= 0; --times) {
                    ASSERT_EQ(store.Delete(kTag, RecordKey::OfEntry(entry, inci)),
                              inci < item.size());
                    item.erase(std::min<std::size_t>(inci, item.size()), 1);
                    const Bytes* next = store.Find(kTag, RecordKey::OfEntry(entry, inci));
                    ASSERT_EQ(next != nullptr ? *next : "",
                              item.substr(std::min<std::size_t>(inci, item.size()), 1));
                }
                break;
        }
        ASSERT_EQ(store.HasDetails(entry), !item.empty());
        if (below(4) == 0) {
            std::array<std::string, 2> stored;
            for (const auto& [key, bytes] : store.OfTag(kTag)) {
                std::string& list = stored.at(key.Entry() - 1);
                ASSERT_EQ(key.Inci(), list.size());
                list += bytes;
            }
            ASSERT_EQ(stored, items);
        }
    }
}

TEST(HostRecords, UndoRestoresNumbers) {
    // What remains after the deletions of one edit, after its undo and after redoing it.
    const auto done = [](std::initializer_list<u16> deleted) {
        StandIn host;
        Document& score = host.Score();
        for (const char content : {'z', 'a', 'b', 'c', 'd'}) {
            Words key{5, kAppend};
            EXPECT_EQ(Create(kKeyFormat, key, content), 1);
        }
        EXPECT_TRUE(score.Records().Delete(kKeyFormat, RecordKey::Other(5, 0)));
        score.BeginEdit(u"Delete");
        for (const u16 inci : deleted) {
            EXPECT_TRUE(score.Records().Delete(kKeyFormat, RecordKey::Other(5, inci)));
        }
        Words added{5, kAppend};
        EXPECT_EQ(Create(kKeyFormat, added, 'x'), 1);
        score.EndEdit();
        std::string contents = ItemContents(host, 5);
        score.Undo();
        contents += " " + ItemContents(host, 5);
        score.Redo();
        return contents + " " + ItemContents(host, 5);
    };
    EXPECT_EQ(done({0, 0}), "cdx abcd cdx");
    EXPECT_EQ(done({2, 0}), "bdx abcd bdx");
    EXPECT_EQ(done({3, 2, 0, 0}), "x abcd x");
}

TEST(HostRecords, EntryDetailsNeedEntryAndSize) {
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

}  // namespace
}  // namespace standin
