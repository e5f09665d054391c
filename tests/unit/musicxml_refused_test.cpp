// Files that are no score, damaged or hostile: one clear line, and where.
#include <zip.h>

#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

struct RefusedCase {
    const char* name;
    std::string text;
    const char* message;  // a part of it
    std::size_t line;
};

std::string Repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

const RefusedCase kRefused[] = {
    {"NotXml", "hello", "no well-formed XML", 1},
    {"Empty", "", "no well-formed XML", 1},
    {"EndTagMissing", "<score-partwise>\n<part>\n</score-partwise>", "no well-formed XML", 3},
    {"AnotherFormat", "<?xml version=\"1.0\"?>\n<opus/>", "root element is <opus>", 2},
    {"Timewise", "\n\n<score-timewise/>", "timewise", 3},
    {"NoPart", "<score-partwise/>", "no part", 1},
    {"NoMeasure", "<score-partwise><part/></score-partwise>", "no measure", 1},
    {"NoteOutsideParts", "<score-partwise>\n<note/></score-partwise>", "outside any part", 2},
    {"EncodingOfTwoLines", "<?xml version=\"1.0\" encoding=\"A\nB\"?><a/>", "encoding a b", 1},
    {"UnknownEncoding", "<?xml version=\"1.0\" encoding=\"EBCDIC\"?><a/>", "encoding ebcdic", 1},
    {"NegativeDuration", ScoreText({"<note><rest/><duration>-1</duration></note>"}), "<duration>",
     7},
    {"DurationIsNoNumber", ScoreText({"<note><rest/><duration>1e9</duration></note>"}),
     "<duration>", 7},
    {"EndlessNote", ScoreText({"<note><rest/><duration>99999999</duration></note>"}),
     "longer than any note", 7},
    {"NoteWithoutDuration", ScoreText({"<note><rest/></note>"}), "needs a <duration>", 7},
    {"NoteWithoutPitch", ScoreText({"<note><duration>1</duration></note>"}), "needs a pitch", 7},
    {"NoSuchStep", ScoreText({"<note><pitch><step>H</step><octave>4</octave></pitch></note>"}),
     "step", 7},
    {"BackupTooFar", ScoreText({Note({}), Backup(3)}), "before the measure's start", 10},
    {"BackupBeforeStart", ScoreText({"<backup><duration>1</duration></backup>"}),
     "before the measure's start", 7},
    {"BackupWithoutDuration", ScoreText({"<backup/>"}), "<backup>", 7},
    {"DivisionsAreZero", ScoreText({"<attributes><divisions>0</divisions></attributes>"}),
     "<divisions>", 7},
    {"DivisionsMissing",
     "<score-partwise><part><measure>\n<note><rest/><duration>1</duration></note>"
     "</measure></part></score-partwise>",
     "needs <divisions>", 2},
    {"StavesAreMany", ScoreText({"<attributes><staves>100000</staves></attributes>"}), "<staves>",
     7},
    {"StaffIsZero", ScoreText({Note({.more = "<staff>0</staff>"})}), "<staff>", 7},
    {"NestedTooDeeply", ScoreText({Repeated("<a>", 10000) + Repeated("</a>", 10000)}),
     "nested too deeply", 7},
};

class Refused : public testing::TestWithParam<RefusedCase> {};

TEST_P(Refused, SaysWhatIsWrongAndWhere) {
    const RefusedCase& c = GetParam();
    const ReadResult result = ReadScore(c.text);
    EXPECT_FALSE(result);
    EXPECT_NE(result.message.find(c.message), std::string::npos) << result.message;
    EXPECT_EQ(result.message.find('\n'), std::string::npos);
    EXPECT_EQ(result.line, c.line);
}
INSTANTIATE_TEST_SUITE_P(Files, Refused, testing::ValuesIn(kRefused),
                         [](const auto& c) { return std::string{c.param.name}; });

// A file cut anywhere is refused or read, never a crash.
TEST(Damaged, AnyPrefixOfAScoreIsSafe) {
    const std::string whole = ScoreText(
        {"<!-- a --><![CDATA[b]]>" + Note({.more = "<notations><slur type='start'/></notations>"}) +
         Backup(2) + Note({.voice = "2"})});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ReadResult result = ReadScore(whole.substr(0, length));
        EXPECT_EQ(result.message.empty(), static_cast<bool>(result)) << length;
    }
}

struct Member {
    std::string name;
    std::string bytes;
};

std::string Archive(const std::vector<Member>& members) {
    zip_source_t* source = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    zip_source_keep(source);
    zip_t* archive = zip_open_from_source(source, ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    for (const Member& member : members) {
        zip_source_t* content =
            zip_source_buffer(archive, member.bytes.data(), member.bytes.size(), 0);
        zip_file_add(archive, member.name.c_str(), content, 0);
    }
    zip_close(archive);
    zip_stat_t about{};
    zip_source_stat(source, &about);
    std::string bytes(about.size, '\0');
    zip_source_open(source);
    zip_source_read(source, bytes.data(), bytes.size());
    zip_source_close(source);
    zip_source_free(source);
    return bytes;
}

const char kContainer[] =
    "<container><rootfiles><rootfile full-path=\"music.xml\"/></rootfiles></container>";

TEST(Archives, DamagedOnesAreRefusedWithAReason) {
    const std::string score = ScoreText({Note({})});
    const std::string whole =
        Archive({{"META-INF/container.xml", kContainer}, {"music.xml", score}});
    const struct {
        const char* message;
        std::string bytes;
    } cases[] = {
        {"damaged archive", whole.substr(0, whole.size() / 2)},
        {"no member META-INF/container.xml", Archive({{"music.xml", score}})},
        {"names no score", Archive({{"META-INF/container.xml", "<container/>"}})},
        {"no member music.xml", Archive({{"META-INF/container.xml", kContainer}})},
        {"too large", Archive({{"META-INF/container.xml", std::string((1U << 20U) + 1, ' ')}})},
    };
    for (const auto& c : cases) {
        const ReadResult result = ReadScore(c.bytes);
        EXPECT_FALSE(result);
        EXPECT_NE(result.message.find(c.message), std::string::npos) << result.message;
    }
}

TEST(Archives, OtherMembersAreKept) {
    const std::string archive = Archive({{"META-INF/container.xml", kContainer},
                                         {"music.xml", ScoreText({Note({})})},
                                         {"cover.png", "picture"}});
    const auto score = Read(archive);
    ASSERT_NE(score, nullptr);
    const std::string written = WriteScore(*score, {.rebuildAll = true});
    const auto again = Read(written);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(Differences(*score, *again), "");
    EXPECT_NE(written.find("cover.png"), std::string::npos);
}

}  // namespace
}  // namespace standin
