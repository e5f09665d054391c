#include <gtest/gtest.h>
#include <string>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/PartScope.h"
#include "platform/headless/session.h"
#include "tests/unit/support/mannered.h"
#include "tests/unit/support/stand_in.h"

namespace {

using platform::headless::Language;
using standin::App;

class Errors : public testing::Test {
protected:
    ~Errors() override {
        g_pendingError.reset();
        platform::headless::Reset();
    }

    static std::u16string LastAlert() {
        return App().alerts.empty() ? u"no alert" : App().alerts.back().text;
    }

    standin::StandIn host;
};

TEST_F(Errors, OnlyTheFirstIsShown) {
    PostRecordError<FinPISaveEDataFailed>("Op", HostTag("pfMS"));
    PostError(FinPINoOpenDocumentError());
    platform::headless::SetLanguage(Language::kSpanish);
    EXPECT_EQ(ReportPendingError(), 1);
    EXPECT_EQ(LastAlert(), u"Op -< No se pueden guardar los datos de Enigma. EXTAG es 'pfMS'.");
    EXPECT_EQ(ReportPendingError(), 0);
    EXPECT_EQ(App().alerts.size(), 1U);
    platform::headless::SetLanguage(Language::kEnglish);
    PostError(FinPINoOpenDocumentError());
    platform::headless::SetLanguage(Language::kSpanish);
    ReportPendingError();
    EXPECT_EQ(LastAlert(), u"No hay documento abierto.");
    PostError(FinPIAppError("Op", "What."));
    platform::headless::SetLanguage(Language::kEnglish);
    ReportPendingError();
    EXPECT_EQ(LastAlert(), u"Internal Application Error at Op->What.");
}

TEST_F(Errors, MayBeReportedWhileAnotherIsShown) {
    App().alertListener = [](const standin::Alert&) {
        App().alertListener = nullptr;
        PostError(FinPINoOpenDocumentError());
        EXPECT_EQ(ReportPendingError(), 1);
    };
    PostError(FinPIAppError("first", "1"));
    EXPECT_EQ(ReportPendingError(), 1);
    EXPECT_EQ(App().alerts.size(), 2U);
    EXPECT_EQ(LastAlert(), u"No open document.");
    EXPECT_EQ(g_pendingError, nullptr);
}

TEST_F(Errors, OfTheAlertItselfAreNotKept) {
    App().alertListener = [](const standin::Alert&) { PostError(FinPIAppError("second", "2")); };
    PostError(FinPIAppError("first", "1"));
    ReportPendingError();
    App().alertListener = nullptr;
    EXPECT_EQ(g_pendingError, nullptr);
}

TEST_F(Errors, LongTextsAreTruncated) {
    const FinPIAppError error(std::string(150, 'f').c_str(), std::string(300, 'd').c_str());
    EXPECT_EQ(error.m_function, std::string(99, 'f'));
    EXPECT_EQ(error.m_detail, std::string(255, 'd'));
}

TEST_F(Errors, UnreadableTextPostsConversionError) {
    platform::headless::RefuseTextConversions(true);
    PostError(FinPINoOpenDocumentError());
    ASSERT_NE(g_pendingError, nullptr);
    EXPECT_EQ(g_pendingError->m_msgID, 29999U);
    EXPECT_STREQ(g_pendingError->m_message, "");
    platform::headless::RefuseTextConversions(false);
    ReportPendingError();
    EXPECT_NE(LastAlert().find(u"UTF8 conversion failed."), std::u16string::npos);
}

// Whatever the switching call returns, the previous document becomes current again.
TEST(DocumentScopes, CheckCurrentDocumentNotResult) {
    for (const standin::Manner& manner : standin::kManners) {
        standin::StandIn host;
        const standin::Mannered mannered{manner};
        const u16 first = App().CurrentNumber();
        const u16 second = App().OpenDocument(u"second").Number();
        {
            const DocumentScope switched{second};
            EXPECT_TRUE(switched) << manner.name;
            EXPECT_FALSE(DocumentScope{77}) << manner.name;
            EXPECT_EQ(App().CurrentNumber(), second) << manner.name;
            host.Score().AddPart(1, u"Flute");
            const DocumentScope back{first};
            EXPECT_TRUE(PartScope{1}) << manner.name;
            EXPECT_FALSE(PartScope{2}) << manner.name;
            EXPECT_EQ(host.Score().currentPart, 0) << manner.name;
        }
        EXPECT_EQ(App().CurrentNumber(), first) << manner.name;
    }
}

// A host without parts answers -1 and has only the score.
TEST(PartScopes, ScoreIsCurrentWithoutParts) {
    standin::StandIn host;
    host.Score().currentPart = -1;
    App().ResetCounts();
    EXPECT_TRUE(PartScope{PartScope::kScore});
    EXPECT_EQ(App().calls.Of(standin::HostCall::kSetCurrentPartID), 0U);
    EXPECT_FALSE(PartScope{1});
}

TEST(DocumentScopes, SwitchAndRestore) {
    standin::StandIn host;
    const u16 first = App().CurrentNumber();
    const u16 second = App().OpenDocument(u"second").Number();
    EXPECT_TRUE(DocumentScope{}) << "on the document that is current";
    for (const u16 wanted : {first, second, u16{77}}) {
        App().ResetCounts();
        const DocumentScope scope(wanted);
        EXPECT_EQ(static_cast<bool>(scope), wanted != 77);
        EXPECT_EQ(App().CurrentNumber(), wanted == second ? second : first);
        EXPECT_EQ(App().calls.Total() == 1, wanted == first);
    }
    EXPECT_EQ(App().CurrentNumber(), first);
}

}  // namespace
