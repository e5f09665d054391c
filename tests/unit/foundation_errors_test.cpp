#include <gtest/gtest.h>
#include <memory>
#include <string>

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

struct AlertCase {
    std::unique_ptr<FinPIException> error;
    const char16* english;
    const char16* spanish;
};

TEST_F(Errors, EachSaysWhatFailedInBothLanguages) {
    const AlertCase cases[] = {
        {std::make_unique<FinPIAppError>("FinPI::Invoke", "What."),
         u"Internal Application Error at FinPI::Invoke->What.",
         u"Error interno de la aplicación en FinPI::Invoke-<What."},
        {RecordError<FinPILoadEDataFailed>("Op"),
         u"Op->Unable to load Enigma Data. EXTAG is 'pfMS'.",
         u"Op-< No se pueden cargar los datos de Enigma. EXTAG es 'pfMS'."},
        {RecordError<FinPICreateEDataFailed>("Op"),
         u"Op->Unable to create Enigma Data. EXTAG is 'pfMS'.",
         u"\"Op-< No se pueden crear datos de Enigma. EXTAG es 'pfMS'."},
        {RecordError<FinPISaveEDataFailed>("Op"),
         u"Op->Unable to save Enigma Data. EXTAG is 'pfMS'.",
         u"Op -< No se pueden guardar los datos de Enigma. EXTAG es 'pfMS'."},
        {RecordError<FinPIDeleteEDataFailed>("Op"),
         u"Op->Unable to delete Enigma Data. EXTAG is 'pfMS'.",
         u"Op-< No se pueden eliminar los datos de Enigma. EXTAG es 'pfMS'."},
        {std::make_unique<FinPIConfigWriteError>("Op"),
         u"Op->Unable to write to configuration data.",
         u"\"Op-< No se puede escribir en los datos de configuración."},
        {std::make_unique<FinPISerialVersionError>("Op"),
         u"Op->Stored item is not compatible with this version of Orvandel Plug-Ins.",
         u"Op-< El elemento almacenado no es compatible con esta versión de plugins de "
         u"Orvandel."},
        {std::make_unique<FinPISerialVersionFinaleError>("Op"),
         u"Op->Gespeichertes Objekt ist mit dieser Version von Finale nicht kompatibel.",
         u"Op-< Gespeichertes Objekt ist mit dieser Version von Finale nicht kompatibel."},
        {std::make_unique<FinPINoOpenDocumentError>(), u"No open document.",
         u"No hay documento abierto."},
        {std::make_unique<FinPINotPageViewVisibleError>(),
         u"Cannot process measures that are not visible in Page View. To avoid this, turn off "
         u"Special Part Extraction and/or re-optimize your staff systems.",
         u"No se pueden procesar medidas que no son visibles en la Vista de página. Para evitar "
         u"esto, desactive la extracción de piezas especiales y/o vuelva a optimizar sus sistemas "
         u"de pentagramas."},
        {std::make_unique<FinPIEntryNotVisibleError>(),
         u"Cannot process notes that are invisible. To avoid this, turn off the Ignore bit (Speedy "
         u"'O') and/or remove Alternate Notation.",
         u"No se pueden procesar notas que son invisibles. Para evitar esto, desactivar el bit "
         u"Ignorar (Introducción rápida 'O') y/o eliminar la notación alternativa."},
    };
    for (const AlertCase& c : cases) {
        // The error keeps its class in the slot, and asks for its text when it is shown.
        platform::headless::SetLanguage(Language::kEnglish);
        PostError(*c.error);
        EXPECT_EQ(ReportPendingError(), 1);
        EXPECT_EQ(LastAlert(), c.english);

        PostError(*c.error);
        platform::headless::SetLanguage(Language::kSpanish);
        EXPECT_EQ(ReportPendingError(), 1);
        EXPECT_EQ(LastAlert(), c.spanish);
    }
    EXPECT_EQ(App().alerts.back().kind, 0);
    EXPECT_EQ(App().alerts.back().stringId, 0);
}

TEST_F(Errors, OnlyTheFirstIsKeptAndShownOnce) {
    PostError(FinPIAppError("first", "1"));
    PostError(FinPINoOpenDocumentError());
    EXPECT_EQ(g_pendingError->m_msgID, 29999U);
    EXPECT_EQ(ReportPendingError(), 1);
    EXPECT_EQ(g_pendingError, nullptr);
    EXPECT_EQ(ReportPendingError(), 0);
    EXPECT_EQ(App().alerts.size(), 1U);
    EXPECT_EQ(LastAlert(), u"Internal Application Error at first->1");
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

    App().ResetCounts();
    {
        const DocumentScope same(first);
        EXPECT_TRUE(same);
    }
    EXPECT_EQ(App().calls.Total(), 1U);
    {
        const DocumentScope other(second);
        EXPECT_TRUE(other);
        EXPECT_EQ(App().CurrentNumber(), second);
    }
    EXPECT_EQ(App().CurrentNumber(), first);
    {
        const DocumentScope none(77);
        EXPECT_FALSE(none);
        EXPECT_EQ(App().CurrentNumber(), first);
    }
    EXPECT_EQ(App().CurrentNumber(), first);
}

}  // namespace
