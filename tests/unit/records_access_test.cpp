// Loading, walking, saving, creating, deleting and committing records.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "Class Files/score/EnigmaRecords.h"
#include "Class Files/score/FinPITextExpression.h"
#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace {

using standin::App;
using standin::Bytes;
using standin::FaultPlan;
using standin::HostCall;
using standin::RecordKey;

constexpr u32 kKeyFormat = HostTag("otKF");

class Records : public testing::Test {
protected:
    Records() { App().ResetCounts(); }
    ~Records() override { EXPECT_EQ(TakePendingError(), ""); }

    // A key format record of the item whose first byte tells it apart.
    void Add(u16 item, char mark) {
        host.Score().Records().Create(kKeyFormat, RecordKey::Other(item, 0xFFFF),
                                      Bytes(1, mark) + Bytes(11, '\0'));
    }
    // The marks of an item's records, in order.
    std::string Stored(u16 item) {
        std::string marks;
        for (const auto& [key, bytes] : host.Score().Records().OfTag(kKeyFormat)) {
            if (key.OtherItem() == item) {
                marks += bytes[0];
            }
        }
        return marks;
    }

    standin::StandIn host;
};

TEST_F(Records, WalkingVisitsAllOfATagInTheHostsOrder) {
    Add(7, 'c');
    Add(2, 'a');
    Add(2, 'b');
    FinPIKeyFormat record(99);
    record.Rewind();
    std::string visited;
    while (record.LoadNext() != 0) {
        visited += static_cast<char>(record.opaque0[0]);
        visited += std::to_string(record.GetCmper1()) + "/" + std::to_string(record.Inci()) + " ";
    }
    EXPECT_EQ(visited, "a2/0 b2/1 c7/0 ");
    EXPECT_EQ(record.Inci(), kNoInci);
    EXPECT_EQ(record.IsLoaded(), 0);
    EXPECT_EQ(record.IsEmpty(), 1) << "the data of the last find is gone";
}

TEST_F(Records, TheLastOfAnItemOrOfALowerOneIsFound) {
    Add(2, 'a');
    Add(2, 'b');
    Add(7, 'c');
    FinPIKeyFormat record(2);
    EXPECT_EQ(record.LoadLastInci(), 1);
    EXPECT_EQ(record.opaque0[0], 'b');
    record.SetCmpers(5);
    EXPECT_EQ(record.LoadLastInci(), 1);
    EXPECT_EQ(record.GetCmper1(), 2) << "item 5 has none";
    EXPECT_EQ(record.LoadLast(), 1);
    EXPECT_EQ(record.opaque0[0], 'c');
    EXPECT_EQ(record.LoadLastCmper1(1), 0);
    EXPECT_EQ(record.Inci(), kNoInci);

    ShapeNotesRecord detail(4, 8);
    detail.opaque0[0] = 1;
    EXPECT_EQ(detail.Create(), 1);
    ShapeNotesRecord later(4, 9);
    later.opaque0[0] = 2;
    EXPECT_EQ(later.Create(), 1);
    ShapeNotesRecord last(4, 8);
    EXPECT_EQ(last.LoadLastInci(), 1);
    EXPECT_EQ(last.opaque0[0], 1) << "of a detail, the item is the pair of numbers";
}

TEST_F(Records, OperationsOutOfTurnAreRefusedWithoutAHostCall) {
    FinPIKeyFormat record(1);
    App().ResetCounts();
    EXPECT_EQ(record.Save(), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 FinPIEnigmaData::Save: Attempted to Save but never Loaded.");
    EXPECT_EQ(App().calls.Total(), 0U);

    record.opaque0[0] = 'x';
    EXPECT_EQ(record.Create(), 1);
    record.opaque0[0] = 'y';
    App().ResetCounts();
    EXPECT_EQ(record.Create(), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 FinPIEnigmaData::Create: Attempted to Create but already Loaded.");
    EXPECT_EQ(record.Load(), 1) << "it is loaded already";
    EXPECT_EQ(record.opaque0[0], 'y');
    EXPECT_EQ(App().calls.Total(), 0U);

    FinPITextExpression empty(1);
    empty.SetSize(0);
    const std::pair<i16 (FinPIEnigmaData::*)(), const char*> operations[] = {
        {&FinPIEnigmaData::Save, "Save"},
        {&FinPIEnigmaData::Create, "Create"},
        {&FinPIEnigmaData::LoadLastInci, "LoadLastInci"},
        {&FinPIEnigmaData::LoadLast, "LoadLastCmper1"}};
    App().ResetCounts();
    for (const auto& [operation, name] : operations) {
        EXPECT_EQ((empty.*operation)(), 0);
        EXPECT_EQ(TakePendingError(),
                  std::string("29999 FinPIEnigmaData::") + name + ": No data buffer exists.");
    }
    EXPECT_EQ(empty.Load() + empty.LoadNext(), 0);
    EXPECT_EQ(App().calls.Total(), 0U);
}

TEST_F(Records, WhatTheHostRefusesIsPostedWithTheTag) {
    Add(1, 'a');
    FinPIKeyFormat record(1);
    ASSERT_EQ(record.Load(), 1);
    record.opaque0[0] = 'z';

    App().ResetCounts();
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kSaveEData);
    EXPECT_EQ(record.Save(), 0);
    EXPECT_EQ(TakePendingError(), "29996 FinPIEnigmaData::Save: otKF");
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kCreateEData);
    FinPIKeyFormat other(3);
    EXPECT_EQ(other.Create(), 0);
    EXPECT_EQ(TakePendingError(), "29997 FinPIEnigmaData::Create: otKF");
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kLoadEData);
    EXPECT_EQ(other.Create(), 0) << "created, but it does not load";
    EXPECT_EQ(TakePendingError(), "29997 FinPIEnigmaData::Create: otKF");
    EXPECT_EQ(FinPIKeyFormat(1).Load(), 0);
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kDeleteEData);
    EXPECT_EQ(record.Delete(), 0);
    EXPECT_EQ(record.Inci(), 0) << "a refused delete leaves the record where it was";
    EXPECT_EQ(Stored(1), "a");
}

TEST_F(Records, ARecordIsSavedInItsOwnDocumentOnly) {
    Add(1, 'a');
    FinPIKeyFormat record(1);
    ASSERT_EQ(record.Load(), 1);
    const u16 own = App().CurrentNumber();
    App().SetCurrentDocument(App().OpenDocument(u"other").Number());
    EXPECT_EQ(record.Save(), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 FinPIEnigmaData::Save: Attempted to update a non-current document");
    App().SetCurrentDocument(own);
    EXPECT_EQ(record.Save(), 1);
}

struct CommitCase {
    const char* name;
    bool stored;  // 'a' is in the document and was loaded
    bool hasData;
    bool keepWhenEmpty;
    std::string afterwards;
};

TEST_F(Records, CommitsDeleteSaveOrCreate) {
    const std::string zero(1, '\0');
    const CommitCase cases[] = {
        {"NeverLoadedWithoutData", false, false, false, ""},
        {"NeverLoadedWithData", false, true, false, "n"},
        {"NeverLoadedKept", false, false, true, zero},
        {"LoadedWithoutData", true, false, false, ""},
        {"LoadedWithData", true, true, false, "n"},
        {"LoadedKept", true, false, true, zero},
    };
    u16 item = 20;
    for (const CommitCase& c : cases) {
        FinPIKeyFormat record(++item);
        if (c.stored) {
            Add(item, 'a');
            ASSERT_EQ(record.Load(), 1);
        }
        record.opaque0[0] = c.hasData ? 'n' : '\0';
        record.SetKeepWhenEmpty(c.keepWhenEmpty);
        EXPECT_EQ(record.Commit(), 1) << c.name;
        EXPECT_EQ(Stored(item), c.afterwards) << c.name;
        EXPECT_EQ(record.WasCreated(), !c.stored && !c.afterwards.empty()) << c.name;
    }
}

TEST_F(Records, AppendedRecordsLearnTheirNumber) {
    Add(1, 'a');
    FinPIKeyFormat created(1, kNoInci);
    created.opaque0[0] = 'b';
    EXPECT_EQ(created.Create(), 1);
    EXPECT_EQ(created.Inci(), 1);
    EXPECT_EQ(created.Delete(), 1);
    EXPECT_EQ(created.IsNull(), 1);
    EXPECT_EQ(Stored(1), "a");
}

TEST_F(Records, VariableRecordsTakeTheStoredSize) {
    host.Score().Records().Create(HostTag("SODT"), RecordKey::Other(40),
                                  Bytes(12, '\0') + '\x09' + Bytes(67, 'x'));
    FinPITextExpression text(40);
    EXPECT_EQ(text.GetDataSize(), 38U);
    ASSERT_EQ(text.Load(), 1);
    EXPECT_EQ(text.GetDataSize(), 80U);
    EXPECT_EQ(static_cast<const char*>(text.GetData())[79], 'x');
    text.Rewind();
    EXPECT_EQ(text.GetDataSize(), 38U);
}

TEST_F(Records, CommitsOfPartsReachTheScoreAndEachPart) {
    struct PartOwned final : FinPIKeyFormat {
        using FinPIKeyFormat::FinPIKeyFormat;
        i16 IsPartSpecific() const override { return 1; }
        i16 Commit() override {
            parts.push_back(standin::App().CurrentDocument()->currentPart);
            return FinPIKeyFormat::Commit();
        }
        std::vector<i16> parts;
    };
    host.Score().AddPart(1, u"Flute");
    host.Score().AddPart(2, u"Oboe");
    PartOwned record(1);
    record.opaque0[0] = 'p';

    EXPECT_EQ(record.CommitInScoreAndParts(), 1);
    EXPECT_EQ(record.parts, (std::vector<i16>{0, 1, 2}));
    EXPECT_EQ(host.Score().currentPart, 0);

    record.parts.clear();
    host.Score().currentPart = 2;
    EXPECT_EQ(record.CommitInScoreFirst(), 1);
    EXPECT_EQ(record.parts, (std::vector<i16>{0, 2}));
    EXPECT_EQ(record.DeleteAndRecreateInScore(), 1);
    EXPECT_EQ(host.Score().currentPart, 2);
    EXPECT_EQ(Stored(1), "p");

    // The score, the first part and the second are each refused in turn.
    host.Score().currentPart = 0;
    for (u64 nth = 1; nth <= 3; ++nth) {
        App().ResetCounts();
        App().faults.refuseKind = FaultPlan::OfKind{HostCall::kSaveEData, nth, nth};
        EXPECT_EQ(record.CommitInScoreAndParts(), 0) << nth;
        EXPECT_EQ(TakePendingError(), "29996 FinPIEnigmaData::Save: otKF");
        EXPECT_EQ(host.Score().currentPart, 0);
    }
    host.Score().currentPart = 2;
    App().ResetCounts();
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kSaveEData);
    EXPECT_EQ(record.CommitInScoreFirst(), 0);
    EXPECT_EQ(TakePendingError(), "29996 FinPIEnigmaData::Save: otKF");
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kDeleteEData);
    EXPECT_EQ(record.DeleteAndRecreateInScore(), 0);
    EXPECT_EQ(host.Score().currentPart, 2);
}

}  // namespace
