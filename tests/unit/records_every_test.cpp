// Tests for every row of the table of record classes: a record is created, loaded, walked, changed
// and deleted in the host, and written to blocks of both serial versions.
#include <array>
#include <cstring>
#include <vector>

#include "Class Files/score/records/AssembledPreference.h"
#include "Class Files/score/records/EnigmaRecords.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

constexpr u16 kItem = 5;

// --- The lines of the table, as types.

struct NoRecord;

template <typename First, typename... Records>
struct TypesAfter {
    using Types = testing::Types<Records...>;
};

#define ENIGMA_RECORD(family, record, ...) , record
using EveryLine = TypesAfter<NoRecord
#include "Class Files/score/records/EnigmaRecords.inc"
                             >::Types;
#undef ENIGMA_RECORD

// --- A record of a line: the numbers it is given, and content that the host can keep.

template <typename Record>
constexpr bool kIsPseudo = std::is_base_of_v<FinPIPseudoPref, Record>;
template <typename Record>
constexpr bool kIsVarLen = std::is_base_of_v<FinPIEnigmaVarLen, Record>;

template <typename Record>
Record Make() {
    if constexpr (kIsPseudo<Record>) {
        return Record();
    } else if constexpr (std::is_base_of_v<FinPIDetail, Record>) {
        if constexpr (std::is_constructible_v<Record, u16, u16>) {
            return Record(kItem, u16{1});
        } else {
            return Record(HostTag("dtXX"), kItem, u16{1}, u16{0});
        }
    } else if constexpr (std::is_constructible_v<Record, u16>) {
        return Record(kItem);
    } else {
        return Record(HostTag("otXX"), kItem, kIsVarLen<Record> ? u16{0xFFFF} : u16{0});
    }
}

// Made while another document is current.
template <typename Record>
Record MakeElsewhere() {
    const OtherDocument other;
    return Make<Record>();
}

// Words that are each 0 or 1, because the composite preferences store some as yes or no.
template <typename Record>
std::vector<u8> Content(const Record& record, u16 word) {
    std::vector<u8> content(record.GetDataSize() + (kIsVarLen<Record> ? 11 : 0));
    for (std::size_t i = 0; i + 1 < content.size(); i += 2) {
        std::memcpy(&content[i], &word, sizeof(word));
    }
    return content;
}

template <typename Record>
void Fill(Record& record, const std::vector<u8>& content) {
    record.SetData(content.data(), static_cast<u32>(content.size()));
}

template <typename Record>
std::vector<u8> DataOf(const Record& record) {
    const auto* const bytes = static_cast<const u8*>(record.GetData());
    return {bytes, bytes + record.GetDataSize()};
}

template <typename Record>
class EveryRecord : public LibraryTest {
protected:
    // Preferences exist without being created, and so do the option records of assembled
    // preferences.
    EveryRecord() {
        const Record record = Make<Record>();
        if (const PreferenceTable* rows = FindPreferenceTable(record.Tag())) {
            for (const PreferenceRow& row : *rows) {
                const u32 tag = HostTag({'o', 't', row.option[0], row.option[1], '\0'});
                Put(tag, RecordKey::Other(row.cmper, row.inci), std::array<u16, 6>{});
            }
        } else if (FamilyOf(record.Tag()) == RecordFamily::kPreference) {
            host.Score().Records().Save(record.Tag(), RecordKey::Preference(kItem),
                                        Bytes(record.GetDataSize(), '\0'));
        }
    }
};

TYPED_TEST_SUITE(EveryRecord, EveryLine);

EnigmaKey KeyOf(const FinPIEnigmaData& record) {
    EnigmaKey key{};
    record.GetKey(key);
    return key;
}

// Whether the walk over all records of the tag meets one with this record's key.
template <typename Record>
bool WalkMeets(const Record& record) {
    Record walker = Make<Record>();
    for (walker.Rewind(); walker.LoadNext() != 0;) {
        if (KeyOf(walker) == KeyOf(record)) {
            return true;
        }
    }
    EXPECT_EQ(walker.IsNull(), 1) << "a walk that ended addresses nothing";
    return false;
}

TYPED_TEST(EveryRecord, IsStoredFoundChangedAndDeleted) {
    if constexpr (!kIsPseudo<TypeParam>) {
        const bool isAssembled = FindPreferenceTable(Make<TypeParam>().Tag()) != nullptr;
        for (const u16 word : {u16{1}, u16{0}, u16{1}}) {
            TypeParam stored = Make<TypeParam>();
            stored.Load();
            stored.SetKeepWhenEmpty(true);
            const std::vector<u8> content = Content(stored, word);
            Fill(stored, content);
            ASSERT_EQ(stored.Commit(), 1);
            auto found = MakeElsewhere<TypeParam>();
            ASSERT_EQ(found.Load(), 1);
            EXPECT_EQ(found.DocumentID(), App().CurrentNumber()) << "where it was loaded";
            EXPECT_EQ(DataOf(found), content);
            EXPECT_EQ(found.IsSame(stored), 1);
            EXPECT_EQ(WalkMeets(found), !isAssembled) << "composite records have no walk";
        }
        TypeParam last = Make<TypeParam>();
        if (!isAssembled) {
            EXPECT_EQ(last.LoadLastInci(), 1);
            EXPECT_EQ(last.GetCmper1(), kItem);
        }
        TypeParam gone = Make<TypeParam>();
        App().ResetCounts();
        if constexpr (std::is_base_of_v<FinPIEnigmaPref, TypeParam>) {
            EXPECT_EQ(ErrorOf(gone.Delete()),
                      "29999 FinPIEnigmaPref::Delete: An Enigma Pref cannot be deleted.");
            EXPECT_EQ(ErrorOf(gone.Create()),
                      "29999 FinPIEnigmaPref::Create: An Enigma Pref cannot be created.");
            EXPECT_EQ(App().calls.Total(), 0U);
        } else if (std::is_same_v<TypeParam, FinPIPartPrefs>) {
            EXPECT_EQ(gone.Delete(), 0) << "the host keeps preferences";
        } else {
            EXPECT_EQ(gone.Delete(), 1);
            EXPECT_EQ(gone.IsNull(), 1);
            EXPECT_EQ(Make<TypeParam>().Load(), 0);
            EXPECT_FALSE(WalkMeets(Make<TypeParam>()));
        }
    }
}

TYPED_TEST(EveryRecord, IsKnownByItsKey) {
    TypeParam record = Make<TypeParam>();
    TypeParam other = Make<TypeParam>();
    other.NextCmper1();
    EXPECT_EQ(other.GetCmper1() == record.GetCmper1(), (std::is_base_of_v<FinPIDetail, TypeParam>))
        << "of a detail, the item is the pair of numbers";
    EXPECT_EQ(record.IsSameKey(other), kIsPseudo<TypeParam> ? 1 : 0);
    other.SetKey(KeyOf(record));
    EXPECT_EQ(record.IsSameKey(other), 1);
}

// A record that writes and reads blocks of this serial version.
template <typename Record>
struct OfSerial final : Record {
    using Record::Record;
    u16 GetSerialVersion() const override { return serial; }
    u16 serial = 2;
};

TYPED_TEST(EveryRecord, IsWrittenAndReadInBothSerialVersions) {
    for (const u16 serial : {u16{1}, u16{2}}) {
        auto written = Make<OfSerial<TypeParam>>();
        written.serial = serial;
        Fill(written, Content(written, 0x1234));
        std::vector<u8> block(written.GetSerialized(nullptr, 0));
        const auto size = static_cast<u32>(block.size());
        const std::size_t data = (written.GetDataSize() + 1) / 2 * 2;
        EXPECT_EQ(size, 12 + 6 + data + (serial == 2 ? 6 + 4 : 0));
        EXPECT_EQ(written.GetSerialized(block.data(), size), size);

        auto read = Make<OfSerial<TypeParam>>();
        read.SetVersion(1);
        EXPECT_EQ(read.PutSerialized(block.data(), size), 1);
        EXPECT_EQ(DataOf(read), DataOf(written));
        EXPECT_EQ(read.Version(), serial == 2 ? written.Version() : 1);
        EXPECT_TRUE(read.WasFilledFromCopy());
        EXPECT_EQ(read.IsLoaded(), 0);
        read.Reset(0);
        EXPECT_EQ(read.GetDataSize(), Make<TypeParam>().GetDataSize());
        const bool keepsData = std::is_same_v<TypeParam, FinPIGfhold>;
        EXPECT_EQ(DataOf(read) == std::vector<u8>(read.GetDataSize()), !keepsData);
    }
}

}  // namespace
}  // namespace standin
