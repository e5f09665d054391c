// The serialized form of records.
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "Class Files/score/EnigmaRecords.h"
#include "Class Files/score/FinPIStaff.h"
#include "Class Files/score/FinPITextExpression.h"
#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace {

std::vector<u8> BlockOf(const FinPISerializableObject& object) {
    std::vector<u8> block(object.GetSerialized(nullptr, 0));
    EXPECT_EQ(object.GetSerialized(block.data(), static_cast<u32>(block.size())), block.size());
    return block;
}

i16 Put(FinPISerializableObject& object, const std::vector<u8>& block) {
    return object.PutSerialized(block.data(), static_cast<u32>(block.size()));
}

class Serialized : public testing::Test {
protected:
    ~Serialized() override { EXPECT_EQ(TakePendingError(), ""); }
    standin::StandIn host;
};

TEST_F(Serialized, BlocksAreLittleEndianAndSelfDescribing) {
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
}

TEST_F(Serialized, OddSizesArePadded) {
    FinPITextExpression text(1);
    text.SetData(std::string(41, 'x').data(), 41);
    const std::vector<u8> block = BlockOf(text);
    EXPECT_EQ(block.size(), 12U + 6 + 42 + 6 + 4);
    FinPITextExpression read(1);
    EXPECT_EQ(Put(read, block), 1);
    EXPECT_EQ(read.GetDataSize(), 41U);
    EXPECT_EQ(read.IsSame(text), 1);
}

// A record with one dependent structure, of either serial version.
struct WithDependent final : FinPIFont {
    explicit WithDependent(u16 serialVersion) : serial{serialVersion} {}
    u16 GetSerialVersion() const override { return serial; }
    i16 AcceptsSerialVersion(u16 /*olderVersion*/) const override { return acceptsOlder; }
    i16 AcceptsVersion(u32 /*version*/) const override { return acceptsVersion; }
    u32 GetSerializedDependentStruct(u16 index, u16 /*serialVersion*/, void* out,
                                     u32 size) const override {
        if (index != 2) {
            return 0;
        }
        if (out != nullptr && size >= 3) {
            std::memcpy(out, dependent.data(), 3);
        }
        return 3;
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

TEST_F(Serialized, DependentStructuresFollowInBothSerialVersions) {
    for (const u16 serial : {u16{1}, u16{2}}) {
        WithDependent written(serial);
        written.dependent = "dep";
        const std::vector<u8> block = BlockOf(written);
        EXPECT_EQ(block[10], serial == 1 ? 2 : 3) << "version 1 has no field for the data version";
        WithDependent read(2);
        EXPECT_EQ(Put(read, block), 1);
        EXPECT_EQ(read.dependent, "dep");
    }
}

TEST_F(Serialized, BlocksThatCannotBeReadAreRefused) {
    constexpr char kVersionError[] = "29989 FinPISerializableObject::PutSerialized";
    WithDependent object(1);
    const std::vector<u8> older = BlockOf(object);
    object.serial = 2;
    std::vector<u8> block = BlockOf(object);

    object.acceptsOlder = 0;
    EXPECT_EQ(Put(object, older), 0);
    EXPECT_EQ(TakePendingError(), kVersionError);
    object.serial = 1;
    EXPECT_EQ(Put(object, block), 0) << "written by a newer library";
    EXPECT_EQ(TakePendingError(), kVersionError);
    object.serial = 2;
    object.acceptsVersion = 0;
    EXPECT_EQ(Put(object, block), 0);
    EXPECT_EQ(TakePendingError(), "29988 FinPIEnigmaData::PutField");
    object.acceptsVersion = 1;
    EXPECT_EQ(Put(object, block), 1);

    for (std::size_t size = 0; size < block.size() - 1; ++size) {
        EXPECT_EQ(object.PutSerialized(block.data(), static_cast<u32>(size)), 0) << size;
        EXPECT_EQ(TakePendingError(),
                  "29999 FinPISerializableObject::PutSerialized: Invalid source input.");
    }
}

TEST_F(Serialized, AStaffCarriesItsDependentRecords) {
    FinPIStaff written(host.Staff(1));
    written.flags = StaffFlag::kShapeNotes;
    written.FullName().SetData("full", 4);
    written.AbbreviatedName().SetData("abbr", 4);
    written.FullNamePosition().SetData("pos", 3);
    written.FretInstrument().SetData("fret", 4);
    written.ShapeNotes()[3]->SetData("quarter", 7);
    written.DrumStaff().SetData("drum", 4);
    const std::vector<u8> block = BlockOf(written);
    EXPECT_EQ(block[0], 1) << "serial version";
    EXPECT_EQ(block[10], 11) << "the staff and ten dependent records";

    FinPIStaff read(host.Staff(1));
    EXPECT_EQ(Put(read, block), 1);
    EXPECT_EQ(read.IsSame(written), 1);
    EXPECT_EQ(read.FullName().IsSame(written.FullName()), 1);
    EXPECT_EQ(read.AbbreviatedName().IsSame(written.AbbreviatedName()), 1);
    EXPECT_EQ(read.FullNamePosition().IsSame(written.FullNamePosition()), 1);
    EXPECT_EQ(read.FretInstrument().IsSame(written.FretInstrument()), 1);
    EXPECT_EQ(read.ShapeNotes()[3]->IsSame(*written.ShapeNotes()[3]), 1);
    EXPECT_EQ(read.DrumStaff().IsSame(written.DrumStaff()), 1);

    u8 small[4];
    EXPECT_EQ(written.GetField(11, 1, small, sizeof small), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 FinPIStaff::GetField: GetSerialized failed for m_drumStaff.");
    EXPECT_EQ(written.GetField(4, 1, small, sizeof small), 0);
    EXPECT_EQ(TakePendingError(), "29999 FinPIStaff::GetField: GetSerialized failed for fieldID 4");
}

}  // namespace
