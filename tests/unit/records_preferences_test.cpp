// Preferences that are assembled from option records, and those in an order of their own.
#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

#include "Class Files/score/AssembledPreference.h"
#include "Class Files/score/EnigmaRecords.h"
#include "Class Files/score/HostRecordCalls.h"
#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace {

using standin::App;
using standin::Bytes;
using standin::HostCall;
using standin::RecordKey;
using Words = std::array<u16, 6>;

class Preferences : public testing::Test {
protected:
    ~Preferences() override { EXPECT_EQ(TakePendingError(), ""); }

    void PutOption(u32 tag, u16 cmper, u16 inci, const Words& words) {
        for (u16 before = 0; before < inci; ++before) {
            if (host.Score().Records().Find(tag, RecordKey::Other(cmper, before)) == nullptr) {
                host.Score().Records().Create(tag, RecordKey::Other(cmper, before),
                                              standin::BytesOf(Words{}));
            }
        }
        host.Score().Records().Create(tag, RecordKey::Other(cmper, inci), standin::BytesOf(words));
    }
    Words Option(u32 tag, u16 cmper, u16 inci) {
        const Bytes* stored = host.Score().Records().Find(tag, RecordKey::Other(cmper, inci));
        EXPECT_NE(stored, nullptr);
        return stored == nullptr ? Words{} : standin::FromBytes<Words>(*stored);
    }

    standin::StandIn host;
};

TEST_F(Preferences, EachHasTheSizeOfItsFields) {
    const std::pair<const char*, u32> sizes[] = {
        {"pf05", 24}, {"pfDP", 72}, {"pfMS", 106}, {"pfSI", 54}};
    App().ResetCounts();
    for (const auto& [name, size] : sizes) {
        const u32 tag = (u32{static_cast<u8>(name[0])} << 24U) |
                        (u32{static_cast<u8>(name[1])} << 16U) |
                        (u32{static_cast<u8>(name[2])} << 8U) | static_cast<u8>(name[3]);
        const u16 key = 0;
        u32 measured = 0;
        EXPECT_EQ(LoadHostRecord(tag, &key, nullptr, &measured, kInterfaceVersion), 1);
        EXPECT_EQ(measured, size) << name;
    }
    EXPECT_EQ(App().calls.Total(), 0U) << "without a buffer the record is only measured";
}

TEST_F(Preferences, EachOptionRecordIsLoadedOnce) {
    App().ResetCounts();
    FinPIMiscDocPrefs prefs;
    EXPECT_EQ(prefs.Load(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 23U);
    // What does not load gives zeros, and no error.
    EXPECT_EQ(std::count(std::begin(prefs.opaque0), std::end(prefs.opaque0), 0), 46);
}

TEST_F(Preferences, FieldsComeFromTheirWords) {
    PutOption(HostTag("otOB"), 0, 0, {10, 11, 12, 5, 14, 15});
    PutOption(HostTag("otOu"), 0, 1, {0, 0, 22, 23, 0, 25});
    PutOption(HostTag("otPG"), 65534, 0, {0, 0, 0, 77, 0, 0});
    PutOption(HostTag("otOq"), 0, 16, {0x1111, 0x2222, 0, 0, 0, 0});
    FinPIMiscDocPrefs prefs;
    ASSERT_EQ(prefs.Load(), 1);
    EXPECT_EQ(prefs.commonTime, 22);
    EXPECT_EQ(prefs.cutTime, 23);
    EXPECT_EQ(prefs.specialPartExtractionList, 77);
    const auto* bytes = static_cast<const u8*>(prefs.GetData());
    const auto word = [bytes](std::size_t offset) {
        return bytes[offset] | bytes[offset + 1] << 8;
    };
    EXPECT_EQ(word(2), 10);
    EXPECT_EQ(word(10), 15);
    EXPECT_EQ(word(12), 0) << "the logical not of 5";
    EXPECT_EQ(word(56), 0x1111);
    EXPECT_EQ(word(58), 0x2222) << "of long fields, the low half comes first";
    EXPECT_EQ(word(104), 25);
}

TEST_F(Preferences, OnlyTheOptionRecordThatChangedIsSaved) {
    const Words before{10, 11, 12, 5, 14, 15};
    PutOption(HostTag("otOB"), 0, 0, before);
    PutOption(HostTag("otOu"), 0, 1, {0, 0, 1, 1, 0, 0});
    FinPIMiscDocPrefs prefs;
    ASSERT_EQ(prefs.Load(), 1);
    App().ResetCounts();
    EXPECT_EQ(prefs.Save(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kSaveEData), 0U) << "nothing changed";

    u16 changed = 1;
    std::memcpy(prefs.opaque0 + 12, &changed, sizeof changed);
    EXPECT_EQ(prefs.Save(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kSaveEData), 1U);
    EXPECT_EQ(Option(HostTag("otOB"), 0, 0), (Words{10, 11, 12, 0, 14, 15}));

    // Nothing is written for an option record that did not load.
    prefs.specialPartExtractionList = 3;
    EXPECT_EQ(prefs.Save(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kSaveEData), 1U);

    changed = 9;
    std::memcpy(prefs.opaque0 + 2, &changed, sizeof changed);
    App().faults.refuseKind = standin::FaultPlan::AllOf(HostCall::kSaveEData);
    EXPECT_EQ(prefs.Save(), 0);
    EXPECT_EQ(TakePendingError(), "29996 FinPIEnigmaData::Save: pfMS");
}

TEST_F(Preferences, TablesConvertInBothDirections) {
    using Conversion = PreferenceConversion;
    const PreferenceRow rows[] = {
        {0, "5a", 2, 0, Conversion::kHighFirst},
        {4, "5a", 2, 2, Conversion::kLowFirst},
        {8, "5a", 2, 4, Conversion::kNot},
        {10, "5a", 2, 5, Conversion::kLowByte},
        {12, ":a", 0, 1},
        {14, "5a", 0, 1, Conversion::kPlain, 9},
    };
    // A tag with a digit as its third character keeps its options under item 65534.
    PutOption(HostTag("ot5a"), 65534, 2, {1, 2, 3, 4, 0, 0xFF85});
    PutOption(HostTag("ot:a"), 0, 0, {0, 50, 0, 0, 0, 0});
    PutOption(HostTag("ot5a"), 9, 0, {0, 60, 0, 0, 0, 0});
    std::array<u16, 8> fields;
    fields.fill(0xAAAA);
    u32 size = sizeof fields;
    EXPECT_EQ(LoadAssembledPreference(rows, fields.data(), &size, kInterfaceVersion), 1);
    EXPECT_EQ(size, 16U);
    EXPECT_EQ(fields, (std::array<u16, 8>{2, 1, 3, 4, 1, 0x85, 50, 60}));

    fields = {20, 10, 30, 40, 0, 0x86, 51, 61};
    EXPECT_EQ(SaveAssembledPreference(rows, fields.data(), size, kInterfaceVersion), 1);
    EXPECT_EQ(Option(HostTag("ot5a"), 65534, 2), (Words{10, 20, 30, 40, 1, 0xFF86}));
    EXPECT_EQ(Option(HostTag("ot:a"), 0, 0)[1], 51);
    EXPECT_EQ(Option(HostTag("ot5a"), 9, 0)[1], 61);

    EXPECT_EQ(SaveAssembledPreference(rows, nullptr, size, kInterfaceVersion), 0);
    EXPECT_EQ(SaveAssembledPreference(rows, fields.data(), 11, kInterfaceVersion), 0);
    EXPECT_EQ(SaveAssembledPreference({}, nullptr, 0, kInterfaceVersion), 1);
}

TEST_F(Preferences, ABufferThatIsTooSmallIsNotOverrun) {
    PutOption(HostTag("otOB"), 0, 0, {10, 11, 12, 0, 14, 15});
    std::vector<u8> buffer(13, 0xAA);  // ends inside the field at 12
    u32 size = static_cast<u32>(buffer.size());
    const u16 key = 0;
    EXPECT_EQ(LoadHostRecord(HostTag("pfMS"), &key, buffer.data(), &size, kInterfaceVersion), 1);
    EXPECT_EQ(size, 106U);
    EXPECT_EQ(buffer[2], 10);
    EXPECT_EQ(buffer[12], 0);
}

TEST_F(Preferences, AFretInstrumentThatWasHalfFilledCounts) {
    FinPIFretInstrument none(1);
    none.opaque0[0] = 9;
    EXPECT_EQ(none.Load(), 0);
    EXPECT_EQ(none.opaque0[0], 0) << "a refused load leaves no old data";
    none.opaque0[5] = 4;
    EXPECT_EQ(none.Create(), 1);
    EXPECT_EQ(FinPIFretInstrument(1).Load(), 1);
}

// Loads a preference in an order of its own; each word of the host's holds its offset + 100.
template <typename PseudoPref, typename HostPref>
void ExpectWords(const std::vector<u16>& expected) {
    PseudoPref pref;
    EXPECT_EQ(pref.Load(), 0) << "the host has none";
    HostPref stored;
    std::vector<u16> words(stored.GetDataSize() / 2);
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i] = static_cast<u16>(100 + 2 * i);
    }
    stored.SetData(words.data(), stored.GetDataSize());
    ASSERT_EQ(stored.Commit(), 1);
    ASSERT_EQ(pref.Load(), 1);
    EXPECT_EQ(std::memcmp(pref.GetData(), expected.data(), pref.GetDataSize()), 0);
    App().ResetCounts();
    EXPECT_EQ(pref.Save() + pref.Create() + pref.Delete() + pref.LoadNext(), 0);
    EXPECT_EQ(App().calls.Total(), 0U) << "they are only read";
}

TEST_F(Preferences, PseudoPreferencesAreCopiedWordByWord) {
    ExpectWords<FinPIBeamPrefs, BeamPrefsRecord>({104, 106, 112, 0, 100, 108, 110, 102});
    ExpectWords<FinPIClefPrefs, ClefPrefsRecord>({104, 106, 108, 110, 100, 102, 116, 112, 114});
    ExpectWords<FinPIStemsPrefs, StemPrefsRecord>({100, 102, 104, 106, 108, 110, 112, 114, 116});
    FinPIBeamPrefs beams;
    FinPIClefPrefs clefs;
    EXPECT_EQ(beams.Load() + clefs.Load(), 2);
    EXPECT_EQ(beams.flags, 110);
    EXPECT_EQ(clefs.changePercent, 102);
}

}  // namespace
