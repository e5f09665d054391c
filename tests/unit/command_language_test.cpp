// Messages in the user's language: in Spanish nothing is said in English.
#include <filesystem>
#include <iterator>
#include <regex>

#include "platform/headless/session.h"
#include "tests/unit/command_support.h"
#include "tests/unit/support/named_cases.h"

namespace {

using namespace standin::cli;

// A word that English needs for nearly every sentence, and Spanish never.
const std::regex kEnglish{
    R"((^|[^\w<>-])(the|is|are|was|were|be|not|cannot|of|has|with|that|than|more|must|an|and|this|which|it|its|for|to|names|needs|holds)[ .,:]\S?)"};

class Spanish : public CommandRun {
protected:
    Spanish() { platform::headless::SetLanguage(platform::headless::Language::kSpanish); }
    ~Spanish() override {
        platform::headless::SetLanguage(platform::headless::Language::kEnglish);
        standin::SetLanguage(standin::Language::kEnglish);
    }

    // The first English words that were said; empty if there are none.
    std::string EnglishSaid() const {
        const std::string said = output + errors;
        std::smatch found;
        return std::regex_search(said, found, kEnglish) ? found[2].str() + " in: " + said : "";
    }
};

struct BadCommand {
    const char* name;
    std::vector<std::string> arguments;  // a name that begins with @ is a file of the test's folder
    int exitCode;

    friend void PrintTo(const BadCommand& row, std::ostream* out) { *out << row.name; }
};

class SpanishCommand : public Spanish, public testing::WithParamInterface<BadCommand> {};

TEST_P(SpanishCommand, SaysNothingInEnglish) {
    const std::string good =
        standin::ScoreText({Half("C5") + standin::Backup(4) + Half("E4", "2")});
    Write("good.musicxml", good);
    Write("tags.xml", "<score-partwise><part></score-partwise>");
    Write("empty.xml", "");
    Write("other.xml", "<opus/>");
    Write("timewise.xml", "<score-timewise/>");
    Write("nothing.xml", "<score-partwise/>");
    Write("text.xml", "so " + good);
    Write("damaged.mxl", "PK\3\4 and no more");
    Write("utf16.xml", "<?xml version=\"1.0\" encoding=\"utf-16\"?><opus/>");
    Write("unknown.xml", "<?xml version=\"1.0\" encoding=\"klingon\"?><opus/>");
    Write("bytes.xml", "<?xml version=\"1.0\" encoding=\"utf-8\"?><opus>\xFF</opus>");
    Write("duration.xml", std::regex_replace(good, std::regex{"<duration>4<"}, "<duration>-4<"));
    Write("backup.xml", std::regex_replace(good, std::regex{"<backup>.*?</backup>"},
                                           "<backup><duration>9</duration></backup>"));
    Write("pitch.xml", std::regex_replace(good, std::regex{"<step>C<"}, "<step>H<"));
    std::vector<std::string> arguments = GetParam().arguments;
    for (std::string& argument : arguments) {
        argument = argument.starts_with('@') ? File(argument.substr(1)) : argument;
    }
    EXPECT_EQ(Run(arguments), GetParam().exitCode) << errors;
    EXPECT_NE(output + errors, "");
    EXPECT_EQ(EnglishSaid(), "");
}

const BadCommand kCommands[] = {
    {"Alone", {}, 0},
    {"HelpForMerge", {"help", "merge"}, 0},
    {"Doctor", {"doctor"}, 0},
    {"Version", {"--version"}, 0},
    {"Shown", {"show", "@good.musicxml"}, 0},
    {"Merged", {"merge", "@good.musicxml", "-o", "@out.xml", "--verify"}, 0},
    {"Compared", {"compare", "@good.musicxml", "@pitch.xml"}, 1},
    {"UnknownCommand", {"mrege"}, 2},
    {"UnknownOption", {"merge", "@good.musicxml", "--hide-rest"}, 2},
    {"UnknownHost", {"--host", "odd", "show", "@good.musicxml"}, 2},
    {"LooseDashes", {"merge", "--"}, 2},
    {"EmptyName", {"merge", "", "-o", "@out.xml"}, 2},
    {"NoOutput", {"merge", "@good.musicxml"}, 2},
    {"ValueMissing", {"merge", "@good.musicxml", "-o"}, 2},
    {"ValueUnwanted", {"merge", "@good.musicxml", "--quiet=3", "-o", "@out.xml"}, 2},
    {"NoSuchLayer", {"merge", "@good.musicxml", "--to", "9", "-o", "@out.xml"}, 2},
    {"SameLayer", {"merge", "@good.musicxml", "--from", "1", "--to", "1", "-o", "@out.xml"}, 2},
    {"NoSuchStaff", {"merge", "@good.musicxml", "--staves", "9", "-o", "@out.xml"}, 2},
    {"NoSuchPart", {"merge", "@good.musicxml", "--part", "Oboe", "-o", "@out.xml"}, 2},
    {"WrongExtension", {"merge", "@good.musicxml", "-o", "@out.pdf"}, 2},
    {"IntoNoFolder", {"merge", "@good.musicxml", "-o", "@none/out.xml"}, 1},
    {"NothingToReplace",
     {"merge", "@good.musicxml", "--from", "3", "--replace", "-o", "@out.xml"},
     1},
    {"NoSuchPluginCommand", {"run", "@good.musicxml", "--command", "Alto"}, 1},
    {"MissingFile", {"show", "@none.xml"}, 3},
    {"Folder", {"show", "@."}, 3},
    {"Tags", {"show", "@tags.xml"}, 3},
    {"SecondFile", {"compare", "@good.musicxml", "@tags.xml"}, 3},
    {"Empty", {"show", "@empty.xml"}, 3},
    {"OtherRoot", {"show", "@other.xml"}, 3},
    {"Timewise", {"show", "@timewise.xml"}, 3},
    {"NoPart", {"show", "@nothing.xml"}, 3},
    {"TextBefore", {"show", "@text.xml"}, 3},
    {"DamagedArchive", {"show", "@damaged.mxl"}, 3},
    {"Utf16", {"show", "@utf16.xml"}, 3},
    {"UnknownEncoding", {"show", "@unknown.xml"}, 3},
    {"InvalidBytes", {"show", "@bytes.xml"}, 3},
    {"Duration", {"show", "@duration.xml"}, 3},
    {"Backup", {"show", "@backup.xml"}, 0},
    {"Pitch", {"show", "@pitch.xml"}, 3},
};

INSTANTIATE_TEST_SUITE_P(Messages, SpanishCommand, testing::ValuesIn(kCommands), standin::kByName);

// Code that has no texts for users: of scripts, of faults in the project itself.
bool SpeaksToDevelopers(const std::string& file) {
    return file.starts_with("texts/") || file.starts_with("desktop/script/") ||
           file == "desktop/desktop_program.cpp" || file == "score/entry_form.cpp" ||
           file == "cli/usage/completion.cpp" || file == "verify/score_facts.cpp";
}

// A message in the code is one without a translation.
TEST(Messages, AreAllInTheTableOfTexts) {
    const std::filesystem::path host{PLYWELD_HOST_SOURCES};
    const std::regex literal{R"re("((?:[^"\\\n]|\\.)*)")re"};
    const std::regex words{R"([A-Za-z]+ \w+ \w+)"};
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator{host}) {
        const std::string name = entry.path().lexically_relative(host).generic_string();
        if (entry.path().extension() != ".cpp" || SpeaksToDevelopers(name)) {
            continue;
        }
        ++files;
        std::ifstream stream{entry.path()};
        for (std::string line; std::getline(stream, line);) {
            line = line.substr(0, line.find("// "));
            for (std::sregex_iterator at{line.begin(), line.end(), literal}, end; at != end; ++at) {
                const std::string text = (*at)[1].str();
                EXPECT_FALSE(std::regex_search(text, kEnglish) && std::regex_search(text, words))
                    << name << ": " << text;
            }
        }
    }
    EXPECT_GT(files, 100);
}

}  // namespace
