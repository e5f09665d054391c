// Loading, walking, saving, creating, deleting and committing records.
#include <string>
#include <tuple>

#include "Class Files/score/records/EnigmaRecords.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

constexpr u32 kKeyFormat = HostTag("otKF");
constexpr char kSaveRefused[] = "29996 FinPIEnigmaData::Save: otKF";

class Records : public LibraryTest {
protected:
    // A stored key format record of the item, identified by its first byte.
    FinPIKeyFormat Added(u16 item, char mark) {
        host.Score().Records().Create(kKeyFormat, RecordKey::Other(item),
                                      Bytes(1, mark) + Bytes(11, '\0'));
        FinPIKeyFormat record(item);
        EXPECT_EQ(record.Load(), 1);
        return record;
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

TEST_F(Records, WalkClearsLongerRecords) {
    host.Score().Records().Create(kKeyFormat, RecordKey::Other(1), Bytes(12, 'l'));
    host.Score().Records().Create(kKeyFormat, RecordKey::Other(2), Bytes(2, 's'));
    FinPIKeyFormat record(0);
    EXPECT_EQ(record.LoadNext() + record.LoadNext(), 2);
    EXPECT_EQ(record.opaque0[1], 's');
    EXPECT_EQ(record.opaque0[2], 0);
    Bytes longer(14, '#');
    record.GetDataCopy(longer.data(), 14);
    EXPECT_EQ(longer, Bytes(2, 's') + Bytes(12, '\0'));
    record.Rewind();
    EXPECT_EQ(record.IsLoaded() + record.opaque0[0], 0);
}

TEST_F(Records, HooksHaveNoEffectByDefault) {
    FinPIKeyFormat record(1);
    const FinPIKeyFormat other(2);
    for (const i16 allowed :
         {record.AcceptsSerialVersion(1), record.AcceptsVersion(1), record.CanDeleteInScore(),
          record.CanDeleteInPart(), record.CopyDependentStructs(other),
          record.CopyDependentStructsPostCommit(other), record.UnusedHook1(), record.UnusedHook2(),
          record.UnusedHook4()}) {
        EXPECT_EQ(allowed, 1);
    }
    for (const i16 none :
         {record.IsPartSpecific(), record.UsesSerializedForm(), record.IsLoaded(), record.IsNull(),
          record.PutSerializedDependentStruct(2, 2, nullptr, 0), record.UnusedHook3()}) {
        EXPECT_EQ(none, 0);
    }
    EXPECT_EQ(record.GetSerializedDependentStruct(2, 2, nullptr, 0), 0U);
    EXPECT_FALSE(record.WasCreated() || record.WasFilledFromCopy());
    EXPECT_EQ(FinPIClefChange(1).GetTargetRegion(), nullptr);
}

TEST_F(Records, ReorderedPreferencesAreReadOnly) {
    FinPIBeamPrefs prefs;
    EXPECT_EQ(prefs.DocumentID(), App().CurrentNumber());
    EnigmaKey key{7};
    EXPECT_EQ(prefs.LoadNext() + prefs.Delete() + prefs.Save() + prefs.Create(), 0);
    EXPECT_EQ(prefs.GetKey(key), 0);
    EXPECT_EQ(prefs.IsSameKey(FinPIClefPrefs{}), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kSaveEData) + App().calls.Of(HostCall::kCreateEData), 0U);
}

TEST_F(Records, RefuseOperationsOutOfOrder) {
    FinPIKeyFormat record(1);
    record.opaque0[0] = 'x';
    EXPECT_EQ(record.Create(), 1);
    record.opaque0[0] = 'y';
    EXPECT_EQ(record.Load(), 1);
    EXPECT_EQ(record.opaque0[0], 'y') << "it is loaded already";
    EXPECT_EQ(ErrorOf(record.Create()),
              "29999 FinPIEnigmaData::Create: Attempted to Create but already Loaded.");
    record.Reset(0);
    EXPECT_EQ(ErrorOf(record.Save()),
              "29999 FinPIEnigmaData::Save: Attempted to Save but never Loaded.");
    record.SetNull(kNoInci);
    EXPECT_EQ(record.GetCmper1(), 0xFFFF);
    EXPECT_EQ(record.IsNull(), 1);
}

TEST_F(Records, WithoutBufferCallNoHost) {
    struct WithoutBuffer final : FinPIOther {
        WithoutBuffer() : FinPIOther{kKeyFormat, 1, 0, kInterfaceVersion, true} {}
        const void* GetData() const override { return nullptr; }
        u32 GetDataSize() const override { return 0; }
    };
    Added(1, 'a');
    WithoutBuffer record;
    EXPECT_EQ(record.DocumentID(), 0) << "none yet";
    App().ResetCounts();
    EXPECT_EQ(record.Load() + record.LoadNext(), 0);
    const auto refusal = [](const char* function) {
        return std::string("29999 FinPIEnigmaData::") + function + ": No data buffer exists.";
    };
    EXPECT_EQ(ErrorOf(record.LoadLast()), refusal("LoadLastCmper1"));
    EXPECT_EQ(ErrorOf(record.LoadLastInci()), refusal("LoadLastInci"));
    EXPECT_EQ(ErrorOf(record.Save()), refusal("Save"));
    EXPECT_EQ(ErrorOf(record.Create()), refusal("Create"));
    EXPECT_EQ(App().calls.Total(), 0U);
    EXPECT_EQ(record.GetCmper1(), 1);
}

TEST_F(Records, RefusalsArePostedWithTag) {
    FinPIKeyFormat record = Added(1, 'a');
    record.opaque0[0] = 'z';
    Refuse(HostCall::kSaveEData);
    EXPECT_EQ(ErrorOf(record.Save()), kSaveRefused);
    FinPIKeyFormat other(3);
    for (const HostCall call : {HostCall::kCreateEData, HostCall::kLoadEData}) {
        Refuse(call);
        EXPECT_EQ(ErrorOf(other.Create()), "29997 FinPIEnigmaData::Create: otKF");
    }
    Refuse(HostCall::kDeleteEData);
    EXPECT_EQ(record.Delete(), 0);
    EXPECT_EQ(record.Inci(), 0) << "a refused delete leaves the record where it was";
    EXPECT_EQ(Marks(1), "a");
}

TEST_F(Records, ChangeOnlyTheirOwnDocument) {
    FinPIKeyFormat record = Added(1, 'a');
    FinPIKeyFormat emptied = Added(2, 'b');
    emptied.ClearData();
    FinPIKeyFormat unloaded(2);
    FinPIKeyFormat walker(1);
    const OtherDocument other;
    other->Records().Create(kKeyFormat, RecordKey::Other(2), Bytes(12, 'o'));
    EXPECT_EQ(FinPIKeyFormat(1).DocumentID(), other->Number());
    EXPECT_EQ(unloaded.Load() + walker.LoadNext(), 2);
    EXPECT_EQ(unloaded.DocumentID(), other->Number());
    EXPECT_EQ(walker.DocumentID(), other->Number());
    EXPECT_EQ(ErrorOf(record.Save()),
              "29999 FinPIEnigmaData::Save: Attempted to update a non-current document");
    Refuse(HostCall::kSetCurrentEnigmaDocument);
    EXPECT_EQ(emptied.Commit(), 0);
    App().faults = {};
    EXPECT_EQ(record.DeleteAndRecreateInScore(), 1);
    EXPECT_EQ(emptied.Commit(), 1);
    EXPECT_EQ(Marks(1) + Marks(2), "a");
    EXPECT_EQ(other->Records().OfTag(kKeyFormat).size(), 1U);
}

TEST_F(Records, RecreatedRecordKeepsItsPlace) {
    FinPIKeyFormat record = Added(1, 'a');
    record.SetKey({1, kNoInci});
    record.opaque0[0] = 'b';
    record.Save();
    FinPIKeyFormat first(1);
    first.Load();
    EXPECT_EQ(first.DeleteAndRecreateInScore(), 1);
    EXPECT_EQ(Marks(1), "ab");
}

TEST_F(Records, AppendingSaveReturnsNumber) {
    FinPIKeyFormat record = Added(1, 'a');
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
            ++item;
            FinPIKeyFormat record = wasStored ? Added(item, 'a') : FinPIKeyFormat(item);
            record.opaque0[0] = static_cast<u8>(data);
            record.SetKeepWhenEmpty(keepWhenEmpty);
            EXPECT_EQ(record.Commit(), 1) << item;
            EXPECT_EQ(Marks(item), afterwards) << item;
            EXPECT_EQ(record.WasCreated(), !wasStored && !afterwards.empty()) << item;
        }
    }
}

TEST_F(Records, CommitsReachScoreAndParts) {
    struct PartOwned final : FinPIKeyFormat {
        using FinPIKeyFormat::FinPIKeyFormat;
        i16 IsPartSpecific() const override { return 1; }
        i16 Commit() override {
            parts += std::to_string(App().CurrentDocument()->currentPart);
            return FinPIKeyFormat::Commit();
        }
        void OnCommittedInScore() override { hooks += 's'; }
        void OnCommittedInPart() override { hooks += 'p'; }
        std::string parts;
        std::string hooks;
    };
    host.Score().AddPart(1, u"Flute");
    host.Score().AddPart(2, u"Oboe");
    PartOwned record(1);
    record.opaque0[0] = 'p';
    EXPECT_EQ(record.CommitInScoreAndParts(), 1);
    EXPECT_EQ(record.parts, "012");
    EXPECT_EQ(record.hooks, "pp") << "once in each part";
    // The score, the first part and the second are each refused in turn.
    for (u64 nth = 1; nth <= 3; ++nth) {
        RefuseOnly(HostCall::kSaveEData, nth);
        EXPECT_EQ(ErrorOf(record.CommitInScoreAndParts()), kSaveRefused) << nth;
        EXPECT_EQ(host.Score().currentPart, 0);
    }

    Refuse(HostCall::kSetCurrentPartID);
    EXPECT_EQ(record.CommitInScoreAndParts(), 0);
    host.Score().currentPart = 2;
    EXPECT_EQ(record.CommitInScoreFirst() + record.DeleteAndRecreateInScore(), 0);
    RefuseOnly(HostCall::kSaveEData, 1);
    EXPECT_EQ(ErrorOf(record.CommitInScoreFirst()), kSaveRefused);
    record.parts.clear();
    record.hooks.clear();
    EXPECT_EQ(record.CommitInScoreFirst(), 1);
    EXPECT_EQ(record.parts, "02");
    EXPECT_EQ(record.hooks, "s");
    EXPECT_EQ(record.DeleteAndRecreateInScore(), 1);
    EXPECT_EQ(host.Score().currentPart, 2);
    EXPECT_EQ(Marks(1), "p");
    host.Score().currentPart = 0;
    record.parts.clear();
    EXPECT_EQ(record.CommitInScoreFirst(), 1);
    EXPECT_EQ(record.parts, "0") << "once where the score is shown";
}

}  // namespace
}  // namespace standin
