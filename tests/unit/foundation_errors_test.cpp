#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <tuple>

#include "Class Files/foundation/AlertPrintf.h"
#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "platform/headless/session.h"
#include "shell/host/callbacks.h"
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

template <typename Error>
std::unique_ptr<FinPIException> RecordError(const char* function) {
    auto error = std::make_unique<Error>(function);
    error->m_extag = HostTag("pfMS");
    return error;
}

// Of long texts the beginning.
TEST_F(Errors, EachSaysWhatFailed) {
    const std::pair<std::unique_ptr<FinPIException>, std::u16string> cases[] = {
        {std::make_unique<FinPIAppError>("FinPI::Invoke", "What."),
         u"Internal Application Error at FinPI::Invoke->What."},
        {RecordError<FinPILoadEDataFailed>("Op"),
         u"Op->Unable to load Enigma Data. EXTAG is 'pfMS'."},
        {RecordError<FinPICreateEDataFailed>("Op"),
         u"Op->Unable to create Enigma Data. EXTAG is 'pfMS'."},
        {RecordError<FinPISaveEDataFailed>("Op"),
         u"Op->Unable to save Enigma Data. EXTAG is 'pfMS'."},
        {RecordError<FinPIDeleteEDataFailed>("Op"),
         u"Op->Unable to delete Enigma Data. EXTAG is 'pfMS'."},
        {std::make_unique<FinPIConfigWriteError>("Op"), u"Op->Unable to write to config"},
        {std::make_unique<FinPISerialVersionError>("Op"), u"Op->Stored item is not compatible"},
        {std::make_unique<FinPISerialVersionFinaleError>("Op"), u"Op->Gespeichertes Objekt"},
        {std::make_unique<FinPINoOpenDocumentError>(), u"No open document."},
        {std::make_unique<FinPINotPageViewVisibleError>(), u"Cannot process measures that"},
        {std::make_unique<FinPIEntryNotVisibleError>(), u"Cannot process notes that are invis"},
    };
    for (const auto& [error, beginning] : cases) {
        PostError(*error);
        EXPECT_EQ(ReportPendingError(), 1);
        EXPECT_EQ(LastAlert().substr(0, beginning.size()), beginning);
    }
    EXPECT_EQ(App().alerts.back().kind, 0);
    EXPECT_EQ(App().alerts.back().stringId, 0);
}

TEST_F(Errors, TheTextIsThatOfTheLanguageInWhichItIsShown) {
    PostError(*RecordError<FinPISaveEDataFailed>("Op"));
    platform::headless::SetLanguage(Language::kSpanish);
    ReportPendingError();
    EXPECT_EQ(LastAlert(), u"Op -< No se pueden guardar los datos de Enigma. EXTAG es 'pfMS'.");
}

TEST_F(Errors, OnlyTheFirstIsKeptAndShownOnce) {
    PostError(FinPIAppError("first", "1"));
    PostError(FinPINoOpenDocumentError());
    EXPECT_EQ(g_pendingError->m_msgID, 29999U);
    EXPECT_EQ(ReportPendingError(), 1);
    EXPECT_EQ(g_pendingError, nullptr);
    EXPECT_EQ(ReportPendingError(), 0);
    EXPECT_EQ(App().alerts.size(), 1U);
}

TEST_F(Errors, LongTextsAreCut) {
    const FinPIAppError error(std::string(150, 'f').c_str(), std::string(300, 'd').c_str());
    EXPECT_EQ(error.m_function, std::string(99, 'f'));
    EXPECT_EQ(error.m_detail, std::string(255, 'd'));
}

TEST_F(Errors, TagsKeepBytesThatDoNotPrint) {
    PostRecordError<FinPILoadEDataFailed>("Op", HostTag("O\x03OM"));
    ReportPendingError();
    EXPECT_EQ(LastAlert(), u"Op->Unable to load Enigma Data. EXTAG is 'O\x03OM'.");
}

TEST_F(Errors, AnErrorWhoseTextCannotBeReadGivesItsPlaceToTheConversionError) {
    platform::headless::RefuseTextConversions(true);
    PostError(FinPINoOpenDocumentError());
    ASSERT_NE(g_pendingError, nullptr);
    EXPECT_EQ(g_pendingError->m_msgID, 29999U);
    platform::headless::RefuseTextConversions(false);
    ReportPendingError();
    EXPECT_NE(LastAlert().find(u"UTF8 conversion failed."), std::u16string::npos);
}

TEST_F(Errors, AlertsAreFormattedAndGiveTheHostsAnswer) {
    EXPECT_NE(AlertPrintf("%s %d", "Compás", 7), 0);
    EXPECT_EQ(LastAlert(), u"Compás 7");
    platform::headless::HideHostFunction("FX_AlertMessage_UTF16");
    EXPECT_EQ(App().alerts.size(), 1U);
}

TEST(DocumentScopes, SwitchForTheirLengthAndAskOnceWhenThereIsNothingToDo) {
    standin::StandIn host;
    const u16 first = App().CurrentNumber();
    const u16 second = App().OpenDocument(u"second").Number();
    const std::tuple<u16, bool, u16> cases[] = {
        {first, true, first}, {second, true, second}, {77, false, first}};
    for (const auto& [wanted, isThere, current] : cases) {
        const DocumentScope scope(wanted);
        EXPECT_EQ(static_cast<bool>(scope), isThere);
        EXPECT_EQ(App().CurrentNumber(), current);
    }
    EXPECT_EQ(App().CurrentNumber(), first);
    App().ResetCounts();
    { const DocumentScope same(first); }
    EXPECT_EQ(App().calls.Total(), 1U);
}

}  // namespace
