// Staves with the records that depend on them, and the clefs in effect.
#include <tuple>

#include "Class Files/score/document/FinPIStaff.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

class Staves : public LibraryTest {
protected:
    Staves() : LibraryTest{2, 3} {}

    u16 Number() const { return host.Staff(1); }
    EDTStaffSpec2014 StoredStaff() {
        const Bytes* bytes = Stored(HostTag("SOIS"), RecordKey::Other(Number()));
        return bytes == nullptr ? EDTStaffSpec2014{} : FromBytes<EDTStaffSpec2014>(*bytes);
    }
    std::size_t Count(u32 tag) { return host.Score().Records().OfTag(tag).size(); }
};

TEST_F(Staves, StaffAtMeasureIsReadOnly) {
    FinPIStaff staff(Number(), 2, 0x12345);
    EnigmaKey key{};
    EXPECT_EQ(staff.GetKey(key), 8);
    EXPECT_EQ(key, (EnigmaKey{Number(), 2, 0x2345, 1}));
    FinPIStaff(Number(), 1, 0x12345).GetKey(key);
    EXPECT_EQ(key, (EnigmaKey{Number(), 1, 0x2345, 1}));
    staff.SetKey({Number(), 3, 7, 2});
    staff.GetKey(key);
    EXPECT_EQ(key, (EnigmaKey{Number(), 3, 7, 2}));
    EXPECT_EQ(ErrorOf(staff.Commit()), "29999 FinPIStaff::Commit: Cannot modify a virtual staff.");
    EXPECT_EQ(ErrorOf(FinPIStaff(99).IsLoaded()), "29998 FinPIStaff::FinPIStaff: SOIS");
    EXPECT_EQ(ErrorOf(FinPIStaff(99, 1).IsLoaded()), "29998 FinPIStaff::FinPIStaff: SOSC");
    FinPIStaff walker(Number());
    EXPECT_EQ(walker.LoadNext(), 1);
    EXPECT_EQ(walker.GetCmper1(), host.Staff(2)) << "the general staff's key is its number";
}

TEST_F(Staves, CommitSavesDependentRecords) {
    FinPIStaff staff(Number());
    EXPECT_EQ(staff.FullName().Inci() + staff.AbbreviatedName().Inci(), 0)
        << "as the host keeps them";
    staff.flags |= StaffFlag::kFretInstrument | StaffFlag::kShapeNotes;
    staff.FullName().SetData("Flute", 5);
    staff.FullNamePosition().SetData("p", 1);
    staff.AbbreviatedNamePosition().SetData("a", 1);
    staff.FretInstrument().SetCmpers(3);
    staff.FretInstrument().SetData("f", 1);
    staff.ShapeNotes()[2]->SetData("s", 1);
    staff.SetCommitNameTexts(true);
    staff.SetCommitShapeNotes(true);
    {
        const OtherDocument other;
        EXPECT_TRUE(ErrorOf(staff.Commit()).starts_with("29999 FinPIStaff::Commit: Attempted"));
    }
    ASSERT_EQ(staff.Commit(), 1);

    EXPECT_EQ(StoredStaff().fretInstrument, 3);
    EXPECT_EQ(StoredStaff().abbreviatedNameText, 0) << "a text without data";
    FinPIStaff read(Number());
    EXPECT_EQ(read.FullName().IsSame(staff.FullName()), 1);
    EXPECT_EQ(read.FullNamePosition().IsSame(staff.FullNamePosition()), 1);
    EXPECT_EQ(read.AbbreviatedNamePosition().IsSame(staff.AbbreviatedNamePosition()), 1);
    EXPECT_EQ(read.FretInstrument().IsSame(staff.FretInstrument()), 1);
    EXPECT_EQ(read.ShapeNotes()[2]->IsSame(*staff.ShapeNotes()[2]), 1);
    EXPECT_NE(Stored(HostTag("D\x15NI"), RecordKey::Detail(Number(), 2)), nullptr) << "half notes";
    staff.SetCommitShapeNotes(false);
    staff.ShapeNotes()[2]->SetData("t", 1);
    ASSERT_EQ(staff.Commit(), 1);
    EXPECT_EQ(FinPIStaff(Number()).ShapeNotes()[2]->IsSame(*read.ShapeNotes()[2]), 1)
        << "not to be saved";
    auto plain = StoredStaff();
    plain.flags = 0;
    plain.fretInstrument = 77;
    Put(staff.Tag(), RecordKey::Other(Number()), plain);
    Put(staff.DrumStaff().Tag(), RecordKey::Other(Number()), std::array<u16, 6>{5});
    EXPECT_EQ(FinPIStaff(Number()).ShapeNotes()[2]->IsLoaded(), 0) << "not in use, nor is the fret";
    EXPECT_EQ(FinPIStaff(Number()).DrumStaff().IsLoaded(), 1);

    // Without their flags, the fret instrument is no longer referred to and the shape notes go.
    read.flags = 0;
    ASSERT_EQ(read.Commit(), 1);
    EXPECT_EQ(StoredStaff().fretInstrument, 0);
    EXPECT_EQ(Count(HostTag("D\x15NI")), 0U);
    EXPECT_NE(StoredStaff().fullNameText, 0) << "name texts that are not to be saved stay";
    staff.flags = 0;
    EXPECT_EQ(staff.Commit(), 1) << "shape notes that are gone already";
}

TEST_F(Staves, ClearFlagsWithoutRecords) {
    FinPIStaff staff(Number());
    staff.ClearData();
    staff.flags = StaffFlag::kFretInstrument | StaffFlag::kShapeNotes;
    staff.SetCommitShapeNotes(true);
    ASSERT_EQ(staff.Commit(), 1);
    EXPECT_EQ(StoredStaff().flags, 0);
    EXPECT_EQ(StoredStaff().fretInstrument, 0);
    EXPECT_EQ(Count(HostTag("SOIS")), 2U) << "no staff goes with its last flag";
}

TEST_F(Staves, EachHasItsFretInstrument) {
    for (const i16 slot : {i16{1}, i16{2}}) {
        FinPIStaff staff(host.Staff(slot));
        staff.flags |= StaffFlag::kFretInstrument;
        staff.FretInstrument().SetData("f", 1);
        ASSERT_EQ(staff.Commit(), 1);
        EXPECT_EQ(staff.fretInstrument, slot);
    }
    EXPECT_EQ(Count(FinPIFretInstrument(0).Tag()), 2U);
}

TEST_F(Staves, FirstFailureEndsCommit) {
    FinPIStaff staff(Number());
    staff.fullNameText = 12;
    staff.FullNamePosition().SetData("p", 1);
    RefuseOnly(HostCall::kSaveEData, 1);
    EXPECT_EQ(ErrorOf(staff.Commit()), "29996 FinPIEnigmaData::Save: SOIS");
    EXPECT_EQ(Count(HostTag("otNS")), 0U);
    ASSERT_EQ(staff.Commit(), 1);
    EXPECT_EQ(FinPIStaff(Number()).IsLoaded(), 1);
    EXPECT_EQ(TakePendingError(), "29998 FinPIStaff::FinPIStaff: SOIS");
}

TEST_F(Staves, RefusedDependentRecordEndsCommit) {
    // The record, and its place among those created; in the end the others are there already.
    const std::pair<u64, const char*> refusals[] = {
        {1, "txbl"}, {2, "O\25fI"}, {3, "otNS"}, {2, "D\25NI"}};
    for (const auto& [nth, tag] : refusals) {
        FinPIStaff staff(Number());
        staff.flags |= StaffFlag::kFretInstrument | StaffFlag::kShapeNotes;
        staff.FullName().SetData("n", 1);
        staff.FullNamePosition().SetData("p", 1);
        staff.FretInstrument().SetData("f", 1);
        staff.ShapeNotes()[0]->SetData("s", 1);
        staff.SetCommitNameTexts(true);
        staff.SetCommitShapeNotes(true);
        RefuseOnly(HostCall::kCreateEData, nth);
        EXPECT_EQ(ErrorOf(staff.Commit()), std::string("29997 FinPIEnigmaData::Create: ") + tag);
    }
    FinPIStaff staff(Number());
    staff.ShapeNotes()[2]->SetData("s", 1);
    staff.SetCommitShapeNotes(true);
    ASSERT_EQ(staff.Commit(), 1);
    staff.flags = 0;
    Refuse(HostCall::kDeleteEData);
    EXPECT_EQ(staff.Commit(), 0) << "the shape notes are still there";
}

TEST_F(Staves, ClefInEffectIsLastBefore) {
    const u16 other = host.Staff(2);
    const std::pair<u16, EDTClefExtra> clefs[] = {
        {1, {2, Number(), 0, {}}}, {1, {1, Number(), 0, {}}},  // replaces it
        {1, {9, other, 0, {}}},    {2, {3, Number(), 2048, {}}},
        {2, {8, other, 1024, {}}}, {2, {7, Number(), 1024, {}}}};
    for (const auto& [measure, clef] : clefs) {
        host.Score().Records().Create(HostTag("otCE"), RecordKey::Other(measure, kAppend),
                                      BytesOf(clef));
    }
    ClefPrefsRecord prefs;
    prefs.words[1] = 75;
    ASSERT_EQ(prefs.Commit(), 1);
    const std::tuple<i16, u32, i16, u16> cases[] = {
        {1, 0, 1, 100}, {2, 1023, 1, 100}, {2, 2047, 7, 75}, {2, 2048, 3, 75}, {3, 0, 3, 75}};
    for (const auto& [measure, position, clef, percent] : cases) {
        u16 found = 0;
        EXPECT_EQ(FinPIStaff(Number(), measure, position).CurrClef(&found), clef) << measure;
        EXPECT_EQ(found, percent) << measure << ":" << position;
    }
    EXPECT_TRUE(ErrorOf(FinPIStaff(Number()).CurrClef(nullptr)).ends_with("find a clef."))
        << "in no measure";
    const FinPIStaff staff(Number(), 3);
    const OtherDocument another;
    EXPECT_EQ(staff.CurrClef(nullptr), 3);
}

TEST_F(Staves, TransposingStaffHasOwnClef) {
    constexpr char kNoClef[] = "LoadEffectiveAt() failed to find a clef.";
    FinPIStaff staff(Number(), 1);
    EXPECT_TRUE(ErrorOf(staff.CurrClef(nullptr)).ends_with(kNoClef));
    App().faults.pretendKind = HostCall::kPreviousEData;
    EXPECT_TRUE(ErrorOf(staff.CurrClef(nullptr)).ends_with(kNoClef))
        << "each find is the same again";
    App().faults = {};
    EDTPartPrefs inPart{};
    inPart.part = 1;
    Put(HostTag("pfPG"), RecordKey::Preference(0xFFFE), inPart);
    staff.transposition = 0x8000;
    staff.transpositionClef = 6;
    EXPECT_EQ(staff.CurrClef(nullptr), 6);
}

}  // namespace
}  // namespace standin
