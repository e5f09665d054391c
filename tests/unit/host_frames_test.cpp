// Frames on loan: what a save stores, and what it refuses.
#include "host/score/records/detail_kinds.h"
#include "shell/host/detail_flags.h"
#include "tests/unit/support/loan.h"
#include "tests/unit/support/named_cases.h"

namespace standin {
namespace {

TEST(HostFrames, EntryNumbersAreNeverReused) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4 q:d4");
    const Loan loan{host.Key(1, 1, 0)};
    ASSERT_EQ(loan.Insert(1, 2), 1);
    const u32 fresh = loan[2].entryNumber;
    ASSERT_EQ(loan.Delete(1, 2) + loan.Insert(2, 1), 2);
    EXPECT_GT(u32{loan[2].entryNumber}, fresh);
    EXPECT_EQ(FX_ReduceEntries(loan.Get(), kInterfaceVersion), 1);
    EXPECT_EQ(loan->count, 2);
}

TEST(HostFrames, DurationIsOfVoiceOne) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c5 v2{e:a4 e:b4} ge:c5 q.:d5");
    const Loan loan{host.Key(1, 1, 0)};
    EXPECT_EQ(FX_GetTGFDuration(loan.Get(), kInterfaceVersion), 2560);
}

TEST(HostFrames, DetailsFollowEntry) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4 q:d4 q:e4");
    host.Attach({1, 1, 0, 0}, kArticulation, "dot");
    const u16 slur = host.Slur({1, 1, 0, 0}, {1, 1, 0, 2});
    const u32 lost = host.EntryNumber({1, 1, 0, 0});
    const Loan loan{host.Key(1, 1, 0)};
    loan[2].flags |= DetailFlag::kLyric;        // has none
    loan[2].flags &= ~DetailFlag::kSmartShape;  // has one
    ASSERT_EQ(loan.Delete(0, 1), 1);
    loan[1].flags |= DetailFlag::kPrimaryBeamBreak;  // a flag without a record stays
    ASSERT_EQ(loan.Save(), 1);
    EXPECT_FALSE(host.Score().Records().HasDetails(lost));
    EXPECT_EQ(host.Score().HomeOf(lost).staff, 0);
    EXPECT_EQ(
        host.Entry({1, 1, 0, 1}).flags & (DetailFlag::kStored | DetailFlag::kPrimaryBeamBreak),
        DetailFlag::kSmartShape | DetailFlag::kPrimaryBeamBreak);
    EXPECT_EQ(App().calls.flagsOutOfStep, 1U);
    EXPECT_NE(host.Score().Records().Find(Tag::kSmartShape, RecordKey::Other(slur)), nullptr)
        << "the shape itself stays";
}

struct Garbage {
    const char* name;
    void (*spoil)(EXENTRY* entries);

    friend void PrintTo(const Garbage& row, std::ostream* out) { *out << row.name; }
};

constexpr Garbage kGarbage[] = {
    {"TooManyNotes", [](EXENTRY* e) { e[0].noteCount = 13; }},
    {"NegativeNoteCount", [](EXENTRY* e) { e[0].noteCount = -1; }},
    {"NegativeDuration", [](EXENTRY* e) { e[0].duration = -1; }},
    {"NoteWithoutDuration", [](EXENTRY* e) { e[0].duration = 0; }},
    {"NoteIDZero", [](EXENTRY* e) { e[0].notes[1].noteID = 0; }},
    {"NoteIDTwice", [](EXENTRY* e) { e[0].notes[1] = e[0].notes[0]; }},
    {"NoteIDCopyWrong", [](EXENTRY* e) { e[0].notes[1].noteID = 9; }},
    {"RestWithNotes", [](EXENTRY* e) { e[0].flags &= ~EntryFlag::kNote; }},
    {"NoteFlagOnARest", [](EXENTRY* e) { e[2].flags |= EntryFlag::kNote; }},
    {"Voice2WithoutLauncher", [](EXENTRY* e) { e[1].flags |= EntryFlag::kVoice2; }},
    {"EntryTwice", [](EXENTRY* e) { e[1].entryNumber = e[0].entryNumber; }},
    {"EntryOfAnotherFrame", [](EXENTRY* e) { e[1].entryNumber = 4; }},
    {"EntryNeverIssued", [](EXENTRY* e) { e[1].entryNumber = 4711; }},
    {"EntryNumberZero", [](EXENTRY* e) { e[1].entryNumber = 0; }},
};

class InvalidFrame : public testing::TestWithParam<Garbage> {};

TEST_P(InvalidFrame, IsNotSaved) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4,e4 q:d4 h:r");
    host.Layer(1, 1, 1, "q:c4");
    const auto before = host.Score().Content();
    const Loan loan{host.Key(1, 1, 0)};
    ASSERT_EQ(loan.Save(), 1);
    GetParam().spoil(loan->entries);
    EXPECT_EQ(loan.Save(), 0);
    EXPECT_EQ(host.Score().Content(), before);
}

INSTANTIATE_TEST_SUITE_P(HostFrames, InvalidFrame, testing::ValuesIn(kGarbage), kByName);

TEST(HostFrames, RefuseForeignFrames) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4 q:d4");
    Document& other = App().OpenDocument(u"other");
    Loan loan{host.Key(1, 1, 0)};
    EXPECT_EQ(loan.Insert(3, 1) + loan.Insert(0, 0), 0);
    EXPECT_EQ(loan.Delete(1, 2) + loan.Delete(-1, 1), 0);
    App().SetCurrentDocument(other.Number());
    EXPECT_EQ(loan.Save(), 0) << "its document is not current";
    App().SetCurrentDocument(host.Score().Number());
    loan->count = 1;
    EXPECT_EQ(loan.Save(), 0) << "only insert and delete change the count";
    loan->count = 2;
    loan->layer = 1;
    EXPECT_EQ(loan.Save(), 0) << "a frame does not change its place";
    loan->layer = 0;
    EXPECT_EQ(FX_SaveTGF(loan.Get(), kInterfaceVersion - 1), 0) << "not the interface's version";

    EXFRAME* const stale = loan.Get();
    loan.Return();
    FX_FreeTGF(stale, kInterfaceVersion);
    EXFRAME strange{};
    EXPECT_EQ(FX_SaveTGF(&strange, kInterfaceVersion), 0);
    EXPECT_EQ(App().calls.strangeFrames, 2U);
    App().calls.strangeFrames = 0;  // they were meant
}

#if !defined(_WIN32)
TEST(HostFramesDeathTest, GuardedFramesStopStrayAccess) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4 q:d4");
    App().faults.guardFrames = true;
    const Loan loan{host.Key(1, 1, 0)};
    EXENTRY* const entries = loan->entries;
    EXPECT_DEATH(entries[2].entryNumber = 1, "");
    ASSERT_EQ(loan.Insert(2, 1), 1);
    EXPECT_DEATH(entries[0].entryNumber = 1, "") << "the array moved";
}
#endif

TEST(HostMetrics, GiveStemsAndPages) {
    StandIn host{1, 2};
    host.Layer(1, 1, 0, "q:c5! q:r w:c4 q:d4,c6 q:a4");
    host.Layer(1, 2, 1, "q:c5 q:c5");
    std::vector<EXENTRY> fixed = host.Score().FindFrame(host.Key(1, 2, 1))->entries;
    fixed[1].flags |= HostEntryFlag::kFixedStem | HostEntryFlag::kStemUp;
    host.Score().PutFrame(host.Key(1, 2, 1), fixed);
    host.Layer(1, 2, 0, "q:c5");
    host.Score().SetPageOfMeasure(2, 0);
    // Of each entry the stem's direction, 1 or -1, and the page.
    const auto metrics = [&](u16 measure, u16 layer) {
        const Loan loan{host.Key(1, measure, layer)};
        std::string text;
        ENTRYMETRICS answer{};
        for (i16 index = 0; index <= loan->count; ++index) {
            text += FX_GetEntryMetrics(loan.Get(), index, &answer, kInterfaceVersion) == 0
                        ? "none, "
                        : std::to_string(answer.stemDirection) + " on " +
                              std::to_string(answer.pageNumber) + ", ";
        }
        return text;
    };
    // A hidden note, a rest, a whole note, one as a whole above the middle line, one below it.
    EXPECT_EQ(metrics(1, 0), "none, 0 on 1, 0 on 1, -1 on 1, 1 on 1, none, ");
    EXPECT_EQ(metrics(2, 1), "-1 on 0, 1 on 0, none, ") << "the lower layer; set by hand";
    EXPECT_EQ(metrics(2, 0), "1 on 0, none, ") << "the upper layer, on no page";
}

}  // namespace
}  // namespace standin
