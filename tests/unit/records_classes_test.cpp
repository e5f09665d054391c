// Record classes with operations of their own.
#include "Class Files/score/document/FinPILyricBaseline.h"
#include "Class Files/score/document/FinPILyricText.h"
#include "Class Files/score/document/FinPIScoreExpr.h"
#include "Class Files/score/document/FinPIScoreView.h"
#include "Class Files/score/document/FinPIStaffView.h"
#include "Class Files/score/document/FinPITextExpression.h"
#include "Class Files/score/records/EnigmaRecords.h"
#include "Class Files/score/records/FinPIOtherStringUtf16.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

class RecordClasses : public LibraryTest {
protected:
    RecordClasses() : LibraryTest{2} {}
};

TEST_F(RecordClasses, TextsAreKeyedByNumber) {
    host.Score().Records().Create(HostTag("txve"), RecordKey::Text(4), "la la");
    FinPILyricText verse(LyricTextTag::kVerse, 4);
    ASSERT_EQ(verse.Load(), 1);
    EXPECT_EQ(std::string(static_cast<const char*>(verse.GetData()), verse.GetDataSize()), "la la");
    verse.SetData("a longer text", 13);
    EXPECT_EQ(verse.Load() + verse.Commit(), 2) << "it is loaded already";
    EXPECT_EQ(*Stored(HostTag("txve"), RecordKey::Text(4)), "a longer text");

    FinPIRawText next(LyricTextTag::kVerse, 0xFFFF);
    next.SetData("x!", 2);
    EXPECT_EQ(next.Create(), 1);
    EXPECT_EQ(next.GetCmper1(), 5) << "the next free number";
    verse.Rewind();
    EXPECT_EQ(verse.LoadNext() + verse.LoadNext(), 2);
    EXPECT_EQ(verse.IsSame(next), 1);
    verse.SetCmpers(4);
    EXPECT_EQ(verse.IsSameKey(next), 0);

    FinPILyricText loadedElsewhere(LyricTextTag::kVerse, 4);
    const OtherDocument other;
    other->Records().Create(HostTag("txve"), RecordKey::Text(4), "o");
    EXPECT_EQ(loadedElsewhere.Load(), 1);
    EXPECT_EQ(loadedElsewhere.DocumentID(), App().CurrentNumber());
}

TEST_F(RecordClasses, EmptyStringsAreDeleted) {
    FinPIOtherStringUtf16 name(HostTag("otmn"), 7);
    name.SetText(u"Compás");
    EXPECT_EQ(name.Count(), 7U);
    EXPECT_EQ(name.Commit(), 1);
    for (const auto load :
         {&FinPIEnigmaData::Load, &FinPIEnigmaData::LoadLast, &FinPIEnigmaData::LoadLastInci}) {
        FinPIOtherStringUtf16 read(HostTag("otmn"), 7);
        EXPECT_EQ((read.*load)(), 1);
        EXPECT_EQ(read.Text(), u"Compás");
    }
    FinPIOtherStringUtf16 refused(HostTag("otmn"), 0);
    RefuseOnly(HostCall::kLoadEData, 1);
    EXPECT_EQ(refused.LoadNext() + refused.Inci(), kNoInci);
    FinPIOtherStringUtf16 longer(HostTag("otmn"), 7);
    RefuseOnly(HostCall::kLoadEData, 2);  // the one for the whole text
    EXPECT_EQ(longer.Load(), 0);
    name.SetText(u"b");
    name.Values()[1] = u'c';
    EXPECT_EQ(name.Text(), u"bc") << "without a terminator, up to the end";
    name.SetCount(0);
    EXPECT_EQ(name.Count(), 1U) << "one unit at least";
    name.SetText(nullptr);
    EXPECT_EQ(name.Commit(), 1);
    EXPECT_EQ(Stored(HostTag("otmn"), RecordKey::Other(7)), nullptr);
}

TEST_F(RecordClasses, VariableDetailsHaveTwoItems) {
    FinPIShape shape(HostTag("dtXX"), 4, 9);
    shape.Body().opaque0[131] = 1;
    EXPECT_EQ(shape.Create(), 1);
    EXPECT_EQ(shape.IsSameKey(FinPIShape(HostTag("dtXX"), 4, 8)), 0);
    EXPECT_EQ(shape.IsSameKey(FinPIShape(HostTag("dtXX"), 4, 9)), 1);
    EXPECT_EQ(FinPIShape(HostTag("dtXX"), 5, 8).Create() + shape.LoadLastInci(), 2);
    EXPECT_EQ(shape.Cmper2(), 9);
    FinPIShape zeroth(HostTag("dtXX"), 4, 0);
    EXPECT_EQ(zeroth.Create() + zeroth.LoadLastInci(), 2);
    EXPECT_EQ(zeroth.Cmper2(), 0);
    EnigmaKey key{};
    EXPECT_EQ(shape.GetKey(key), 6) << "bytes";
    EXPECT_EQ(FinPIMeasFloat(4, 5).GetKey(key), 6);
    EXPECT_EQ(key, (EnigmaKey{4, 5, 0}));
    EXPECT_EQ(FinPILyricBaseline(LyricBaselineTag::kChorus, 4, 5).GetKey(key), 6);
    EXPECT_EQ(key, (EnigmaKey{4, 5, 0}));
    FinPIMeasFloat last(4, 0);
    EXPECT_EQ(FinPIMeasFloat(4, 0).Create() + FinPIMeasFloat(5, 0).Create(), 2);
    EXPECT_EQ(last.LoadLastInci(), 1);
    EXPECT_EQ(last.GetCmper1(), 4);
    EXPECT_EQ(FinPITextExpression{4}.GetKey(key), 4);
    EXPECT_EQ(FinPITextExpression{4}.GetDataSize(), 38U);
    EXPECT_EQ(FinPIKeyFormat(4).GetKey(key), 4);
    EXPECT_EQ(FinPIClefChange(4).GetKey(key), 4);
    EXPECT_EQ(FinPIGeneralPrefs{}.GetKey(key), 2);
}

TEST_F(RecordClasses, ShortRecordsFillTheirBody) {
    Put(HostTag("SODT"), RecordKey::Other(4), std::array<u16, 1>{0x6161});
    Put(HostTag("SODT"), RecordKey::Other(5), std::array<u16, 19>{});
    FinPITextExpression expression{4};
    const auto end = [&] { return static_cast<const char*>(expression.GetData())[37]; };
    expression.SetData(std::string(38, 'x').data(), 38);
    EXPECT_EQ(expression.Load(), 1);
    EXPECT_EQ(expression.GetDataSize(), 38U);
    EXPECT_EQ(end(), '\0');
    expression.SetData(std::string(38, 'x').data(), 38);
    expression.SetData("a", 1);
    EXPECT_EQ(end(), '\0');
    App().ResetCounts();
    EXPECT_EQ(FinPITextExpression{5}.Load() + FinPITextExpression{6}.Load(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 2U) << "once if it fits, or is not there";
}

TEST_F(RecordClasses, ScoreViewDeletesExpressions) {
    host.Score().AddPart(1, u"Flute");
    host.Score().currentPart = 1;
    FinPIScoreExpr expression(1);
    EXPECT_EQ(expression.ChooseLinkedPartHook(), 0);
    EXPECT_EQ(FinPIClefChange(1).ChooseLinkedPartHook(), 1);
    {
        const FinPIScoreView view;
        EXPECT_EQ(expression.ChooseLinkedPartHook(), 1);
    }
    EXPECT_EQ(host.Score().currentPart, 1);
}

TEST_F(RecordClasses, StaffViewIsFirstPartWithStaff) {
    host.Score().SetStaffList(21, {host.Staff(1)});
    host.Score().SetStaffList(22, {host.Staff(2)});
    for (const i16 part : {i16{1}, i16{2}, i16{3}}) {
        host.Score().AddPart(part, u"Part");
        FinPIPartView record(static_cast<u16>(part));
        ASSERT_EQ(record.Load(), 1);
        record.staffList = part == 1 ? 21 : 22;
        ASSERT_EQ(record.Save(), 1);
    }
    EXPECT_EQ(FinPIStaffView(host.Staff(1)).GetCmper1(), 1);
    EXPECT_EQ(FinPIStaffView(host.Staff(2)).GetCmper1(), 2);
    EXPECT_EQ(FinPIStaffView(99).IsNull(), 1);
    App().faults.pretendKind = HostCall::kNextEData;
    EXPECT_EQ(FinPIStaffView(99).IsNull(), 0) << "a list that does not end";
}

TEST_F(RecordClasses, MeasureRecordsCompareAndCopy) {
    FinPIScoreExpr first(1);
    first.definition = 5;
    first.hasPosition = 1;
    FinPIScoreExpr second(2, 3);
    EXPECT_EQ(second.IsSameMeasOther(first), 0);
    EXPECT_EQ(second.CopyMeasOtherAttributes(first), 1);
    EXPECT_EQ(second.GetCmper1(), 2) << "the measure stays";
    second.hasPosition = 0;
    EXPECT_EQ(second.IsSameMeasOther(first), 1) << "what is looked up does not count";

    FinPIClefChange clef(1);
    FinPIClefChange other(2);
    EXPECT_EQ(clef.IsSameMeasOther(other), 1);
    other.clef = 4;
    EXPECT_EQ(clef.IsSameMeasOther(other), 0);
    EXPECT_EQ(ErrorOf(clef.CopyMeasOtherAttributes(first)),
              "29999 FinPIMeasOther::CopyMeasOtherAttributes: dynamic_cast failed.");
}

}  // namespace
}  // namespace standin
