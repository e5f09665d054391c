// What hangs on a note goes where the note goes: what the merges of made-up music cannot tell
// apart.
#include <gtest/gtest.h>

#include "tests/unit/plugin_driver.h"

namespace standin {
namespace {

// Each of two equal pitches has a notehead of its own, which must not meet on one note.
TEST(Details, OfEqualPitchesStayApart) {
    constexpr u32 kNotehead = HostTag("E\002cn");
    constexpr EntryPlace kDestination{1, 1, 0, 0};
    StandIn host;
    host.Layer(1, 1, 0, "w:c5");
    host.Layer(1, 1, 1, "w:c5");
    ASSERT_EQ(host.Entry(kDestination).notes[0].noteID, 1);
    host.Attach(kDestination, kNotehead, {"\1\0x", 3});
    host.Attach({1, 1, 1, 0}, kNotehead, {"\1\0o", 3});
    host.SelectAll();
    Plugin{}.Merge(host);
    ASSERT_EQ(host.Layer(1, 1, 0), "w:c5,c5");
    const EXENTRY chord = host.Entry(kDestination);
    EXPECT_NE(chord.notes[0].noteID, chord.notes[1].noteID);
    const auto of = [&](int note) {
        return std::string{static_cast<char>(chord.notes[note].noteID)};
    };
    const std::string heads = host.Attached(kDestination, kNotehead);
    EXPECT_NE(heads.find(of(0) + std::string{"\0x", 2}), heads.npos);
    EXPECT_NE(heads.find(of(1) + std::string{"\0o", 2}), heads.npos);
}

TEST(Expressions, FollowTheMusicTheyHangOn) {
    StandIn host;
    host.Layer(1, 1, 0, "q:c4 q:r h:d4");
    host.Layer(1, 1, 1, "q:e4 q:f4 q:g4 q:a4");
    const struct {
        i32 position;
        i16 layer;
        u16 layerAfterwards;  // from 1; 0 = none in particular
    } cases[] = {{0, 1, 1}, {1024, 1, 1}, {3072, 1, 2}, {0, -1, 0}, {0, 2, 3}};
    for (const auto& c : cases) {
        host.Expression(1, 1, c.position, c.layer);
    }
    host.SelectAll();
    Plugin{}.Merge(host);
    for (u16 record = 0; const auto& c : cases) {
        const Bytes* const bytes =
            host.Score().Records().Find(Tag::kExpression, RecordKey::Other(1, record++));
        ASSERT_NE(bytes, nullptr);
        EXPECT_EQ(FromBytes<MyExpressionAssign>(*bytes).layer, c.layerAfterwards) << record;
    }
}

}  // namespace
}  // namespace standin
