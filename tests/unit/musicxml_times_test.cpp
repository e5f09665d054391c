// Starts and durations of entries in the host's units, and back in the file's.
#include "host/musicxml/pitch.h"
#include "host/score/time/rational.h"
#include "tests/unit/musicxml_support.h"
#include "tests/unit/support/named_cases.h"

namespace standin {
namespace {

// Of the first measure.
std::string Times(const ImportedScore& score, u16 layer = 0) {
    return PrintTimes(*score.document, {1, 1, layer});
}

std::string Divisions(int count) {
    return "<attributes><divisions>" + std::to_string(count) + "</divisions></attributes>";
}

// Three in the time of two, in divisions that the host's units do not divide into.
TEST(Times, TripletsOfVoicesCoincide) {
    const std::string note = Note({.duration = 1,
                                   .type = "eighth",
                                   .more = "<time-modification><actual-notes>3</actual-notes>"
                                           "<normal-notes>2</normal-notes></time-modification>"});
    const std::string other = Note({.duration = 1, .type = "eighth", .voice = "2"});
    const auto score =
        Read(ScoreText({Divisions(3) + note + note + note + Backup(3) + other + other + other}));
    EXPECT_EQ(Times(*score, 0), "0+341 341+342 683+341");
    EXPECT_EQ(Times(*score, 1), Times(*score, 0));
}

const std::string kThird = Note({.duration = 4, .voice = "2"});

struct TimesCase {
    const char* name;
    std::string measure;
    const char* times;
    i32 length;  // of the measure

    friend void PrintTo(const TimesCase& row, std::ostream* out) { *out << row.name; }
};

const TimesCase kTimes[] = {
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
    {"DivisionsChangeWithinTheMeasure", Note({}) + Divisions(10) + Note({.duration = 10}),
     "0+1024 1024+1024", 2048},
    {"DivisionsBetweenComments",
     "<attributes><!-- <divisions>480</divisions> --><divisions ><!-- "
     "-->4</divisions></attributes>" +
         Note({.duration = 4}),
     "0+1024", 1024},
    {"DivisionsOfALaterVoice",
     Divisions(3) + Note({.duration = 6}) + Divisions(1) + Note({}) + Backup(4) + Divisions(3) +
         kThird + kThird + kThird,
     "0+2048 2048+2048", 4096},
};

class MeasureTimes : public testing::TestWithParam<TimesCase> {};

TEST_P(MeasureTimes, SurviveRoundTrip) {
    const TimesCase& c = GetParam();
    const auto score = Read(ScoreText({c.measure, Note({})}));
    const std::string written = Rebuilt(*score);
    const auto again = Read(written);
    for (const auto* either : {&score, &again}) {
        EXPECT_EQ(Times(**either), c.times);
        EXPECT_EQ((*either)->document->MeasureDuration(0, 1), c.length);
    }
    EXPECT_EQ(Differences(*score, written), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, MeasureTimes, testing::ValuesIn(kTimes), kByName);

// Divisions finer than the host's units: the host's rounding must not reach the file.
TEST(Times, FineDivisionsAreExact) {
    const std::string text = ScoreText({Divisions(10080) + Note({.duration = 3361})});
    EXPECT_NE(Rebuilt(*Read(text)).find(">3361<"), std::string::npos);
}

TEST(Times, SixEighthsHaveTwoBeats) {
    const auto score =
        Read(ScoreText({""}, "<time><beats>6</beats><beat-type>8</beat-type></time>"));
    EXPECT_EQ(score->document->Measure(1).beats, 2);
    EXPECT_EQ(score->document->Measure(1).beatDuration, 1536);
}

TEST(Pitches, SurviveRoundTripInEveryKey) {
    for (int i = 0; i < 15 * 10 * 7 * 5; ++i) {
        const int fifths = i % 15 - 7;
        const WrittenPitch pitch{i / 15 % 7, i / 105 % 10, i / 1050 - 2};
        const auto field = PitchField(pitch, fifths);
        ASSERT_TRUE(field);
        EXPECT_EQ(PitchOfField(*field, fifths), pitch) << fifths;
    }
    EXPECT_EQ(PitchField({3, 4, 1}, 1), u16{0xFFF0});          // F sharp below the tonic of G major
    EXPECT_EQ(PitchField({6, 4, 0}, -1), u16{3U << 4U | 1U});  // B natural in F major
}

TEST(Times, OverflowingFractionsAreInvalid) {
    const Rational fine = Rational::Of(1, (i64{1} << 39U) + 1);
    EXPECT_TRUE(fine.IsValid());
    EXPECT_FALSE((fine + Rational::Of(1, 1000003)).IsValid());
    EXPECT_EQ(RoundToUnits(Rational::Of(-1, 2048)), 0);
    EXPECT_EQ(RoundToUnits(Rational::Of(1, 2048)), 1);
}

}  // namespace
}  // namespace standin
