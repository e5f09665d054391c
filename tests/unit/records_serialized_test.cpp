// The serialized form of records.
#include <array>
#include <vector>

#include "Class Files/score/document/FinPIStaff.h"
#include "Class Files/score/records/EnigmaRecords.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

std::vector<u8> BlockOf(const FinPISerializableObject& object) {
    std::vector<u8> block(object.GetSerialized(nullptr, 0));
    EXPECT_EQ(object.GetSerialized(block.data(), static_cast<u32>(block.size())), block.size());
    return block;
}

i16 Read(FinPISerializableObject& object, const std::vector<u8>& block) {
    return object.PutSerialized(block.data(), static_cast<u32>(block.size()));
}

class Serialized : public LibraryTest {};

TEST_F(Serialized, BlocksAreSelfDescribing) {
    FinPIFont font;
    font.SetData("abcdef", 6);
    const u8 expected[] = {2,   0,   34,   0,   0,   0,   12, 0, 6, 0, 2, 0,  // header
                           1,   0,   6,    0,   0,   0,                       // field 1
                           'a', 'b', 'c',  'd', 'e', 'f',                     //
                           2,   0,   4,    0,   0,   0,                       // field 2
                           0,   0,   0x40, 0x1B};
    EXPECT_EQ(BlockOf(font), std::vector<u8>(std::begin(expected), std::end(expected)));
    u8 small[33] = {};
    EXPECT_EQ(font.GetSerialized(small, sizeof small), 0U);
    EXPECT_EQ(small[0], 0) << "nothing is written";
    EXPECT_EQ(font.GetField(2, 2, small, 3), 0);
    EXPECT_EQ(font.PutField(2, 2, small, 0), 1);
    EXPECT_EQ(font.Version(), 0U) << "bytes that are missing are 0";
    EXPECT_EQ(font.PutField(1, 2, nullptr, 0), 1);
    EXPECT_EQ(static_cast<const char*>(font.GetData())[0], '\0');
    font.SetData("abcdef", 6);
    const u8 withoutFields[] = {2, 0, 12, 0, 0, 0, 12, 0, 6, 0, 0, 0};
    EXPECT_EQ(font.PutSerialized(withoutFields, sizeof withoutFields), 1);
    char data[6];
    font.GetDataCopy(data, sizeof data);
    EXPECT_EQ(data[0], '\0');
}

// A record with one dependent structure, of either serial version.
struct WithDependent final : FinPIFont {
    explicit WithDependent(u16 serialVersion) : serial{serialVersion} {}
    u16 GetSerialVersion() const override { return serial; }
    i16 AcceptsSerialVersion(u16 /*olderVersion*/) const override { return acceptsOlder; }
    i16 AcceptsVersion(u32 /*version*/) const override { return acceptsVersion; }
    u32 GetSerializedDependentStruct(u16 index, u16 /*serialVersion*/, void* out,
                                     u32 size) const override {
        if (out != nullptr) {
            dependent.copy(static_cast<char*>(out), size);
        }
        return index == 2 ? 3 : 0;
    }
    i16 PutSerializedDependentStruct(u16 index, u16 /*serialVersion*/, const void* bytes,
                                     u32 size) override {
        dependent.assign(static_cast<const char*>(bytes), size);
        return index == 2;
    }
    u16 serial;
    i16 acceptsOlder = 1;
    i16 acceptsVersion = 1;
    std::string dependent = "---";
};

TEST_F(Serialized, BothVersionsHaveDependentStructures) {
    for (const u16 serial : {u16{1}, u16{2}}) {
        WithDependent written(serial);
        written.dependent = "dep";
        const std::vector<u8> block = BlockOf(written);
        WithDependent read(2);
        EXPECT_EQ(Read(read, block), 1);
        EXPECT_EQ(read.dependent, "dep");
    }
}

TEST_F(Serialized, InvalidBlocksAreRefused) {
    constexpr char kVersionError[] = "29989 FinPISerializableObject::PutSerialized";
    WithDependent object(1);
    const std::vector<u8> older = BlockOf(object);
    object.serial = 2;
    const std::vector<u8> block = BlockOf(object);
    object.acceptsOlder = 0;
    EXPECT_EQ(ErrorOf(Read(object, older)), kVersionError);
    object.acceptsVersion = 0;
    EXPECT_EQ(ErrorOf(Read(object, block)), "29988 FinPIEnigmaData::PutField");
    object.serial = 1;
    EXPECT_EQ(ErrorOf(Read(object, block)), kVersionError) << "written by a newer library";

    object = WithDependent(2);
    const u8 empty[] = {2, 0, 12, 0, 0, 0, 12, 0, 6, 0, 0, 0};
    EXPECT_EQ(object.PutSerialized(empty, sizeof empty), 1) << "a header alone is a block";
    for (std::size_t size = 0; size < block.size() - 1; ++size) {
        EXPECT_EQ(ErrorOf(object.PutSerialized(block.data(), static_cast<u32>(size))),
                  "29999 FinPISerializableObject::PutSerialized: Invalid source input.");
    }
}

TEST_F(Serialized, StaffIncludesDependentRecords) {
    FinPIStaff written(host.Staff(1));
    written.flags = StaffFlag::kShapeNotes;
    const auto dependents = [](FinPIStaff& staff) {
        return std::array<FinPIEnigmaData*, 6>{&staff.FullName(),         &staff.AbbreviatedName(),
                                               &staff.FullNamePosition(), &staff.FretInstrument(),
                                               staff.ShapeNotes()[3],     &staff.DrumStaff()};
    };
    for (char mark = 'a'; FinPIEnigmaData* const record : dependents(written)) {
        record->SetData(&mark, 1);
        ++mark;
    }
    const std::vector<u8> block = BlockOf(written);
    EXPECT_EQ(block[0], 1) << "serial version";
    EXPECT_EQ(block[10], 11) << "the staff and ten dependent records";

    FinPIStaff read(host.Staff(1));
    EXPECT_EQ(Read(read, block), 1);
    EXPECT_EQ(read.IsSame(written), 1);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(dependents(read)[i]->IsSame(*dependents(written)[i]), 1) << i;
    }
    EXPECT_EQ(read.PutSerializedDependentStruct(12, 1, block.data(), 12), 0) << "no such record";
    EXPECT_EQ(ErrorOf(read.PutSerializedDependentStruct(2, 1, block.data(), 4)),
              "29999 FinPISerializableObject::PutSerialized: Invalid source input.");
    ASSERT_EQ(read.Commit(), 1);
    const FinPIStaff stored(host.Staff(1));
    EXPECT_EQ(stored.fullNameText * stored.abbreviatedNameText, 2) << "the texts 1 and 2";
    EXPECT_EQ(FinPIStaff(host.Staff(1)).ShapeNotes()[3]->IsSame(*written.ShapeNotes()[3]), 1);
    u8 small[4];
    EXPECT_EQ(ErrorOf(written.GetField(11, 1, small, sizeof small)),
              "29999 FinPIStaff::GetField: GetSerialized failed for m_drumStaff.");
}

}  // namespace
}  // namespace standin
