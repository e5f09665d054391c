// Where entries start and how long they last, in the host's units and back in the file's.
#include "host/musicxml/pitch.h"
#include "host/musicxml/rational.h"
#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

std::string Times(const ImportedScore& score, u16 layer = 0) {
    std::string text;
    const Frame* frame = score.document->FindFrame({1, 1, layer});
    if (frame != nullptr) {
        for (const EXENTRY& entry : frame->entries) {
            text += (text.empty() ? "" : " ") + std::to_string(entry.elapsedTime) + '+' +
                    std::to_string(entry.actualDuration);
        }
    }
    return text;
}

// Three in the time of two, in divisions that the host's units do not divide into.
std::string Triplet(std::string_view voice) {
    constexpr std::string_view kThreeToTwo =
        "<time-modification><actual-notes>3</actual-notes><normal-notes>2</normal-notes>"
        "</time-modification>";
    std::string notes;
    for (int i = 0; i < 3; ++i) {
        notes += Note({.duration = 1, .type = "eighth", .voice = voice, .more = kThreeToTwo});
    }
    return notes;
}

TEST(Times, TripletsOfDifferentVoicesStandAtTheSameTimes) {
    const auto score = Read(
        ScoreText({"<attributes><divisions>3</divisions></attributes>" + Triplet("1") + Backup(3) +
                   Note({.pitch = "r", .duration = 1, .type = "eighth", .voice = "2"}) +
                   Note({.duration = 1, .type = "eighth", .voice = "2"}) +
                   Note({.duration = 1, .type = "eighth", .voice = "2"})}));
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(Times(*score, 0), "0+341 341+342 683+341");
    EXPECT_EQ(Times(*score, 1), Times(*score, 0));
}

struct TimeCase {
    const char* name;
    std::string measure;
    const char* times;
    i32 length;  // of the measure
};

const TimeCase kTimes[] = {
    {"MeasureWithoutContentHasItsTimeSignaturesLength", "", "", 4096},
    {"PickupIsAsShortAsItsContent", Note({}), "0+1024", 1024},
    {"ForwardAtTheEndCounts", Note({}) + Forward(4), "0+1024", 3072},
    {"GapIsARestOfItsLength", Note({}) + Forward(3) + Note({.duration = 1, .type = "eighth"}),
     "0+1024 1024+1536 2560+512", 3072},
    {"TypeMissing", "<note><rest/><duration>5</duration></note>", "0+2560", 2560},
    {"DecimalDuration", "<note><rest/><duration>0.5</duration></note>", "0+256", 256},
    {"LongerThanAnEntrysDuration", Note({.duration = 80, .type = "maxima"}), "0+40960", 40960},
    {"GapLongerThanAnEntrysDuration", Forward(64) + Note({}) + Forward(15),
     "0+28672 28672+4096 32768+1024", 41472},
    {"LaterLineOfAVoiceWrittenFirst", Forward(2) + Note({}) + Backup(4) + Note({.pitch = "E4"}),
     "0+1024 1024+1024", 2048},
    {"DivisionsChangeWithinTheMeasure",
     Note({}) + "<attributes><divisions>10</divisions></attributes>" + Note({.duration = 10}),
     "0+1024 1024+1024", 2048},
};

class Measure : public testing::TestWithParam<TimeCase> {};

TEST_P(Measure, KeepsItsTimesInAndOut) {
    const TimeCase& c = GetParam();
    const auto score = Read(ScoreText({c.measure}));
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(Times(*score), c.times);
    EXPECT_EQ(score->document->MeasureDuration(0, 1), c.length);
    const auto again = Read(WriteScore(*score, {.rebuildAll = true}));
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(Times(*again), c.times);
    EXPECT_EQ(again->document->MeasureDuration(0, 1), c.length);
    EXPECT_EQ(Differences(*score, *again), "");
}
INSTANTIATE_TEST_SUITE_P(Content, Measure, testing::ValuesIn(kTimes),
                         [](const auto& c) { return std::string{c.param.name}; });

// Divisions finer than the host's units: rounding there must not reach the file.
TEST(Times, FineDivisionsComeBackExactly) {
    const std::string text = ScoreText({"<attributes><divisions>10080</divisions></attributes>" +
                                        Note({.duration = 3360, .type = "eighth"}) +
                                        Note({.duration = 6720, .type = "quarter"}) +
                                        Note({.duration = 1440, .type = "16th"})});
    const auto score = Read(text);
    ASSERT_NE(score, nullptr);
    const std::string written = WriteScore(*score, {.rebuildAll = true});
    for (const char* duration : {">3360<", ">6720<", ">1440<"}) {
        EXPECT_NE(written.find(duration), std::string::npos) << duration;
    }
}

TEST(Times, SixEighthsHaveTwoBeats) {
    const auto score =
        Read(ScoreText({""}, "<time><beats>6</beats><beat-type>8</beat-type></time>"));
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(score->document->Measure(1).beats, 2);
    EXPECT_EQ(score->document->Measure(1).beatDuration, 1536);
}

TEST(Pitches, ComeBackFromTheHostsFieldInEveryKey) {
    for (int fifths = -7; fifths <= 7; ++fifths) {
        for (int octave = 0; octave <= 9; ++octave) {
            for (int step = 0; step < 7; ++step) {
                for (int alter = -2; alter <= 2; ++alter) {
                    const WrittenPitch pitch{step, octave, alter};
                    const auto field = PitchField(pitch, fifths);
                    ASSERT_TRUE(field);
                    EXPECT_EQ(PitchOfField(*field, fifths), pitch) << fifths;
                }
            }
        }
    }
    EXPECT_EQ(PitchField({3, 4, 1}, 1), u16{0xFFF0});          // F sharp below the tonic of G major
    EXPECT_EQ(PitchField({6, 4, 0}, -1), u16{3U << 4U | 1U});  // B natural in F major
}

TEST(Times, FractionsThatLeaveTheExactRangeAreInvalid) {
    const Rational fine = Rational::Of(1, (i64{1} << 39U) + 1);
    EXPECT_TRUE(fine.IsValid());
    EXPECT_FALSE((fine + Rational::Of(1, 1000003)).IsValid());
    EXPECT_EQ(RoundToUnits(Rational::Of(-1, 2048)), 0);
    EXPECT_EQ(RoundToUnits(Rational::Of(1, 2048)), 1);
}

}  // namespace
}  // namespace standin
