// What hangs on a note goes where the note goes.
#include <gtest/gtest.h>

#include "host/score/smart_shape.h"
#include "tests/unit/plugin_driver.h"

namespace standin {
namespace {

constexpr u32 kArticulation = HostTag("edIM");
constexpr u32 kVerse = HostTag("SdvE");
constexpr u32 kNotehead = HostTag(
    "E\x02"
    "cn");

constexpr EntryPlace kSource{1, 1, 1, 0};
constexpr EntryPlace kDestination{1, 1, 0, 0};

EDTSmartShape Shape(Document& document, u16 number) {
    const Bytes* bytes = document.Records().Find(Tag::kSmartShape, RecordKey::Other(number));
    EDTSmartShape shape{};
    if (bytes != nullptr) {
        std::memcpy(&shape, bytes->data(), std::min(bytes->size(), sizeof(shape)));
    }
    return shape;
}

u16 LayerBits(Document& document, u16 measure, u16 record) {
    const Bytes* bytes =
        document.Records().Find(Tag::kExpression, RecordKey::Other(measure, record));
    MyExpressionAssign expression{};
    if (bytes != nullptr) {
        std::memcpy(&expression, bytes->data(), std::min(bytes->size(), sizeof(expression)));
    }
    return expression.layer;
}

TEST(Details, JoinThoseOfTheChord) {
    StandIn host;
    host.Layer(1, 1, 0, "w:c4");
    host.Layer(1, 1, 1, "w:e4");
    host.Attach(kDestination, kArticulation, "dot");
    host.Attach(kSource, kArticulation, "dot");
    host.Attach(kSource, kArticulation, "accent");
    host.Attach(kSource, kVerse, "word");
    host.SelectAll();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Attached(kDestination, kArticulation), "dot,accent");
    EXPECT_EQ(host.Attached(kDestination, kVerse), "word");
    EXPECT_EQ(host.Attached(kSource, kArticulation), "");
    EXPECT_EQ(host.Attached(kSource, kVerse), "");
    EXPECT_EQ(App().calls.flagsOutOfStep, 0U);
}

TEST(Details, OfOneNoteGoToItsPitch) {
    StandIn host;
    host.Layer(1, 1, 0, "w:c5,d5");
    host.Layer(1, 1, 1, "w:e4,g4");
    const u16 secondNote = host.Entry(kSource).notes[1].noteID;
    host.Attach(kSource, kNotehead,
                {reinterpret_cast<const char*>(&secondNote), sizeof(secondNote)});
    host.SelectAll();
    Plugin{}.Merge(host);
    const EXENTRY chord = host.Entry(kDestination);
    ASSERT_EQ(chord.noteCount, 4);
    const std::string stored = host.Attached(kDestination, kNotehead);
    ASSERT_FALSE(stored.empty());
    EXPECT_EQ(static_cast<u8>(stored[0]), chord.notes[3].noteID);
    EXPECT_EQ(host.Attached(kSource, kNotehead), "");
}

// Each of two equal pitches has a notehead of its own, which must not meet on one note.
TEST(Details, OfEqualPitchesStayApart) {
    StandIn host;
    host.Layer(1, 1, 0, "w:c5");
    host.Layer(1, 1, 1, "w:c5");
    const u16 noteID = host.Entry(kSource).notes[0].noteID;
    ASSERT_EQ(host.Entry(kDestination).notes[0].noteID, noteID);
    std::string head{reinterpret_cast<const char*>(&noteID), sizeof(noteID)};
    host.Attach(kDestination, kNotehead, head + "x");
    host.Attach(kSource, kNotehead, head + "o");
    host.SelectAll();
    Plugin{}.Merge(host);
    const EXENTRY chord = host.Entry(kDestination);
    ASSERT_EQ(host.Layer(1, 1, 0), "w:c5,c5");
    for (u16 record = 0; record < 2; ++record) {
        const Bytes* stored =
            host.Score().Records().Find(kNotehead, RecordKey::OfEntry(chord.entryNumber, record));
        ASSERT_NE(stored, nullptr);
        const bool isOwn = static_cast<u8>((*stored)[0]) == chord.notes[0].noteID;
        EXPECT_EQ((*stored)[2], isOwn ? 'x' : 'o');
    }
    EXPECT_NE(chord.notes[0].noteID, chord.notes[1].noteID);
}

// Alone, the low note of layer 2 has its stem up; with music in layer 1 it turns down.
TEST(Details, OfAStemThatTheMergeTurnsComeAlong) {
    constexpr u32 kLongerBeamUp = HostTag("edUE");
    StandIn host;
    host.Layer(1, 1, 1, "e:c4 e:d4 h.:r");
    host.Attach(kSource, kLongerBeamUp, "longer");
    host.SelectAll();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "e:c4 e:d4 h.:r");
    EXPECT_EQ(host.Attached(kDestination, kLongerBeamUp), "longer");
    EXPECT_EQ(host.Attached(kSource, kLongerBeamUp), "");
}

TEST(Details, ComeAlongIntoRests) {
    StandIn host;
    host.Layer(1, 1, 0, "w:r");
    host.Layer(1, 1, 1, "h:c4 h:r");
    host.Attach(kSource, kArticulation, "dot");
    host.Attach({1, 1, 1, 1}, kArticulation, "fermata");  // of a rest
    host.SelectAll();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "h:c4 h:r");
    EXPECT_EQ(host.Attached(kDestination, kArticulation), "dot");
    EXPECT_EQ(host.Attached({1, 1, 0, 1}, kArticulation), "fermata");
}

TEST(Details, OfADestinationRestKeepItInPlace) {
    StandIn host;
    host.Layer(1, 1, 0, "h:r h:c4");
    host.Layer(1, 1, 1, "h:e4 h:g4");
    host.Attach(kDestination, kArticulation, "fermata");
    host.SelectAll();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Layer(1, 1, 0), "h:r h:c4,g4");
    EXPECT_EQ(host.Attached(kDestination, kArticulation), "fermata");
    EXPECT_EQ(host.Layer(1, 1, 1), "h:e4 h:r");
}

TEST(SmartShapes, FollowEitherEnd) {
    StandIn host{1, 2};
    host.Layer(1, 1, 0, "h:c4 h:r");
    host.Layer(1, 1, 1, "h:e4 h:f4");
    host.Layer(1, 2, 1, "w:g4");
    const u16 first = host.Slur({1, 1, 1, 0}, {1, 1, 1, 1});  // from a chord into a filled rest
    const u16 second = host.Slur({1, 1, 1, 1}, {1, 2, 1, 0});
    host.SelectAll();
    Plugin{}.Merge(host);
    EXPECT_EQ(+Shape(host.Score(), first).start.entryNumber, host.EntryNumber({1, 1, 0, 0}));
    EXPECT_EQ(+Shape(host.Score(), first).end.entryNumber, host.EntryNumber({1, 1, 0, 1}));
    EXPECT_EQ(+Shape(host.Score(), second).start.entryNumber, host.EntryNumber({1, 1, 0, 1}));
    EXPECT_EQ(+Shape(host.Score(), second).end.entryNumber, host.EntryNumber({1, 2, 0, 0}));
    EXPECT_EQ(App().calls.flagsOutOfStep, 0U);
}

TEST(SmartShapes, OnAReplacedRestKeepTheirPlace) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4 q:r q:r q:c4");
    host.Layer(1, 1, 1, "q:r h:e4 q:r");
    const u16 shape = host.Slur({1, 1, 0, 0}, {1, 1, 0, 2});  // ends on the second rest
    host.SelectAll();
    Plugin{}.Merge(host);
    ASSERT_EQ(host.Layer(1, 1, 0), "q:c4 h:e4 q:c4");
    EXPECT_EQ(+Shape(host.Score(), shape).start.entryNumber, host.EntryNumber({1, 1, 0, 0}));
    EXPECT_EQ(+Shape(host.Score(), shape).end.entryNumber, host.EntryNumber({1, 1, 0, 1}));
    EXPECT_NE(host.Attached({1, 1, 0, 1}, Tag::kShapeOnEntry), "");
}

TEST(Expressions, FollowTheMusicTheyHangOn) {
    StandIn host{1, 1};
    host.Layer(1, 1, 0, "q:c4 q:r h:d4");
    host.Layer(1, 1, 1, "q:e4 q:f4 q:g4 q:a4");
    const u16 onChord = host.Expression(1, 1, 0, 1);
    const u16 onFilled = host.Expression(1, 1, 1024, 1);
    const u16 onWhatStays = host.Expression(1, 1, 3072, 1);
    const u16 ofNoLayer = host.Expression(1, 1, 0, -1);
    const u16 ofAnother = host.Expression(1, 1, 0, 2);
    host.SelectAll();
    Plugin{}.Merge(host);
    Document& score = host.Score();
    EXPECT_EQ(LayerBits(score, 1, onChord), 1);
    EXPECT_EQ(LayerBits(score, 1, onFilled), 1);
    EXPECT_EQ(LayerBits(score, 1, onWhatStays), 2);
    EXPECT_EQ(LayerBits(score, 1, ofNoLayer), 0);
    EXPECT_EQ(LayerBits(score, 1, ofAnother), 3);
}

}  // namespace
}  // namespace standin
