// Writing back a score whose music changed.
#include <functional>
#include <set>
#include <sstream>

#include "host/musicxml/note_details.h"
#include "host/musicxml/write/beam_writer.h"
#include "host/score/records/tags.h"
#include "tests/unit/musicxml_support.h"

namespace standin {
namespace {

int Count(std::string_view text, std::string_view what) {
    int count = 0;
    for (std::size_t at = text.find(what); at != std::string_view::npos;
         at = text.find(what, at + 1)) {
        ++count;
    }
    return count;
}

// The tags with the text after each: children of <notations> may be in any order.
std::multiset<std::string> Tags(const std::string& text) {
    std::multiset<std::string> tags;
    std::istringstream stream{text};
    for (std::string tag; std::getline(stream, tag, '<');) {
        tags.insert(tag.substr(0, tag.find_last_not_of(" \n") + 1));
    }
    return tags;
}

// Every possible attachment of a note, on a note of a chord and on the chord itself.
TEST(Rebuilt, KeepsChildrenAndAttributes) {
    const std::string text = ScoreText({
        R"(<direction><direction-type><words>a</words></direction-type></direction>
<note default-x="10" color="#FF0000"><pitch><step>C</step><alter>1</alter><octave>4</octave></pitch>
<duration>1</duration><tie type="start"/><instrument id="I1"/><voice>1</voice>
<type size="cue">eighth</type><accidental cautionary="yes">sharp</accidental>
<stem default-y="3">up</stem><notehead parentheses="yes">x</notehead>
<beam number="1" fan="accel">begin</beam><notations><tied type="start" orientation="over"/>
<fermata>normal</fermata><ornaments><trill-mark/><accidental-mark>flat</accidental-mark></ornaments>
<technical><fingering>1</fingering></technical></notations><lyric number="1">
<syllabic>begin</syllabic><text>la</text><elision/><text>lo</text></lyric>
<play><mute>on</mute></play></note>
<note print-object="no"><chord/><pitch><step>E</step><alter>-0.5</alter><octave>4</octave></pitch>
<duration>1</duration><voice>1</voice><type>eighth</type><stem default-y="3">up</stem><notations>
<technical><fingering>3</fingering></technical><slur type="start" number="2" bezier-x="5"/>
</notations></note>
<note><unpitched><display-step>E</display-step><display-octave>4</display-octave></unpitched>
<duration>1</duration><voice>1</voice><type>eighth</type><stem>none</stem>
<beam number="1">end</beam><notations><slur type="stop" number="2"/></notations></note>
<note><rest><display-step>B</display-step><display-octave>4</display-octave></rest>
<duration>2</duration><tie type="start"/><voice>1</voice><type>quarter</type>
<dot placement="above"/><accidental>flat</accidental>
<notations><tied type="start"/><!-- in --></notations><!-- a --><?b c?></note>
<note print-object="no"><rest/><duration>2</duration><voice>1</voice><type>quarter</type></note>
<barline location="right"><bar-style>light-heavy</bar-style></barline>
)"});
    const auto score = Read(text);
    EXPECT_EQ(WriteScore(*score), text);
    EXPECT_EQ(Tags(Rebuilt(*score)), Tags(text));
}

TEST(Rebuilt, KeepsNotationsAttributes) {
    const struct {
        const char* notations;
        const char* expected;  // once
    } cases[] = {
        {"<notations id=\"a\" print-object=\"no\"><fermata/><technical/></notations>", "id=\"a\""},
        {"<notations id=\"a\" print-object=\"no\"><fermata/><technical/></notations>",
         "<notations print-object=\"no\"><technical/></notations>"},
        {"<notations id=\"a\"><footnote>b</footnote><slur type=\"start\"/><fermata/></notations>",
         "<notations id=\"a\"><footnote>b</footnote></notations>"},
        {"<notations><level>b</level><slur type=\"start\"/><fermata/></notations>",
         "<notations><level>b</level></notations>"},
        {"<notations><ornaments><turn/><wavy-line type=\"start\"/><accidental-mark/></ornaments>"
         "</notations>",
         "<wavy-line type=\"start\"/><accidental-mark/>"},
    };
    for (const char* first : {"", "<chord/>"}) {
        for (const auto& c : cases) {
            const auto score = Read(
                ScoreText({Note({.pitch = "E4"}) + Note({.more = c.notations, .first = first})}));
            const std::string written = Rebuilt(*score);
            EXPECT_EQ(Count(written, c.expected), 1) << written;
            EXPECT_EQ(Differences(*score, written), "");
        }
    }
}

// No score has text between notes, but files may.
TEST(Rebuilt, StaysWellFormed) {
    std::string note = Note({.voice = "&lt;1"});
    for (const char* text : {"text", "\x0e ", "<![CDATA[a]]>", "<!-- a -->", "<?a b?>"}) {
        const std::string written = Rebuilt(*Read(ScoreText({note + text + note})));
        EXPECT_TRUE(ReadScore(written)) << text << '\n' << written;
        EXPECT_NE(written.find(text), std::string::npos) << text;
    }
    note.replace(0, 6, "<note id=\"a<b>\">");
    const std::string written = Rebuilt(*Read(ScoreText({note})));
    EXPECT_TRUE(ReadScore(written)) << written;
    EXPECT_NE(written.find("<note id=\"a&lt;b>\">"), std::string::npos) << written;
}

TEST(Changed, OnlyChangedMeasureIsRewritten) {
    const std::string odd =
        "<note ><pitch><step>C</step><octave>4</octave></pitch>"
        "<duration>2</duration></note><!-- kept -->\r\n";
    const std::string text = ScoreText({odd, Note({}) + Note({.pitch = "E4"}), odd});
    const auto score = Read(text);
    std::vector<EXENTRY> entries = Entries(*score, 2, 0);
    entries.pop_back();
    score->document->PutFrame({1, 2, 0}, entries);
    const std::string written = WriteScore(*score);
    EXPECT_EQ(Count(written, odd), 2);
    EXPECT_EQ(Count(written, "<step>E</step>"), 0);
    EXPECT_TRUE(written.starts_with(text.substr(0, text.find("<measure number=\"2\">"))));
}

// A layer that contains only hidden rests after a merge needs no voice.
TEST(Changed, VoiceOfHiddenRestsIsOmitted) {
    const auto score = Read(
        ScoreText({Note({}) + Backup(2) + Note({.duration = 8, .type = "whole", .voice = "2"})}));
    std::vector<EXENTRY> entries = Entries(*score, 1, 1);
    EXENTRY& rest = entries.at(0);
    rest.flags = EntryFlag::kMadeRest | EntryFlag::kNoNotes | EntryFlag::kIgnore;
    rest.noteCount = 0;
    std::ranges::fill(rest.notes, EXNOTE{});
    score->document->PutFrame({1, 1, 1}, entries);
    const std::string written = WriteScore(*score);
    EXPECT_EQ(Count(written, "<voice>2</voice>"), 0);
    EXPECT_EQ(Count(written, "<rest/>"), 0);
    EXPECT_EQ(Read(written)->document->MeasureDuration(0, 1), 4096);

    rest.flags &= ~EntryFlag::kIgnore;
    score->document->PutFrame({1, 1, 1}, entries);
    EXPECT_EQ(Count(WriteScore(*score), "<rest/>"), 1);
}

// Entries without an exact length are placed on the divisions of their measure.
TEST(Changed, NewRestsUseDivisionsOfMeasure) {
    const auto score =
        Read(ScoreText({"<attributes><divisions>3</divisions></attributes>" +
                        Note({.duration = 1, .type = "eighth"}) + Note({.duration = 2})}));
    std::vector<EXENTRY> entries = Entries(*score, 1, 0);
    for (EXENTRY& entry : entries) {
        entry.fieldAt12 = 0;
    }
    score->document->PutFrame({1, 1, 0}, entries);
    const std::string written = WriteScore(*score);
    EXPECT_EQ(Count(written, "<duration>1</duration>"), 1);
    EXPECT_EQ(Count(written, "<duration>2</duration>"), 1);
}

// A record of the score by its number.
template <typename Record>
void Change(const ImportedScore& score, u32 tag, u16 number,
            const std::function<void(Record&)>& change) {
    RecordStore& records = score.document->Records();
    auto record = FromBytes<Record>(*records.Find(tag, RecordKey::Other(number)));
    change(record);
    records.Save(tag, RecordKey::Other(number), BytesOf(record));
}

// A slur that joins a voice in which its number is taken.
TEST(Changed, MeetingSpannersGetDifferentNumbers) {
    const std::string start = "<notations><slur type=\"start\" number=\"1\"/></notations>";
    const std::string stop = "<notations><slur type=\"stop\" number=\"1\"/></notations>";
    const auto voice = [&](std::string_view name) {
        return Note({.voice = name, .more = start}) + Note({.voice = name, .more = stop});
    };
    const auto score = Read(ScoreText({voice("1") + Backup(4) + voice("2")}));
    const u32 first = Entries(*score, 1, 0)[0].entryNumber;
    Change<EDTSmartShape>(*score, Tag::kSmartShape, 2,
                          [first](EDTSmartShape& shape) { shape.start.entryNumber = first; });
    const EDTSmartShapeEntMark mark{2, {}};
    score->document->Records().Create(Tag::kShapeOnEntry, RecordKey::OfEntry(first, kAppend),
                                      BytesOf(mark));
    const std::string written = WriteScore(*score);
    EXPECT_EQ(Count(written, "type=\"start\" number=\"1\""), 1);
    EXPECT_EQ(Count(written, "type=\"start\" number=\"2\""), 1);
    EXPECT_EQ(Count(written, "type=\"stop\" number=\"2\""), 1);
}

TEST(Changed, SpannerWithoutOtherEndIsOmitted) {
    const auto score =
        Read(ScoreText({Note({.more = "<notations><slur type=\"start\"/></notations>"}) +
                        Note({.more = "<notations><slur type=\"stop\"/></notations>"})}));
    score->document->Records().DeleteDetails(Entries(*score, 1, 0)[1].entryNumber);
    EXPECT_EQ(Count(WriteScore(*score), "<slur"), 0);
}

TEST(Changed, DirectionVoiceFollowsExpressionLayer) {
    const std::string direction =
        "<direction><direction-type><words>dolce</words></direction-type>"
        "<!-- <voice>3</voice> --><voice ><!-- -->2</voice></direction>";
    const auto score = Read(ScoreText({Note({}) + Backup(2) + direction + Note({.voice = "2"})}));
    Change<MyExpressionAssign>(*score, Tag::kExpression, 1, [](MyExpressionAssign& expression) {
        EXPECT_EQ(expression.staff, 1);
        EXPECT_EQ(expression.layer, 2);
        expression.layer = 1;
    });
    EXPECT_EQ(Count(WriteScore(*score), " --><voice ><!-- -->1</voice></direction>"), 1);
}

TEST(Beams, BrokenBeamsAreRepaired) {
    // One letter per entry: - none, b begin, c continue, e end, r a rest.
    for (const auto& [before, expected] : {std::pair{"bce", "bce"},
                                           {"bc-", "be-"},
                                           {"-ce", "-be"},
                                           {"b--", "---"},
                                           {"bre", "bre"},
                                           {"bbee", "-be-"}}) {
        constexpr std::string_view kLetters = "-bce";  // in the order of Beam
        std::vector<BeamedEntry> entries;
        for (const char letter : std::string_view{before}) {
            BeamedEntry& entry = entries.emplace_back();
            entry.isRest = letter == 'r';
            entry.levels[0] = entry.isRest ? Beam::kNone : Beam(kLetters.find(letter));
        }
        MakeBeamsWhole(entries);
        std::string after;
        for (const BeamedEntry& entry : entries) {
            after += entry.isRest ? 'r' : kLetters.at(static_cast<std::size_t>(entry.levels[0]));
        }
        EXPECT_EQ(after, expected) << before;
    }
}

// A voice on two staves whose music on one of them has moved away.
TEST(Beams, EndWithTheirVoice) {
    const auto note = [](const std::string& staff, const std::string& beam) {
        return Note({.more = "<staff>" + staff + "</staff><beam>" + beam + "</beam>"});
    };
    const auto score = Read(ScoreText(
        {note("2", "begin") + note("2", "continue") + note("1", "end")}, "<staves>2</staves>"));
    score->document->PutFrame({1, 1, 0}, {});
    const std::string written = WriteScore(*score);
    EXPECT_EQ(Count(written, ">begin<"), 1);
    EXPECT_EQ(Count(written, ">continue<"), 0);
    EXPECT_EQ(Count(written, ">end<"), 1);
}

TEST(Encodings, SurviveRoundTrip) {
    // The euro sign, which only ISO 8859-1 lacks.
    const auto declared = [](const char* encoding, const char* more = "\xE2\x82\xAC") {
        std::string text = ScoreText({Note({})});
        text.replace(text.find("UTF-8"), 5, encoding);
        return text.replace(text.find("Piano"), 5, std::string{"Fl\xC3\xB6te"} + more);
    };
    for (const std::string& file :
         {declared("UTF-8"), EncodeXml(declared("UTF-8"), {Encoding::kUtf8, true}),
          EncodeXml(declared("UTF-16"), {Encoding::kUtf16LittleEndian, true}),
          EncodeXml(declared("UTF-16"), {Encoding::kUtf16BigEndian, true}),
          EncodeXml(declared("windows-1252"), {Encoding::kWindows1252, false}),
          EncodeXml(declared("ISO-8859-1", ""), {Encoding::kLatin1, false})}) {
        const auto score = Read(file);
        EXPECT_TRUE(score->document->StaffName(1).starts_with(u"Fl\u00F6te"));
        EXPECT_EQ(WriteScore(*score), file);
    }
}

TEST(Encodings, InvalidBytesAreFound) {
    for (const auto& [text, line] : {std::pair{"\n\n1234567\xFF", 3},
                                     {"\xC0\xAF", 1},               // longer than it needs to be
                                     {"\xED\xA0\x80", 1},           // half of a pair of units
                                     {"\xF4\x90\x80\x80", 1},       // beyond the last character
                                     {"12345678\n\xE2\x82", 2}}) {  // cut off
        const DecodedText decoded = DecodeXml(text);
        EXPECT_NE(decoded.problem, "");
        EXPECT_EQ(decoded.line, static_cast<std::size_t>(line));
    }
    EXPECT_NE(DecodeXml("<?xml version='1.0' encoding='windows-1252'?>\x81").problem, "");
}

}  // namespace
}  // namespace standin
