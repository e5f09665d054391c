// What differs from the score as it was imported.
#include "tests/unit/support/loan.h"

namespace standin {
namespace {

constexpr u32 kArticulation = HostTag("edIM");

using Places = std::set<std::pair<u16, u16>>;

class HostChanges : public ::testing::Test {
protected:
    HostChanges() : host{2, 5} {
        for (u16 measure = 1; measure <= 4; ++measure) {
            host.Layer(1, measure, 0, "q:c4 q:d4 h:e4");
            host.Layer(2, measure, 0, "w:c4");
        }
        host.Attach({1, 1, 0, 0}, kArticulation, "a");
        slur = host.Slur({1, 1, 0, 0}, {2, 3, 0, 0});
        host.Expression(1, 2, 0, 0);
        host.Score().MarkImported();
    }

    std::pair<u16, u16> At(i16 slot, u16 measure) { return {host.Staff(slot), measure}; }

    StandIn host;
    u16 slur;
};

TEST_F(HostChanges, NothingAtFirstNorWhenTouchedAndPutBack) {
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{});
    const std::vector<EXENTRY> entries = host.Score().FindFrame(host.Key(1, 1, 0))->entries;
    std::vector<EXENTRY> shorter = entries;
    shorter.pop_back();
    host.Score().PutFrame(host.Key(1, 1, 0), shorter);
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{At(1, 1)});
    host.Score().PutFrame(host.Key(1, 1, 0), entries);
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{});
    const EREGION whole = host.Score().WholeRegion();
    EXPECT_EQ(FX_RebeamRegion(&whole, 0, kInterfaceVersion), 1);
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{}) << "beams are no change";

    host.Score().BeginEdit(u"Clear");
    host.Score().PutFrame(host.Key(2, 2, 0), {});
    EXPECT_EQ(host.Score().ImportedFrame(host.Key(2, 2, 0))->entries.size(), 1U);
    host.Score().EndEdit();
    host.Score().Undo();
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{});
}

TEST_F(HostChanges, EntryDetailsExpressionsAndShapeEndsCount) {
    RecordStore& records = host.Score().Records();
    const u32 entry = host.EntryNumber({1, 1, 0, 0});
    records.Save(kArticulation, RecordKey::OfEntry(entry), Bytes(12, 'z'));
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{At(1, 1)});

    auto expression =
        FromBytes<MyExpressionAssign>(*records.Find(Tag::kExpression, RecordKey::Other(2, 0)));
    expression.layer = 2;
    records.Save(Tag::kExpression, RecordKey::Other(2, 0), BytesOf(expression));
    EXPECT_EQ(host.Score().ChangedMeasures(), (Places{At(1, 1), At(1, 2)}));

    auto shape = FromBytes<EDTSmartShape>(*records.Find(Tag::kSmartShape, RecordKey::Other(slur)));
    shape.end = {host.Staff(2), 4, host.EntryNumber({2, 4, 0, 0}), 0};
    records.Save(Tag::kSmartShape, RecordKey::Other(slur), BytesOf(shape));
    EXPECT_EQ(host.Score().ChangedMeasures(), (Places{At(1, 1), At(1, 2), At(2, 3), At(2, 4)}));
}

}  // namespace
}  // namespace standin
