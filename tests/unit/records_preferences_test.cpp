// Preferences that are assembled from option records, and those in an order of their own.
#include <array>
#include <utility>
#include <vector>

#include "Class Files/score/records/AssembledPreference.h"
#include "Class Files/score/records/EnigmaRecords.h"
#include "Class Files/score/records/HostRecordCalls.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

using Words = std::array<u16, 6>;

class Preferences : public LibraryTest {
protected:
    Words Option(u32 tag, u16 cmper, u16 inci) {
        const Bytes* stored = Stored(tag, RecordKey::Other(cmper, inci));
        EXPECT_NE(stored, nullptr);
        return stored == nullptr ? Words{} : FromBytes<Words>(*stored);
    }
};

TEST_F(Preferences, SavesOnlyChangedRecords) {
    Put(HostTag("otOB"), RecordKey::Other(0), Words{10, 11, 12, 5, 14, 15});
    Put(HostTag("otOu"), RecordKey::Other(0, 1), Words{0, 0, 22, 23, 0, 25});
    App().ResetCounts();
    FinPIMiscDocPrefs prefs;
    ASSERT_EQ(prefs.Load(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 23U);
    EXPECT_EQ(prefs.commonTime + prefs.cutTime, 45);
    EXPECT_EQ(prefs.opaque0[2], 10);
    EXPECT_EQ(prefs.opaque0[12], 0) << "the logical not of 5";
    prefs.SetVersion(0x8000000);  // the first that is saved to option records
    EXPECT_EQ(prefs.Save(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kSaveEData), 0U) << "nothing changed";

    prefs.opaque0[12] = 1;
    EXPECT_EQ(prefs.Save(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kSaveEData), 1U);
    EXPECT_EQ(Option(HostTag("otOB"), 0, 0), (Words{10, 11, 12, 0, 14, 15}));

    prefs.specialPartExtractionList = 3;
    EXPECT_EQ(prefs.Save(), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kSaveEData), 1U) << "that option record did not load";

    prefs.opaque0[2] = 9;
    Refuse(HostCall::kSaveEData);
    EXPECT_EQ(ErrorOf(prefs.Save()), "29996 FinPIEnigmaData::Save: pfMS");
}

TEST_F(Preferences, TablesConvertInBothDirections) {
    using Conversion = PreferenceConversion;
    const PreferenceRow rows[] = {
        {0, "9a", 2, 0, Conversion::kHighFirst},
        {4, "9a", 2, 2, Conversion::kLowFirst},
        {8, "9a", 2, 4, Conversion::kNot},
        {10, "9a", 2, 5, Conversion::kLowByte},
        {12, ":a", 0, 1},
        {14, "5a", 0, 1, Conversion::kPlain, 9},
    };
    // A tag with a digit as its third character keeps its options under item 65534.
    Put(HostTag("ot9a"), RecordKey::Other(65534, 2), Words{1, 2, 3, 4, 0, 0xFF85});
    Put(HostTag("ot:a"), RecordKey::Other(0), Words{0, 50, 0, 0, 0, 0});
    Put(HostTag("ot5a"), RecordKey::Other(9), Words{0, 60, 0, 0, 0, 0});
    std::array<u16, 8> fields;
    fields.fill(0xAAAA);
    u32 size = sizeof fields;
    EXPECT_EQ(LoadAssembledPreference(rows, fields.data(), &size, kInterfaceVersion), 1);
    EXPECT_EQ(fields, (std::array<u16, 8>{2, 1, 3, 4, 1, 0x85, 50, 60}));

    fields = {20, 10, 30, 40, 0, 0x86, 51, 61};
    EXPECT_EQ(SaveAssembledPreference(rows, fields.data(), size, kInterfaceVersion), 1);
    EXPECT_EQ(Option(HostTag("ot9a"), 65534, 2), (Words{10, 20, 30, 40, 1, 0xFF86}));
    EXPECT_EQ(Option(HostTag("ot:a"), 0, 0)[1], 51);
    EXPECT_EQ(Option(HostTag("ot5a"), 9, 0)[1], 61);

    EXPECT_EQ(SaveAssembledPreference(rows, fields.data(), 11, kInterfaceVersion), 0);
    EXPECT_EQ(SaveAssembledPreference(rows, fields.data(), 12, kInterfaceVersion), 1);
    EXPECT_EQ(SaveAssembledPreference({}, nullptr, 0, kInterfaceVersion), 1);
}

TEST_F(Preferences, SmallBufferIsNotOverrun) {
    Put(HostTag("otOB"), RecordKey::Other(0), Words{10, 11, 12, 0, 14, 15});
    std::vector<u8> buffer(13, 0xAA);  // ends inside the field at 12
    u32 size = static_cast<u32>(buffer.size());
    const u16 key = 0;
    EXPECT_EQ(LoadHostRecord(HostTag("pfMS"), &key, buffer.data(), &size, kInterfaceVersion), 1);
    EXPECT_EQ(buffer[12], 0);
    EXPECT_EQ(LoadHostRecord(HostTag("pfMS"), &key, nullptr, &size, kInterfaceVersion), 1);
    EXPECT_EQ(size, 106U) << "without a buffer the record is only measured";
}

// Pairs of byte offsets: of a word in the preferences, and in the host's record of the same tag.
using PseudoWords = std::vector<std::pair<std::size_t, std::size_t>>;

template <typename Prefs>
void ExpectWords(StandIn& host, std::size_t hostSize, const PseudoWords& expected) {
    Prefs prefs = [] {
        const OtherDocument other;
        return Prefs{};
    }();
    Bytes stored(hostSize, '\0');
    for (std::size_t i = 0; i < hostSize; ++i) {
        stored[i] = static_cast<char>(i + 1);
    }
    host.Score().Records().Exchange(prefs.Tag(), RecordKey::Preference(0), stored);
    ASSERT_EQ(prefs.Load(), 1);
    EXPECT_EQ(prefs.DocumentID(), host.Score().Number());
    Bytes wanted(prefs.GetDataSize(), '\0');
    for (const auto& [offset, hostOffset] : expected) {
        wanted.replace(offset, 2, stored, hostOffset, 2);
    }
    EXPECT_EQ(Bytes(static_cast<const char*>(prefs.GetData()), prefs.GetDataSize()), wanted);
}

TEST_F(Preferences, ReorderedWordsComeFromHost) {
    ExpectWords<FinPIBeamPrefs>(host, 14,
                                {{0, 4}, {2, 6}, {4, 12}, {8, 0}, {10, 8}, {12, 10}, {14, 2}});
    ExpectWords<FinPIClefPrefs>(
        host, 18, {{0, 4}, {2, 6}, {4, 8}, {6, 10}, {8, 0}, {10, 2}, {12, 16}, {14, 12}, {16, 14}});
    PseudoWords first;
    for (std::size_t offset = 0; offset < 18; offset += 2) {
        first.emplace_back(offset, offset);
    }
    ExpectWords<FinPIStemsPrefs>(host, 18, first);
}

TEST_F(Preferences, FilledFretInstrumentCountsAsLoaded) {
    FinPIFretInstrument instrument(1);
    instrument.opaque0[0] = 9;
    EXPECT_EQ(instrument.Load(), 0);
    EXPECT_EQ(instrument.opaque0[0], 0) << "no old data";
    Put(instrument.Tag(), RecordKey::Other(1), Words{7});
    Put(HostTag("otKF"), RecordKey::Other(1), Words{7});
    App().faults.failsWhenLoaded = true;
    EXPECT_EQ(instrument.Load(), 1);
    EXPECT_EQ(instrument.opaque0[0], 7);
    EXPECT_EQ(FinPIKeyFormat(1).Load(), 0) << "any other record is not";
}

}  // namespace
}  // namespace standin
