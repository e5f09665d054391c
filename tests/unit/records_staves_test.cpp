// Staves with the records that depend on them, and the clefs in effect.
#include <gtest/gtest.h>
#include <string>

#include "Class Files/score/FinPIStaff.h"
#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace {

using standin::App;
using standin::BytesOf;
using standin::HostCall;
using standin::RecordKey;

class Staves : public testing::Test {
protected:
    ~Staves() override { EXPECT_EQ(TakePendingError(), ""); }

    u16 Number() const { return host.Staff(1); }
    EDTStaffSpec2014 Stored() {
        const standin::Bytes* bytes =
            host.Score().Records().Find(HostTag("SOIS"), RecordKey::Other(Number()));
        return bytes == nullptr ? EDTStaffSpec2014{} : standin::FromBytes<EDTStaffSpec2014>(*bytes);
    }
    std::size_t Count(u32 tag) { return host.Score().Records().OfTag(tag).size(); }
    void AddClef(u16 measure, EDTClefExtra clef) {
        host.Score().Records().Create(HostTag("otCE"), RecordKey::Other(measure, 0xFFFF),
                                      BytesOf(clef));
    }

    standin::StandIn host{2, 3};
};

TEST_F(Staves, AStaffAtAMeasureIsReadOnly) {
    FinPIStaff staff(Number(), 2, 0x12345);
    EXPECT_EQ(staff.Tag(), HostTag("SOSC"));
    EXPECT_FALSE(staff.IsRealStaff());
    EXPECT_EQ(staff.IsLoaded(), 1);
    EnigmaKey key{};
    EXPECT_EQ(staff.GetKey(key), 8);
    EXPECT_EQ(key, (EnigmaKey{Number(), 2, 0x2345, 1}));
    staff.SetKey({Number(), 3, 7, 2});
    staff.GetKey(key);
    EXPECT_EQ(key, (EnigmaKey{Number(), 3, 7, 2}));

    App().ResetCounts();
    EXPECT_EQ(staff.Commit(), 0);
    EXPECT_EQ(TakePendingError(), "29999 FinPIStaff::Commit: Cannot modify a virtual staff.");
    EXPECT_EQ(App().calls.Total(), 0U);

    EXPECT_EQ(FinPIStaff(99).IsLoaded(), 0);
    EXPECT_EQ(TakePendingError(), "29998 FinPIStaff::FinPIStaff: SOIS");
    EXPECT_EQ(FinPIStaff(99, 1).IsLoaded(), 0);
    EXPECT_EQ(TakePendingError(), "29998 FinPIStaff::FinPIStaff: SOSC");
}

TEST_F(Staves, CommitsSaveTheRecordsThatDepend) {
    FinPIStaff staff(Number());
    staff.flags |= StaffFlag::kFretInstrument | StaffFlag::kShapeNotes;
    staff.FullName().SetData("Flute", 5);
    staff.FullNamePosition().SetData("p", 1);
    staff.FretInstrument().SetCmpers(3);
    staff.FretInstrument().SetData("f", 1);
    staff.ShapeNotes()[2]->SetData("s", 1);
    staff.SetCommitNameTexts(true);
    staff.SetCommitShapeNotes(true);
    ASSERT_EQ(staff.Commit(), 1);

    EXPECT_EQ(Stored().fretInstrument, 3);
    EXPECT_NE(Stored().fullNameText, 0);
    EXPECT_EQ(Stored().abbreviatedNameText, 0) << "a text without data";
    FinPIStaff read(Number());
    EXPECT_EQ(read.FullName().IsSame(staff.FullName()), 1);
    EXPECT_EQ(read.FullNamePosition().IsSame(staff.FullNamePosition()), 1);
    EXPECT_EQ(read.FretInstrument().IsSame(staff.FretInstrument()), 1);
    EXPECT_EQ(read.ShapeNotes()[2]->IsSame(*staff.ShapeNotes()[2]), 1);
    EXPECT_EQ(read.ShapeNotes()[0]->IsLoaded(), 0);

    // Without their flags, the fret instrument is no longer referred to and the shape notes go.
    read.flags = 0;
    ASSERT_EQ(read.Commit(), 1);
    EXPECT_EQ(Stored().fretInstrument, 0);
    EXPECT_EQ(Count(HostTag("D\x15NI")), 0U);
    EXPECT_NE(Stored().fullNameText, 0) << "name texts that are not to be saved stay";
}

TEST_F(Staves, FlagsWithoutTheirRecordsAreCleared) {
    FinPIStaff staff(Number());
    staff.flags |= StaffFlag::kFretInstrument | StaffFlag::kShapeNotes | 1U;
    staff.fretInstrument = 8;
    staff.SetCommitShapeNotes(true);
    ASSERT_EQ(staff.Commit(), 1);
    EXPECT_EQ(Stored().flags, 1);
    EXPECT_EQ(Stored().fretInstrument, 0);
}

TEST_F(Staves, ANameTextThatIsMissingFailsTheLoad) {
    FinPIStaff staff(Number());
    staff.fullNameText = 12;
    ASSERT_EQ(staff.Commit(), 1);
    FinPIStaff read(Number());
    EXPECT_EQ(TakePendingError(), "29998 FinPIStaff::FinPIStaff: SOIS");
    EXPECT_EQ(read.IsLoaded(), 1);
}

TEST_F(Staves, TheFirstFailureEndsACommit) {
    FinPIStaff staff(Number());
    staff.flags |= 1U;
    staff.FullNamePosition().SetData("p", 1);
    App().faults.refuseKind = standin::FaultPlan::AllOf(HostCall::kSaveEData);
    EXPECT_EQ(staff.Commit(), 0);
    EXPECT_EQ(TakePendingError(), "29996 FinPIEnigmaData::Save: SOIS");
    EXPECT_EQ(Count(HostTag("otNS")), 0U);
}

struct ClefCase {
    const char* name;
    i16 measure;
    u32 position;
    i16 clef;
    u16 percent;
};

TEST_F(Staves, TheClefInEffectIsTheLastBeforeThePlace) {
    const u16 other = host.Staff(2);
    AddClef(1, {1, Number(), 0, {}});
    AddClef(1, {9, other, 0, {}});
    AddClef(2, {3, Number(), 2048, {}});
    AddClef(2, {8, other, 1024, {}});
    ClefPrefsRecord prefs;
    prefs.words[1] = 75;
    ASSERT_EQ(prefs.Commit(), 1);
    const ClefCase cases[] = {
        {"AtItsPlace", 1, 0, 1, 100},
        {"StillBefore", 2, 2047, 1, 100},
        {"AtTheChange", 2, 2048, 3, 75},
        {"NextMeasure", 3, 0, 3, 75},
    };
    for (const ClefCase& c : cases) {
        u16 percent = 0;
        EXPECT_EQ(FinPIStaff(Number(), c.measure, c.position).CurrClef(&percent), c.clef) << c.name;
        EXPECT_EQ(percent, c.percent) << c.name;
    }
}

TEST_F(Staves, ATransposingStaffMayShowAClefOfItsOwn) {
    FinPIStaff staff(Number(), 1);
    EXPECT_EQ(staff.CurrClef(nullptr), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 short __cdecl FinPIStaff::CurrClef(unsigned short *const ) const: "
              "LoadEffectiveAt() failed to find a clef.");
    EDTPartPrefs inPart{};
    inPart.part = 1;
    host.Score().Records().Save(HostTag("pfPG"), RecordKey::Preference(0xFFFE), BytesOf(inPart));
    staff.transposition = 0x8000;
    staff.transpositionClef = 6;
    EXPECT_EQ(staff.CurrClef(nullptr), 6);
}

}  // namespace
