// Where tuplets begin and end, and at which times rests may be replaced without breaking one.
#include <algorithm>

#include "merge/TupletSpans.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

class TupletTimes : public LibraryTest {
protected:
    // Each as "start-end", in order.
    std::string Spans(std::string_view notation) {
        host.Layer(1, 1, 0, notation);
        return StoredSpans();
    }
    std::string StoredSpans() const {
        std::string text;
        for (const TupletSpan& span : TupletsOf(FinPITGFPtr{host.Staff(1), 1, 0})) {
            text += (text.empty() ? "" : " ") + std::to_string(span.start) + "-" +
                    std::to_string(span.end);
        }
        return text;
    }
    // The stored tuplets of the entry are replaced.
    void PutTuplets(int index, const std::vector<EDTTuplet2005>& tuplets) {
        const u32 entry = host.EntryNumber({1, 1, 0, index});
        auto& records = host.Score().Records();
        while (records.CountOfEntry(Tag::kTuplet, entry) > 0) {
            records.Delete(Tag::kTuplet, RecordKey::OfEntry(entry, 0));
        }
        for (const EDTTuplet2005& tuplet : tuplets) {
            records.Create(Tag::kTuplet, RecordKey::OfEntry(entry, kAppend), BytesOf(tuplet));
        }
    }
    static EDTTuplet2005 Tuplet(i16 count, i16 unit, i16 referenceCount, i16 referenceUnit) {
        EDTTuplet2005 tuplet{};
        tuplet.symbolicCount = count;
        tuplet.symbolicUnitDuration = unit;
        tuplet.referenceCount = referenceCount;
        tuplet.referenceUnitDuration = referenceUnit;
        return tuplet;
    }
};

TEST_F(TupletTimes, StartAtTheirFirstEntry) {
    EXPECT_EQ(Spans("q:c4 q:d4 h:e4"), "");
    EXPECT_EQ(Spans("(3:2 q:d4 q:e4 q:f4) h:r"), "0-2048");
    EXPECT_EQ(Spans("h:r (3:2 e:d4 e:e4 e:f4) (3:2 e:d4 e:e4 e:f4)"), "2048-3072 3072-4096");
    EXPECT_EQ(Spans("ge:c4 (3:2 q:d4 q:e4 q:f4) h:r"), "0-2048");
    EXPECT_EQ(Spans("q:c4 v2{(3:2 e:a3 e:b3 e:a3)} q:d4"), "") << "of the second voice";
    // Inner tuplets are as much shorter as the outer one, and the next begins where they end: at
    // a time that was rounded another way.
    EXPECT_EQ(Spans("(3:2q q:d4 (3:2 e:e4 e:f4 e:g4) (3:2 e:a4 e:b4 e:c5)) h:r"),
              "0-2048 683-1366 1365-2048");
    EXPECT_EQ(Spans("(3:2q (3:2 e:e4 e:f4 e:g4) q:d4 q:a4) (3:2 q:e4 q:f4 q:g4)"),
              "0-2048 0-683 2048-4096");
}

TEST_F(TupletTimes, OuterTupletsComeFirst) {
    host.Layer(1, 1, 0, "(3:2 q:d4 q:e4 q:f4) h:r");
    PutTuplets(0, {Tuplet(3, 512, 2, 512), Tuplet(3, 1024, 2, 1024)});
    EXPECT_EQ(StoredSpans(), "0-2048 0-683");
}

TEST_F(TupletTimes, DamagedTupletsAreIgnoredOrCapped) {
    host.Layer(1, 1, 0, "(3:2 q:d4 q:e4 q:f4) h:r");
    PutTuplets(0, {Tuplet(0, 1024, 2, 1024), Tuplet(3, 1024, 0, 1024), Tuplet(-3, 1024, 2, 1024)});
    EXPECT_EQ(StoredSpans(), "");
    PutTuplets(0, {Tuplet(1, 2, 32767, 32767), Tuplet(1, 1, 32767, 32767)});
    EXPECT_EQ(StoredSpans(), "0-1073676289 0-1073741824");
    PutTuplets(0, std::vector(20, Tuplet(1, 1, 1, 1)));
    const std::string spans = StoredSpans();
    EXPECT_EQ(std::ranges::count(spans, '-'), 16) << "no music nests deeper";
}

TEST(SameTuplets, MustMatchInBothFrames) {
    const TupletSpan triplet{0, 2048, 3, 1024, 2, 1024};
    const auto same = [](i32 time, const std::vector<TupletSpan>& a,
                         const std::vector<TupletSpan>& b) {
        EXPECT_EQ(SameTupletsRunAt(time, a, b), SameTupletsRunAt(time, b, a));
        return SameTupletsRunAt(time, a, b);
    };
    for (const auto& [time, runs] : {std::pair{0, false}, {1, true}, {2046, true}, {2047, false}}) {
        EXPECT_EQ(same(time, {triplet}, {}), !runs) << time;
    }
    EXPECT_TRUE(same(1024, {triplet}, {triplet}));
    EXPECT_FALSE(same(1024, {triplet}, {triplet, triplet}));
    const TupletSpan others[] = {{1, 2048, 3, 1024, 2, 1024}, {0, 2050, 3, 1024, 2, 1024},
                                 {0, 2046, 3, 1024, 2, 1024}, {0, 2048, 6, 1024, 2, 1024},
                                 {0, 2048, 3, 512, 2, 1024},  {0, 2048, 3, 1024, 4, 1024},
                                 {0, 2048, 3, 1024, 2, 512}};
    for (const TupletSpan& other : others) {
        EXPECT_FALSE(same(1024, {triplet}, {other})) << &other - others;
    }
    for (const i32 end : {2047, 2049}) {
        EXPECT_TRUE(same(1024, {triplet}, {{0, end, 3, 1024, 2, 1024}})) << "rounded another way";
    }
}

}  // namespace
}  // namespace standin
