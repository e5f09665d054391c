// Damaged, hostile or other files: one clear message with its line.
#include "host/musicxml/xml/archive.h"
#include "tests/unit/musicxml_support.h"
#include "tests/unit/support/named_cases.h"

namespace standin {
namespace {

std::string Repeated(int count, std::string_view element) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += element;
    }
    return all;
}

std::string NoteWith(const std::string& children) {
    return ScoreText({"<note>" + children + "</note>"});
}

struct RefusedScore {
    const char* name;
    std::string text;
    const char* message;  // a part of it
    std::size_t line;

    friend void PrintTo(const RefusedScore& row, std::ostream* out) { *out << row.name; }
};

const RefusedScore kRefused[] = {
    {"NotXml", "hello", "not well-formed XML", 1},
    {"TextBeforeTheDeclaration", "\n\nhello <?xml version=\"1.0\"?><a/>", "before its first tag",
     3},
    {"TextBeforeTheRoot", "hello <score-partwise/>", "before its first tag", 1},
    {"NeitherUtf16NorUtf8", "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>\xE9</a>",
     "says that it is UTF-16, but it is neither", 1},
    {"EndTagMissing", "<score-partwise>\n<part>\n</score-partwise>", "not well-formed XML", 3},
    {"AnotherFormat", "<?xml version=\"1.0\"?>\n<opus/>", "root element is <opus>", 2},
    {"Timewise", "\n\n<score-timewise/>", "timewise", 3},
    {"NoPart", "<score-partwise/>", "no part", 1},
    {"NoMeasure", "<score-partwise><part/></score-partwise>", "no measure", 1},
    {"NoteOutsideParts", "<score-partwise>\n<note/></score-partwise>", "outside any part", 2},
    {"EncodingOfTwoLines", "<?xml version=\"1.0\" encoding=\"A\nB\"?><a/>", "encoding a b", 1},
    {"NotUtf8", "<a>\n\xE9</a>", "not valid in its encoding", 2},
    {"OverlongUtf8", "<a>\n\xC0\xAF</a>", "not valid in its encoding", 2},
    {"HalfACharacter", std::string{"\xFE\xFF\0<\0a\0>\xD8\0", 10}, "not valid in its encoding", 1},
    {"NegativeDuration", NoteWith("<rest/><duration>-1</duration>"), "<duration>", 7},
    {"EndlessNote", NoteWith("<rest/><duration>99999999</duration>"), "longer than any note", 7},
    {"NoteThatTakesNoTime",
     NoteWith("<pitch><step>C</step><octave>4</octave></pitch><duration>0</duration>"),
     "lasts less than", 7},
    {"NoteWithoutDuration", NoteWith("<rest/>"), "needs a <duration>", 7},
    {"NoteWithoutPitch", NoteWith("<duration>1</duration>"), "needs a pitch", 7},
    {"NoSuchStep", NoteWith("<pitch><step>H</step><octave>4</octave></pitch>"), "step", 7},
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
    {"NestedTooDeeply", ScoreText({Repeated(10000, "<a>") + Repeated(10000, "</a>")}),
     "nested too deeply", 7},
};

class Refused : public testing::TestWithParam<RefusedScore> {};

TEST_P(Refused, NamesErrorAndLine) {
    const ReadResult result = ReadScore(GetParam().text);
    EXPECT_FALSE(result);
    EXPECT_NE(result.message.find(GetParam().message), std::string::npos) << result.message;
    EXPECT_EQ(result.message.find('\n'), std::string::npos);
    EXPECT_EQ(result.line, GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(Scores, Refused, testing::ValuesIn(kRefused), kByName);

// The host's records have numbers of 16 bits.
TEST(RefusedScores, ExceedHostRecords) {
    const std::pair<const char*, std::string> cases[] = {
        {"more slurs and other lines",
         Repeated(256, Note({.more = "<notations>" + Repeated(256, "<slur type=\"start\"/>") +
                                     "</notations>"}))},
        {"more attachments",
         Note({.more = "<notations><articulations>" + Repeated(0x10000, "<accent/>") +
                       "</articulations></notations>"})},
        {"too many voices",
         Note({}) + Repeated(300, "<backup><duration>2</duration></backup>" + Note({}))},
        {"more directions",
         Note({}) + Repeated(0x10000, "<direction><voice>1</voice></direction>")},
    };
    for (const auto& [message, measure] : cases) {
        const ReadResult result = ReadScore(ScoreText({measure}));
        EXPECT_NE(result.message.find(message), std::string::npos) << result.message;
        EXPECT_GT(result.line, 1U);
    }
}

TEST(Growth, BracketsOfNoteAreOneText) {
    const auto score = Read(ScoreText({Note(
        {.more = "<notations>" + Repeated(100, "<tuplet type=\"start\"/>") + "</notations>"})}));
    EXPECT_LT(score->fragments.InternCopy("the next text"), 10U);
}

// A file cut anywhere is refused or read, never a crash.
TEST(Damaged, TruncatedScoreIsSafe) {
    const std::string whole = ScoreText(
        {"<!-- a --><![CDATA[b]]>" + Note({.more = "<notations><slur type='start'/></notations>"}) +
         Backup(2) + Note({.voice = "2"})});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ReadResult result = ReadScore(whole.substr(0, length));
        EXPECT_EQ(result.message.empty(), static_cast<bool>(result)) << length;
    }
}

// The archive with a member under another name of the same length.
std::string Renamed(std::string archive, std::string_view from, std::string_view to) {
    for (auto at = archive.find(from); at != archive.npos; at = archive.find(from)) {
        archive.replace(at, to.size(), to);
    }
    return archive;
}

TEST(Archives, DamagedArchiveIsRefused) {
    const std::string container = "META-INF/container.xml";
    const std::string whole = MakeArchive("music.xml", ScoreText({Note({})}));
    const std::string large((1U << 20U) + 1, ' ');
    constexpr std::size_t kChecksum = 16;  // in a member's entry of the directory
    std::string altered = whole;
    altered[altered.rfind("PK\1\2") + kChecksum] ^= 1;
    const struct {
        const char* message;
        std::string bytes;
    } cases[] = {
        {"damaged archive", whole.substr(0, whole.size() / 2)},
        {"no member META-INF/container.xml", Renamed(whole, container, "META-INF/contained.xml")},
        {"names no score", ReplaceArchivedScore(whole, container, "<container/>")},
        {"no member music.xml", Renamed(whole, "music.xml", "other.xml")},
        {"too large", ReplaceArchivedScore(whole, container, large)},
        {"too large", ReplaceArchivedScore(whole, "music.xml", std::string((64U << 20U) + 1, ' '))},
        {"music.xml cannot be unpacked", altered},
    };
    for (const auto& c : cases) {
        const ReadResult result = ReadScore(c.bytes);
        EXPECT_FALSE(result);
        EXPECT_NE(result.message.find(c.message), std::string::npos) << result.message;
    }
}

// A member with a wrong size beyond the file can be read, but not copied.
TEST(Archives, NoOutputIfArchiveCannotBeWritten) {
    std::string archive = MakeArchive("music.xml", ScoreText({Note({})}));
    constexpr std::size_t kPackedSize = 20;  // in a member's entry of the directory
    const std::size_t entry = archive.find("PK\1\2", archive.find("PK\1\2") + 1);
    archive.replace(entry + kPackedSize, 2, "\xFF\xFF");
    EXPECT_EQ(WriteScore(*Read(archive), {.rebuildAll = true}), "");
}

TEST(Archives, KeepsOtherMembers) {
    const auto score = Read(MakeArchive("music.xml", ScoreText({Note({})})));
    const std::string written = Rebuilt(*score);
    EXPECT_EQ(Differences(*score, written), "");
    EXPECT_NE(written.find("mimetypeapplication/vnd"), std::string::npos);
}

}  // namespace
}  // namespace standin
