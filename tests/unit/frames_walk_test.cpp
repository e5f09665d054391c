// Steps from entry to entry, and positions of entries.

#include "Class Files/score/document/FinPIScoreExpr.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

class Walks : public LibraryTest {
protected:
    Walks() : LibraryTest{1, 3} {
        host.Layer(1, 1, 0, kVoices);
        host.Layer(1, 2, 0, "h:c5 h:d5");
    }

    FinPITGFPtr Load(u16 measure = 1) const { return {host.Staff(1), measure, 0}; }
    // Its place, such as "1:3"; "-" for an invalid pointer.
    static std::string PlaceOf(const FinPIEntryPtr& entry) {
        return entry ? std::to_string(entry.Measure()) + ":" + std::to_string(entry.Index()) : "-";
    }

    //                         0    1       2     3     4    5       6
    const char* kVoices = "q:c4 q:d4 v2{e:a3 e:b3} q:e4 q:f4 v2{q:g3}";
};

TEST_F(Walks, StepsStayInTheirVoice) {
    // In the frame, in the frame and the voice, in the voice over the barline, and back in it.
    const char* const steps[] = {
        "1:1 1:1 1:1 -",    //
        "1:2 1:4 1:4 1:0",  // passes over the voice that it launches
        "1:3 1:3 1:3 -",    // voice 2 begins here
        "1:4 - - 1:2",      // and ends here
        "1:5 1:5 1:5 1:1",  //
        "1:6 - 2:0 1:4",    // voice 2 is the last of the frame
        "- - - -",          //
    };
    const FinPITGFPtr frame = Load();
    for (i16 from = 0; const char* const expected : steps) {
        const FinPIEntryPtr entry = frame.EntryAt(from++);
        EXPECT_EQ(PlaceOf(entry.Next(true)) + " " + PlaceOf(entry.NextInVoice(true)) + " " +
                      PlaceOf(entry.NextInVoice(false)) + " " + PlaceOf(entry.PreviousInVoice()),
                  expected);
    }
}

TEST_F(Walks, EndAtEmptyMeasure) {
    const FinPITGFPtr frame = Load();
    FinPIEntryPtr entry = frame.EntryAt(6).Next(false);
    EXPECT_EQ(PlaceOf(entry), "2:0");
    EXPECT_TRUE(entry.IsOwner());
    FinPIEntryPtr last = entry.Next(false);
    EXPECT_EQ(PlaceOf(last), "2:1");
    EXPECT_TRUE(last.IsOwner());
    EXPECT_EQ(PlaceOf(last.Next(false)), "-");
    EXPECT_EQ((FinPIEntryPtr{frame.Frame(), 4}.ScaledPosition()), 2048) << "asks for durations";
    EXPECT_EQ((FinPIEntryPtr{frame.Frame(), 0}.ScaledActualDuration()), 1024);
    EXPECT_FALSE((FinPIEntryPtr{frame.Frame(), -1}));
    EXPECT_FALSE((FinPIEntryPtr{frame.Frame(), 7}));
    EXPECT_EQ(FinPIEntryPtr{}.ScaledPosition() + FinPIEntryPtr{}.ScaledActualDuration(), 0);
    EXPECT_EQ(FinPITGFPtr{}.NominalMeasureDuration() + FinPITGFPtr{}.StaffMeasureDuration(), 0);
}

TEST_F(Walks, PositionsAreScaledAndRounded) {
    host.Score().SetMeasureDuration(host.Staff(1), 1, 3072);
    host.Layer(1, 1, 0, "q:c4 e:d4 t:e4 q:f4");
    const FinPITGFPtr frame = Load();
    EXPECT_EQ((FinPIEntryPtr{frame.Frame(), 0}.ScaledActualDuration()), 1365);
    EXPECT_EQ(frame.EntryAt(1).ScaledPosition(), 1365);       // 1365.33
    EXPECT_EQ(frame.EntryAt(1).ScaledActualDuration(), 683);  // 682.67
    EXPECT_EQ(+frame.EntryAt(3)->elapsedTime, 1664);
    EXPECT_EQ(frame.EntryAt(3).ScaledPosition(), 2219);  // 2218.67

    host.Score().SetMeasureDuration(host.Staff(1), 1, 5120);
    host.Layer(1, 1, 0, "q:c4 q:d4 q:e4 q:f4 q:g4");
    EXPECT_EQ(Load().EntryAt(3).ScaledPosition(), 2458);  // 2457.6
}

TEST_F(Walks, DurationIsSummedWhereTheHostGivesNone) {
    Refuse(HostCall::kGetTGFDuration);
    EXPECT_EQ(Load().Duration(), 4096) << "of the first voice";
}

TEST_F(Walks, AnyEntryMayEndTheFrame) {
    host.Layer(1, 1, 0, "w:c4 ge:d4 gs:e4");
    host.Layer(1, 2, 0, "w:c4 v2{w:g3}");
    App().faults.guardFrames = true;
    EXPECT_EQ(Load().EntryAt(1).GraceOffset(), -768);
    EXPECT_EQ(PlaceOf(Load(2).EntryAt(1).NextInVoice(true)), "-");
    App().faults = {};
}

TEST_F(Walks, ExpressionBelongsToEntryAtItsTime) {
    host.Layer(1, 1, 0, "ge:d4 gs:e4 q:c4 q:d4 v2{h:a3} q:e4");
    const u16 number = host.Expression(1, 1, 0, 0);
    const FinPITGFPtr frame = Load();
    // The indices of the entries with an expression of an entry in which one thing is changed.
    const auto on = [&](auto change, bool launchTest, bool layerTest) {
        FinPIScoreExpr expression{1, number};
        EXPECT_NE(expression.Load(), 0);
        change(expression);
        std::string entries;
        for (i16 i = 0; i < frame.Count(); ++i) {
            if (frame.EntryAt(i).IsExpressionAttached(expression, launchTest, layerTest) != 0) {
                entries += std::to_string(i);
            }
        }
        return entries;
    };
    EXPECT_EQ(on([](auto&) {}, false, false), "2");
    EXPECT_EQ(on([](auto& e) { e.layer = 0; }, false, true), "2") << "every layer";
    EXPECT_EQ(on([](auto& e) { e.layer = 0x19; }, false, true), "2") << "its other bits";
    EXPECT_EQ(on([](auto& e) { e.layer = 2; }, false, true), "");
    EXPECT_EQ(on([](auto& e) { e.layer = 2; }, false, false), "2");
    EXPECT_EQ(on([](auto& e) { e.graceIndex = 1; }, false, false), "0");
    EXPECT_EQ(on([](auto& e) { e.graceIndex = 2; }, false, false), "1");
    EXPECT_EQ(on([](auto& e) { e.staffListMarker = 3; }, false, false), "");
    EXPECT_EQ(on([](auto& e) { e.staff = 99; }, false, false), "");
    EXPECT_EQ(on([](auto& e) { e.belongsToEntry = 0; }, false, false), "");
    EXPECT_EQ(on([](auto& e) { e.positionLow = 1024; }, false, false), "34") << "both voices";
    EXPECT_EQ(on([](auto& e) { e.positionLow = 1024; }, true, false), "4") << "no launcher";
    EXPECT_EQ(on([](auto& e) { e.positionHigh = 1; }, false, false), "");
    EXPECT_EQ(on([](auto& e) { e.hasPosition = 0, e.positionLow = 600; }, false, false), "2");
    host.Layer(1, 1, 1, "q:c4");
    FinPIScoreExpr expression{1, number};
    EXPECT_NE(expression.Load(), 0);
    const FinPITGFPtr otherLayer{host.Staff(1), 1, 1};
    EXPECT_TRUE(otherLayer.EntryAt(0).IsExpressionAttached(expression, false, false));
    EXPECT_FALSE(otherLayer.EntryAt(0).IsExpressionAttached(expression, false, true));
    // Of several entries at the same time only the first.
    for (EXENTRY& entry : frame.Entries().subspan(2)) {
        entry.elapsedTime = 0;
    }
    EXPECT_EQ(on([](auto&) {}, false, false), "24") << "of each voice";
}

}  // namespace
}  // namespace standin
