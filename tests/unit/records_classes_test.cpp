// Record classes that do more than their line of the table says.
#include <array>
#include <gtest/gtest.h>
#include <string>

#include "Class Files/score/FinPILyricBaseline.h"
#include "Class Files/score/FinPILyricText.h"
#include "Class Files/score/FinPIOtherStringUtf16.h"
#include "Class Files/score/FinPIScoreExpr.h"
#include "Class Files/score/FinPIScoreView.h"
#include "Class Files/score/FinPIShapeNote.h"
#include "Class Files/score/FinPIStaffView.h"
#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace {

using standin::App;
using standin::Bytes;
using standin::RecordKey;

class RecordClasses : public testing::Test {
protected:
    ~RecordClasses() override { EXPECT_EQ(TakePendingError(), ""); }

    const Bytes* Stored(u32 tag, RecordKey key) { return host.Score().Records().Find(tag, key); }

    standin::StandIn host{2, 1};
};

TEST_F(RecordClasses, FinPIRawTextIsKeyedByItsNumberAlone) {
    host.Score().Records().Create(HostTag("txve"), RecordKey::Text(4), "la la");
    FinPILyricText verse(LyricTextTag::kVerse, 4);
    ASSERT_EQ(verse.Load(), 1);
    EXPECT_EQ(std::string(static_cast<const char*>(verse.GetData()), verse.GetDataSize()), "la la");
    verse.SetData("a longer text", 13);
    EXPECT_EQ(verse.Commit(), 1);
    EXPECT_EQ(*Stored(HostTag("txve"), RecordKey::Text(4)), "a longer text");

    FinPIRawText next(LyricTextTag::kVerse, 0xFFFF);
    next.SetData("x!", 2);
    EXPECT_EQ(next.Create(), 1);
    EXPECT_EQ(next.GetCmper1(), 5) << "the next free number";
    EXPECT_EQ(next.IsSameKey(verse), 0);
    EXPECT_EQ(next.IsSameKey(FinPIRawText(LyricTextTag::kSection, 5)), 1);
    verse.Rewind();
    EXPECT_EQ(verse.LoadNext() + verse.LoadNext(), 2);
    EXPECT_EQ(verse.IsSame(next), 1);
}

TEST_F(RecordClasses, FinPIOtherStringUtf16HoldsATextWithItsTerminator) {
    FinPIOtherStringUtf16 name(HostTag("otmn"), 7);
    EXPECT_EQ(name.Text(), u"");
    name.SetText(u"Compás");
    EXPECT_EQ(name.Count(), 7U);
    EXPECT_EQ(name.Commit(), 1);
    FinPIOtherStringUtf16 read(HostTag("otmn"), 7);
    EXPECT_EQ(read.Load(), 1);
    EXPECT_EQ(read.Text(), u"Compás");
    read.SetText(u"b");
    EXPECT_EQ(read.Text(), u"b");
    read.Values()[1] = u'c';
    EXPECT_EQ(read.Text(), u"bc") << "without a terminator, up to the end";
    read.SetText(nullptr);
    EXPECT_EQ(read.Commit(), 1) << "an empty text is deleted";
    EXPECT_EQ(Stored(HostTag("otmn"), RecordKey::Other(7)), nullptr);
}

TEST_F(RecordClasses, FinPIKeyAttributesKeepTheirFirstValues) {
    FinPIKeyAttributes attributes(3);
    attributes.SetCount(3);
    attributes.Values()[1] = 9;
    attributes.SetCount(2);
    EXPECT_EQ(attributes.Count(), 2U);
    EXPECT_EQ(attributes.Values()[1], 9);
    attributes.SetCount(0);
    EXPECT_EQ(attributes.Count(), 1U) << "one at least";
}

TEST_F(RecordClasses, DetailsByKindHaveKeysOfTheirOwn) {
    const auto store = [](auto record, u8 mark) {
        record.opaque0[0] = mark;
        EXPECT_EQ(record.Commit(), 1);
    };
    store(FinPIShapeNoteDoubleWhole(8), 1);
    store(FinPIShapeNoteWhole(8), 2);
    store(FinPIShapeNoteHalf(8), 3);
    store(FinPIShapeNoteQuarter(8), 4);
    for (u16 kind = 0; kind < 4; ++kind) {
        const Bytes* const stored = Stored(HostTag("D\x15NI"), RecordKey::Detail(8, kind));
        ASSERT_NE(stored, nullptr) << kind;
        EXPECT_EQ((*stored)[0], kind + 1);
    }
    store(FinPILyricBaseline(LyricBaselineTag::kVerse, 8, 2), 5);
    store(FinPILyricBaseline(LyricBaselineTag::kChorus, 8, 2), 6);
    EXPECT_EQ((*Stored(HostTag("dtBv"), RecordKey::Detail(8, 2)))[0], 5);
    EXPECT_EQ((*Stored(HostTag("dtBc"), RecordKey::Detail(8, 2)))[0], 6);
}

TEST_F(RecordClasses, VariableDetailsHaveTwoItems) {
    FinPIShape shape(HostTag("dtXX"), 4, 9);
    shape.Body().opaque0[131] = 1;
    EXPECT_EQ(shape.Create(), 1);
    EXPECT_NE(Stored(HostTag("dtXX"), RecordKey::Detail(4, 9)), nullptr);
    FinPIShape found(HostTag("dtXX"), 0, 0);
    EXPECT_EQ(found.LoadNext(), 1);
    EXPECT_EQ(found.IsSameKey(shape), 1);
    EXPECT_EQ(found.IsSameKey(FinPIShape(HostTag("dtXX"), 4, 8)), 0);
}

TEST_F(RecordClasses, FinPIScoreViewShowsTheScoreWhileItLives) {
    host.Score().AddPart(1, u"Flute");
    host.Score().currentPart = 1;
    {
        FinPIScoreView view;
        EXPECT_EQ(host.Score().currentPart, 0);
        EXPECT_EQ(view.Load(), 0) << "this score has no record of itself";
    }
    EXPECT_EQ(host.Score().currentPart, 1);
}

TEST_F(RecordClasses, FinPIStaffViewIsTheFirstPartThatHasTheStaff) {
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
}

TEST_F(RecordClasses, RecordsOfMeasuresCompareAndCopyWhatTheySay) {
    FinPIScoreExpr first(1);
    first.definition = 5;
    first.hasPosition = 1;
    FinPIScoreExpr second(2, 3);
    EXPECT_EQ(second.IsSameMeasOther(first), 0);
    EXPECT_EQ(second.CopyMeasOtherAttributes(first), 1);
    EXPECT_EQ(second.definition, 5);
    EXPECT_EQ(second.GetCmper1(), 2) << "the measure stays";
    second.hasPosition = 0;
    EXPECT_EQ(second.IsSameMeasOther(first), 1) << "what is looked up does not count";
    EXPECT_EQ(second.IsSameKey(first), 0);

    FinPIClefChange clef(1);
    FinPIClefChange other(2);
    EXPECT_EQ(clef.IsSameMeasOther(other), 1);
    other.clef = 4;
    EXPECT_EQ(clef.IsSameMeasOther(other), 0);
    EXPECT_EQ(clef.IsSameMeasOther(first), 0);
    EXPECT_EQ(clef.CopyMeasOtherAttributes(first), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 FinPIMeasOther::CopyMeasOtherAttributes: dynamic_cast failed.");
    EXPECT_EQ(clef.GetTargetRegion(), nullptr);
    EXPECT_EQ(first.MeasureFlags(), 0x4000);
}

TEST_F(RecordClasses, ExpressionsAreDeletedInTheScoreOnly) {
    host.Score().AddPart(1, u"Flute");
    FinPIScoreExpr expression(1);
    FinPIClefChange clef(1);
    EXPECT_EQ(expression.IsPartSpecific(), 1);
    EXPECT_EQ(expression.ChooseLinkedPartHook(), 1);
    host.Score().currentPart = 1;
    EXPECT_EQ(expression.ChooseLinkedPartHook(), 0);
    EXPECT_EQ(clef.ChooseLinkedPartHook(), 1);
}

}  // namespace
