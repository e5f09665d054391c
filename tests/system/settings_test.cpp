// The command's options in the real registry: read at each run and stored after it.
#include <gtest/gtest.h>
#include <string>

#include "host/cli/commands/plugin.h"
#include "host/musicxml/read/read_score.h"
#include "host/score/application.h"
#include "tests/system/user_registry.h"

namespace {

using standin::cli::Plugin;
using system_test::ClearSettings;
using system_test::kBaseKey;
using system_test::ReadValue;
using system_test::WriteValue;

using Bytes = std::vector<std::uint8_t>;

const std::wstring kCurrentKey = kBaseKey + L"\\Plyweld";
const std::wstring kValue = L"ZKCF22000";

const Bytes kDefaults{12, 0, 0xFF, 0xFF, 0, 0, 0, 0, 1, 0, 0, 0};
const Bytes kFirstIntoSecond{12, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};

constexpr const char* kTwoVoices = R"(<score-partwise version="4.0">
<part-list><score-part id="P1"><part-name>Choir</part-name></score-part></part-list>
<part id="P1"><measure number="1"><attributes><divisions>1</divisions></attributes>
<note><pitch><step>G</step><octave>4</octave></pitch><duration>4</duration><voice>1</voice></note>
<backup><duration>4</duration></backup>
<note><pitch><step>E</step><octave>4</octave></pitch><duration>4</duration><voice>2</voice></note>
</measure></part></score-partwise>)";

class Settings : public testing::Test {
protected:
    void SetUp() override {
        ClearSettings();
        standin::App().Reset();
        standin::App().faults.guardFrames = true;
        m_document = &standin::App().OpenDocument(u"two voices");
        m_score = standin::ReadScore(std::string{kTwoVoices}, m_document);
        ASSERT_TRUE(m_score) << m_score.message;
    }
    void TearDown() override { ClearSettings(); }

    // Runs the command once over the whole score, with Shift held.
    void Run() {
        const EREGION whole = m_document->WholeRegion();
        m_document->selection = whole;
        std::string problem;
        const auto plugin = Plugin::Start(problem);
        ASSERT_TRUE(plugin) << problem;
        plugin->RunCommand(0, &whole, whole);
        EXPECT_EQ(standin::App().lent.Count(), 0U);
    }

    // The notes of the first entry; 0 when the layer is empty or starts with a rest.
    int NotesIn(u16 layer) const {
        const u16 staff = m_document->StaffInSlot(1, 0);
        const standin::Frame* frame = m_document->FindFrame({staff, 1, layer});
        return frame == nullptr || frame->entries.empty() ? 0 : frame->entries[0].noteCount;
    }

    static void ExpectStored(const Bytes& bytes) {
        const auto value = ReadValue(kCurrentKey, kValue);
        ASSERT_TRUE(value);
        EXPECT_EQ(value->type, system_test::kBinary);
        EXPECT_EQ(value->bytes, bytes);
    }

private:
    standin::Document* m_document = nullptr;
    standin::ReadResult m_score;
};

TEST_F(Settings, FirstRunMergesAllIntoLayerOneAndStoresTheDefaults) {
    Run();
    EXPECT_EQ(NotesIn(0), 2);
    EXPECT_EQ(NotesIn(1), 0);
    ExpectStored(kDefaults);
}

TEST_F(Settings, StoredOptionsDecideTheRun) {
    WriteValue(kCurrentKey, kValue, kFirstIntoSecond);
    Run();
    EXPECT_EQ(NotesIn(0), 0);
    EXPECT_EQ(NotesIn(1), 2);
    ExpectStored(kFirstIntoSecond);
}

TEST_F(Settings, ValueOfTheBaseKeyMovesToTheCurrentOne) {
    WriteValue(kBaseKey, L"Plyweld", kFirstIntoSecond);
    WriteValue(kBaseKey, L"Neighbour", {7});
    Run();
    EXPECT_EQ(NotesIn(1), 2);
    ExpectStored(kFirstIntoSecond);
    EXPECT_FALSE(ReadValue(kBaseKey, L"Plyweld"));
    EXPECT_TRUE(ReadValue(kBaseKey, L"Neighbour"));
}

}  // namespace
