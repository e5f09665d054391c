// The plug-in's file as Windows sees it: its version, its texts, the folder it lies in.
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "host/cli/commands/plugin.h"
#include "host/system/machine.h"
#include "platform/resources.h"
#include "shell/host/host_functions.h"
#include "tests/system/file_version.h"

namespace {

namespace fs = std::filesystem;
using standin::cli::Plugin;
using standin::machine::kPluginFile;
using standin::machine::Library;
using standin::machine::ProgramFolder;

template <typename Function>
Function* Export(const Library& library, const char* name) {
    return reinterpret_cast<Function*>(library.FindExport(name));
}

void ExpectTexts(const char16_t* description, u32 id, const char16_t* text) {
    std::string problem;
    const auto plugin = Plugin::Start(problem);
    ASSERT_TRUE(plugin) << problem;
    const auto library = Library::Open(ProgramFolder() / kPluginFile, problem);
    MenuItemDescriptor item{};
    Export<FinaleExtensionEnumerateFunction>(*library, "FinaleExtensionEnumerate_UTF16")(nullptr, 0,
                                                                                         &item);
    EXPECT_TRUE(std::u16string{item.text} == u"Plyweld...");
    EXPECT_TRUE(std::u16string{item.description} == description);
    EXPECT_TRUE(platform::ResourceString(id) == text);
}

// Run with the user's language set to English.
TEST(Texts, EnglishUserReadsEnglish) {
    ExpectTexts(u"Merges contents of two or more layers into a single layer.", 22003,
                u"No Selection Exists.");
}

// Run with the user's language set to Spanish.
TEST(Texts, SpanishUserReadsSpanish) {
    ExpectTexts(u"Unir el contenido de dos o m\u00e1s capas en una \u00fanica capa.", 20075,
                u"Todas las capas");
}

TEST(PluginFile, CarriesItsVersion) {
    const system_test::FileVersion version = system_test::VersionOf(ProgramFolder() / kPluginFile);
    EXPECT_EQ(version.text, L"" PLYWELD_VERSION);
    EXPECT_EQ(std::to_wstring(version.major) + L"." + std::to_wstring(version.minor), version.text);
}

// The plug-in's result when it is started beside the named folder.
i16 StartBeside(const wchar_t* neighbour) {
    const fs::path folder = fs::temp_directory_path() / L"plyweld folder check";
    fs::remove_all(folder);
    fs::create_directories(folder / neighbour);
    fs::copy_file(ProgramFolder() / kPluginFile, folder / kPluginFile);
    std::string problem;
    u32 flags = 0;
    i16 answer = -1;
    if (const auto library = Library::Open(folder / kPluginFile, problem)) {
        answer =
            Export<FinaleExtensionInitFunction>(*library, "FinaleExtensionInit")(nullptr, &flags);
    }
    fs::remove_all(folder);
    return answer;
}

TEST(PluginFile, RefusesToStartBesideTheFoldersOfAnotherInstallation) {
    EXPECT_EQ(StartBeside(L"Transpose"), 0);
    EXPECT_EQ(StartBeside(L"Staff Sets.old"), 0);
    EXPECT_EQ(StartBeside(L"transpose"), 1);
}

}  // namespace
