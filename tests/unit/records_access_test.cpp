// Loading, walking, saving, creating, deleting and committing records.
#include <array>
#include <tuple>
#include <vector>

#include "Class Files/score/EnigmaRecords.h"
#include "Class Files/score/FinPITextExpression.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

constexpr u32 kKeyFormat = HostTag("otKF");

class Records : public LibraryTest {
protected:
    // A key format record of the item whose first byte tells it apart.
    void Add(u16 item, char mark) {
        host.Score().Records().Create(kKeyFormat, RecordKey::Other(item, kAppend),
                                      Bytes(1, mark) + Bytes(11, '\0'));
    }
    // The marks of an item's records, in order.
    std::string Marks(u16 item) {
        std::string marks;
        for (const auto& [key, bytes] : host.Score().Records().OfTag(kKeyFormat)) {
            marks += key.OtherItem() == item ? bytes.substr(0, 1) : "";
        }
        return marks;
    }
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
    EXPECT_EQ(record.IsLoaded(), 0);
    EXPECT_EQ(record.IsEmpty(), 1) << "the data of the last find is gone";
}

TEST_F(Records, AWalkLeavesNothingOfALongerRecordInAShorterOne) {
    host.Score().Records().Create(kKeyFormat, RecordKey::Other(1), Bytes(12, 'l'));
    host.Score().Records().Create(kKeyFormat, RecordKey::Other(2), Bytes(2, 's'));
    FinPIKeyFormat record(0);
    EXPECT_EQ(record.LoadNext() + record.LoadNext(), 2);
    EXPECT_EQ(record.opaque0[1], 's');
    EXPECT_EQ(record.opaque0[2], 0);
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

    Put(HostTag("D\x15NI"), RecordKey::Detail(4, 8), std::array<u16, 6>{8});
    Put(HostTag("D\x15NI"), RecordKey::Detail(4, 9), std::array<u16, 6>{9});
    ShapeNotesRecord detail(4, 8);
    EXPECT_EQ(detail.LoadLastInci(), 1);
    EXPECT_EQ(detail.opaque0[0], 8) << "of a detail, the item is the pair of numbers";
}

TEST_F(Records, OperationsOutOfTurnAreRefusedWithoutAHostCall) {
    FinPIKeyFormat record(1);
    record.opaque0[0] = 'x';
    EXPECT_EQ(record.Create(), 1);
    record.opaque0[0] = 'y';
    App().ResetCounts();
    EXPECT_EQ(ErrorOf(record.Create()),
              "29999 FinPIEnigmaData::Create: Attempted to Create but already Loaded.");
    EXPECT_EQ(record.Load(), 1) << "it is loaded already";
    EXPECT_EQ(record.opaque0[0], 'y');
    record.Reset(0);
    App().ResetCounts();
    EXPECT_EQ(ErrorOf(record.Save()),
              "29999 FinPIEnigmaData::Save: Attempted to Save but never Loaded.");
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
        EXPECT_EQ(ErrorOf((empty.*operation)()),
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
    Refuse(HostCall::kSaveEData);
    EXPECT_EQ(ErrorOf(record.Save()), "29996 FinPIEnigmaData::Save: otKF");
    Refuse(HostCall::kCreateEData);
    FinPIKeyFormat other(3);
    EXPECT_EQ(ErrorOf(other.Create()), "29997 FinPIEnigmaData::Create: otKF");
    Refuse(HostCall::kLoadEData);
    EXPECT_EQ(ErrorOf(other.Create()), "29997 FinPIEnigmaData::Create: otKF")
        << "created, but it does not load";
    Refuse(HostCall::kDeleteEData);
    EXPECT_EQ(ErrorOf(record.Delete()), "");
    EXPECT_EQ(record.Inci(), 0) << "a refused delete leaves the record where it was";
    EXPECT_EQ(Marks(1), "a");
}

TEST_F(Records, ARecordIsSavedAndDeletedInItsOwnDocumentOnly) {
    Add(1, 'a');
    Add(2, 'b');
    FinPIKeyFormat record(1);
    ASSERT_EQ(record.Load(), 1);
    FinPIKeyFormat emptied(2);
    ASSERT_EQ(emptied.Load(), 1);
    Document& other = App().OpenDocument(u"other");
    other.Records().Create(kKeyFormat, RecordKey::Other(2), Bytes(12, 'o'));
    App().SetCurrentDocument(other.Number());
    EXPECT_EQ(ErrorOf(record.Save()),
              "29999 FinPIEnigmaData::Save: Attempted to update a non-current document");
    emptied.ClearData();
    Refuse(HostCall::kSetCurrentEnigmaDocument);
    EXPECT_EQ(emptied.Commit(), 0);
    App().faults = {};
    EXPECT_EQ(record.DeleteAndRecreateInScore(), 1);
    EXPECT_EQ(emptied.Commit(), 1);
    EXPECT_EQ(Marks(1) + Marks(2), "a");
    EXPECT_EQ(other.Records().OfTag(kKeyFormat).size(), 1U);
    App().SetCurrentDocument(host.Score().Number());
    EXPECT_EQ(record.Save(), 1);
}

TEST_F(Records, ASaveThatAppendsGivesTheNewNumber) {
    Add(1, 'a');
    FinPIKeyFormat record(1);
    ASSERT_EQ(record.Load(), 1);
    record.SetKey({1, kNoInci});
    EXPECT_EQ(record.Save(), 1);
    EXPECT_EQ(record.Inci(), 1);
    EXPECT_EQ(Marks(1), "aa");
}

TEST_F(Records, CommitsDeleteSaveOrCreate) {
    const std::tuple<char, bool, std::string> cases[] = {
        {'\0', false, ""}, {'n', false, "n"}, {'\0', true, std::string(1, '\0')}};
    u16 item = 20;
    for (const bool wasStored : {false, true}) {
        for (const auto& [data, keepWhenEmpty, afterwards] : cases) {
            FinPIKeyFormat record(++item);
            if (wasStored) {
                Add(item, 'a');
                ASSERT_EQ(record.Load(), 1);
            }
            record.opaque0[0] = static_cast<u8>(data);
            record.SetKeepWhenEmpty(keepWhenEmpty);
            EXPECT_EQ(record.Commit(), 1) << item;
            EXPECT_EQ(Marks(item), afterwards) << item;
            EXPECT_EQ(record.WasCreated(), !wasStored && !afterwards.empty()) << item;
        }
    }
}

TEST_F(Records, CommitsOfPartsReachTheScoreAndEachPart) {
    struct PartOwned final : FinPIKeyFormat {
        using FinPIKeyFormat::FinPIKeyFormat;
        i16 IsPartSpecific() const override { return 1; }
        i16 Commit() override {
            parts.push_back(App().CurrentDocument()->currentPart);
            return FinPIKeyFormat::Commit();
        }
        std::vector<i16> parts;
    };
    constexpr char kSaveRefused[] = "29996 FinPIEnigmaData::Save: otKF";
    host.Score().AddPart(1, u"Flute");
    host.Score().AddPart(2, u"Oboe");
    PartOwned record(1);
    record.opaque0[0] = 'p';
    EXPECT_EQ(record.CommitInScoreAndParts(), 1);
    EXPECT_EQ(record.parts, (std::vector<i16>{0, 1, 2}));
    // The score, the first part and the second are each refused in turn.
    for (u64 nth = 1; nth <= 3; ++nth) {
        App().ResetCounts();
        App().faults.refuseKind = FaultPlan::OfKind{HostCall::kSaveEData, nth, nth};
        EXPECT_EQ(ErrorOf(record.CommitInScoreAndParts()), kSaveRefused) << nth;
        EXPECT_EQ(host.Score().currentPart, 0);
    }

    host.Score().currentPart = 2;
    App().ResetCounts();
    App().faults.refuseKind = FaultPlan::OfKind{HostCall::kSaveEData, 1, 1};
    EXPECT_EQ(ErrorOf(record.CommitInScoreFirst()), kSaveRefused);
    record.parts.clear();
    EXPECT_EQ(record.CommitInScoreFirst(), 1);
    EXPECT_EQ(record.parts, (std::vector<i16>{0, 2}));
    EXPECT_EQ(record.DeleteAndRecreateInScore(), 1);
    EXPECT_EQ(host.Score().currentPart, 2);
    EXPECT_EQ(Marks(1), "p");
    Refuse(HostCall::kDeleteEData);
    EXPECT_EQ(record.DeleteAndRecreateInScore(), 0);
}

}  // namespace
}  // namespace standin
