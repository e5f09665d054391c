// Smart shapes that move with an entry, and those that are copied.
#include "Class Files/score/details/EntryDetailKinds.h"
#include "Class Files/score/details/FinPISmartShapeAssign.h"
#include "Class Files/score/region/FinPIRegion.h"
#include "host/score/smart_shape.h"
#include "shell/host/detail_flags.h"
#include "tests/unit/details_fixture.h"

namespace standin {
namespace {

using Tag::kShapeOnEntry;
using Tag::kShapeOnLyric;

const std::string kOrigin = "29999 FinPISmartShapeAssign::";
constexpr u16 kShape = 1;        // the number of the first shape
constexpr char kOrphan[] = "c";  // a mark whose shape is gone

class Shapes : public Details {
protected:
    Shapes() { Write("q:c4 q:d4 h:e4", "q:g4 q:a4 h:b4"); }

    EDTSmartShape Shape(u16 number = kShape) {
        return FromBytes<EDTSmartShape>(
            *host.Score().Records().Find(Tag::kSmartShape, RecordKey::Other(number)));
    }

    void SlurAndLoad(int from, int to) {
        host.Slur(Source(from), Source(to));
        LoadBoth();
    }

    // The entries of a shape's ends, such as "s0 t1".
    std::string Ends(u16 number) {
        return EntryOf(Shape(number).start) + " " + EntryOf(Shape(number).end);
    }

    // How many marks of the tag the entry has.
    int Marks(EntryPlace place, u32 tag = kShapeOnEntry) {
        return host.Score().Records().CountOfEntry(tag, host.EntryNumber(place));
    }

    i16 Move(u32 tag = kShapeOnEntry) {
        return target.EntryAt(0).MoveSmartShapeAssigns(source.EntryAt(0), tag);
    }

private:
    std::string EntryOf(const EDTSmartShapeEnd& end) {
        for (const int i : {0, 1, 2}) {
            for (const auto& [place, name] : {std::pair{Source(i), "s"}, {Target(i), "t"}}) {
                if (host.EntryNumber(place) == end.entryNumber) {
                    return name + std::to_string(i);
                }
            }
        }
        return "?";
    }
};

TEST_F(Shapes, AllMarksMove) {
    host.Slur(Source(), Source());
    host.Attach(Source(), kShapeOnEntry, std::string_view{"\1", 1});
    host.Attach(Source(), kShapeOnEntry, kOrphan);
    SlurAndLoad(0, 1);
    EXPECT_EQ(Move(), 1);
    EXPECT_EQ(Ends(1), "t0 t0");
    EXPECT_EQ(Ends(2), "t0 s1");
    EXPECT_EQ(Marks(Target()), 4);
    EXPECT_EQ(Marks(Source()), 0);
    EXPECT_EQ(App().calls.Of(HostCall::kSaveEData), 2U) << "no shape without an end there";
}

TEST_F(Shapes, TwoKindsOfMarksShareFlag) {
    host.Slur(Source(), Source(1));
    AddSmartShape(host.Score(), Shape(), kShapeOnLyric);
    LoadBoth();
    EXPECT_EQ(Move(kShapeOnEntry), 1);
    EXPECT_TRUE(source.EntryAt(0).HasFlag(DetailFlag::kSmartShape));
    EXPECT_EQ(Move(kShapeOnLyric), 1);
    EXPECT_FALSE(source.EntryAt(0).HasFlag(DetailFlag::kSmartShape));
    EXPECT_EQ(Ends(2), "t0 s1");
}

TEST_F(Shapes, MoveWithoutFlagInHeldFrame) {
    SlurAndLoad(0, 1);
    source.EntryAt(0)->flags &= ~DetailFlag::kSmartShape;
    EXPECT_EQ(Move(), 1);
    EXPECT_EQ(Ends(1), "t0 s1");
}

TEST_F(Shapes, RefusedMovesArePosted) {
    const auto error = [&](HostCall refused, u64 nth) {
        Write("q:c4 q:d4 h:e4", "q:g4 q:a4 h:b4");
        SlurAndLoad(0, 1);
        RefuseOnly(refused, nth);
        std::string posted = ErrorOf(Move());
        App().faults = {};
        return posted;
    };
    const std::string move = "29998 FinPIEntryPtr::MoveSmartShapeAssigns: ";
    EXPECT_EQ(error(HostCall::kLoadEData, 1), move + "edEx");
    EXPECT_EQ(error(HostCall::kLoadEData, 2), move + "O\x08Sx");
    EXPECT_EQ(error(HostCall::kSaveEData, 1), "29996 FinPIEnigmaData::Save: O\x08Sx");
}

class CopiedShapes : public Shapes {
protected:
    i16 CopyWithin(FinPIRegion* of) {
        FinPIEntryPtr from = source.EntryAt(0);
        FinPIEntryPtr to = target.EntryAt(0);
        from.AttachRegion(of);
        to.AttachRegion(of);
        return to.CopyDetailsFrom(DetailKind::kSmartShape, from);
    }

    FinPIRegion region{{0, 1, 1, 0, 0, 1, 1, kEndOfMeasure}, host.Score().Number()};
};

TEST_F(CopiedShapes, StartAtTarget) {
    host.Slur(Source(), Source(2));
    host.Slur(Source(), Source());
    SlurAndLoad(1, 0);
    EXPECT_EQ(CopyWithin(&region), 1);
    EXPECT_EQ(Ends(1), "s0 s2");
    EXPECT_EQ(Ends(4), "t0 s2");
    EXPECT_EQ(Ends(5), "t0 t0");
    EXPECT_EQ(Marks(Target()), 2) << "what only ends at the source stays there alone";
    EXPECT_EQ(Marks(Source(2)), 2);
    source.EntryAt(2)->flags |= DetailFlag::kSmartShape;
}

TEST_F(CopiedShapes, OutsideRegionAreOmitted) {
    SlurAndLoad(0, 2);
    EXPECT_EQ(CopyWithin(nullptr), 1);
    EXPECT_EQ(TakePendingError(), kOrigin + "IsShapeInEntryRegion: Entry has no region.");
    region.startPosition = 1;
    EXPECT_EQ(CopyWithin(&region), 1);
    EXPECT_EQ(Marks(Target()), 0);
}

TEST_F(CopiedShapes, AreDeletedWithBothMarks) {
    host.Slur(Source(1), Source());
    host.Slur(Source(), Target());
    SlurAndLoad(0, 2);
    EXPECT_EQ(Delete(DetailKind::kSmartShape), 1);
    EXPECT_EQ(Marks(Target()), 0);
    EXPECT_EQ(Marks(Source()), 1) << "the end of the shape that starts elsewhere";
    EXPECT_EQ(host.Score().Records().OfTag(Tag::kSmartShape).size(), 1U) << "that shape's";
    EXPECT_EQ(Marks(Source(2)), 0);
    EXPECT_TRUE(source.EntryAt(0).HasFlag(DetailFlag::kSmartShape));
    source.EntryAt(2)->flags &= ~DetailFlag::kSmartShape;
    target.EntryAt(0)->flags &= ~DetailFlag::kSmartShape;
}

TEST_F(CopiedShapes, AreNumberedFromOne) {
    SlurAndLoad(0, 2);
    FinPISmartShapeAssign assign{source.EntryAt(0)};
    EXPECT_EQ(assign.Load() + assign.Commit() + assign.Delete(), 3);
    source.EntryAt(2)->flags &= ~DetailFlag::kSmartShape;
    assign.SelectRecord(FinPIEntryDetail::kNewRecord);
    EXPECT_EQ(assign.Create(), 1);
    EXPECT_EQ(Ends(1), "s0 s2");
    EXPECT_TRUE(source.EntryAt(2).HasFlag(DetailFlag::kSmartShape));
}

TEST_F(CopiedShapes, StayIfEndMarkDoesNotLoad) {
    SlurAndLoad(0, 2);
    RefuseOnly(HostCall::kLoadEData, 3);
    EXPECT_EQ(Delete(DetailKind::kSmartShape), -1);
    EXPECT_EQ(TakePendingError(), "29998 FinPIEntryDetail::Load: edEx");
}

TEST_F(CopiedShapes, PostRefusedRecords) {
    SlurAndLoad(0, 2);
    FinPIEntryPtr from = source.EntryAt(0);
    from.AttachRegion(&region);
    FinPISmartShapeAssign assign{from};
    FinPISmartShapeAssign bare{target.EntryAt(0)};
    {
        const OtherDocument other;
        EXPECT_TRUE(ErrorOf(Move()).starts_with("29999 FinPIEntryPtr::MoveSmartShapeAssigns"));
        ASSERT_EQ(assign.Load() + assign.IsSkipped(), 1) << "its shape is of its own document";
        EXPECT_TRUE(ErrorOf(assign.Commit()).starts_with(kOrigin + "Commit: Attempted"));
        EXPECT_TRUE(ErrorOf(assign.Delete()).starts_with(kOrigin + "Delete: Attempted"));
        assign.SelectRecord(FinPIEntryDetail::kNewRecord);
        EXPECT_TRUE(ErrorOf(assign.Create()).starts_with(kOrigin + "Create: Attempted"));
        assign.SelectRecord(0);
        EXPECT_EQ(assign.Load(), 1);
    }
    EXPECT_EQ(ErrorOf(assign.Create()),
              "29999 FinPIEntryDetail::Create: Attempted to Create but already Loaded.");
    EXPECT_EQ(assign.Save(), 1);
    EXPECT_EQ(host.Score().Records().OfTag(Tag::kSmartShape).size(), 1U);
    EXPECT_EQ(ErrorOf(bare.CopyAttributes(assign)),
              kOrigin + "CopyAttributes: Entry has no region pointer.");
    EXPECT_EQ(ErrorOf(bare.IsShapeInEntryRegion()),
              kOrigin + "IsShapeInEntryRegion: Entry has no region.");
    EXPECT_EQ(ErrorOf(assign.CopyAttributes(FinPIArticulation{from})),
              "29999 FinPIEntryDetail::CopyAttributes: dynamic_cast failed.");
    Refuse(HostCall::kSaveEData);
    EXPECT_EQ(ErrorOf(assign.Commit()), "29996 FinPISmartShapeAssign::Commit: O\x08Sx");
    assign.SelectRecord(FinPIEntryDetail::kNewRecord);
    EXPECT_EQ(ErrorOf(assign.Save()), kOrigin + "Save: Attempted to Save with wrong Shape ID.");
    RefuseOnly(HostCall::kCreateEData, 1);
    EXPECT_EQ(ErrorOf(assign.Create()), "29997 FinPIEnigmaData::Create: O\x08Sx");
    // The shape and the mark of its start are created; the third call is the end's.
    RefuseOnly(HostCall::kCreateEData, 3);
    EXPECT_EQ(ErrorOf(assign.Create()), "29997 FinPISmartShapeAssign::Create (endpoint): edEx");
    Refuse(HostCall::kLoadTGF);
    assign.SelectRecord(FinPIEntryDetail::kNewRecord);
    EXPECT_EQ(ErrorOf(assign.Create()), kOrigin + "Create: Can't get end entry.");
    App().faults = {};
    EDTSmartShape shape = Shape();
    shape.end.entryNumber = 4711;
    Put(Tag::kSmartShape, RecordKey::Other(kShape), shape);
    EXPECT_EQ(ErrorOf(CopyWithin(&region)), kOrigin + "Commit: Can't find entnum in this TGF");
}

TEST_F(CopiedShapes, MarkWithoutShapeIsSkipped) {
    host.Attach(Source(), kShapeOnEntry, kOrphan);
    LoadBoth();
    FinPIEntryPtr from = source.EntryAt(0);
    from.AttachRegion(&region);
    FinPISmartShapeAssign assign{from};
    FinPISmartShapeAssign to{from};
    EXPECT_EQ(ErrorOf(assign.Create()), kOrigin + "Create: Can't get end entry.");
    for (const bool isLoaded : {false, true}) {
        ASSERT_TRUE(!isLoaded || assign.Load() != 0);
        EXPECT_EQ(assign.IsShapeInEntryRegion() + to.CopyAttributes(assign), 0);
        EXPECT_EQ(ErrorOf(assign.Commit()), kOrigin + "Commit: End entry for shape does not exist");
        EXPECT_EQ(ErrorOf(assign.Delete()), "29995 FinPISmartShapeAssign::Delete: O\x08Sx");
    }
}

}  // namespace
}  // namespace standin
