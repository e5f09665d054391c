// The plug-in's file as Windows sees it: its version, its texts, the folder it lies in.
#include <windows.h>

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "host/cli/desktop.h"
#include "host/cli/plugin.h"
#include "platform/resources.h"
#include "shell/host/host_functions.h"

namespace {

using standin::cli::kPluginFile;
using standin::cli::Plugin;
using standin::cli::ProgramFolder;

std::wstring WideText(const char16* text) {
    return reinterpret_cast<const wchar_t*>(text);
}

MenuItemDescriptor CommandItem() {
    MenuItemDescriptor item{};
    HMODULE module = GetModuleHandleA(kPluginFile);
    auto* enumerate = reinterpret_cast<FinaleExtensionEnumerateFunction*>(
        reinterpret_cast<void*>(GetProcAddress(module, "FinaleExtensionEnumerate_UTF16")));
    enumerate(nullptr, 0, &item);
    return item;
}

std::wstring String(u32 id) {
    const std::u16string text{platform::ResourceString(id)};
    return WideText(text.c_str());
}

// Run with the user's language set to English.
TEST(Texts, EnglishUserReadsEnglish) {
    std::string problem;
    const auto plugin = Plugin::Start(problem);
    ASSERT_TRUE(plugin) << problem;
    const MenuItemDescriptor item = CommandItem();
    EXPECT_EQ(WideText(item.text), L"Plyweld...");
    EXPECT_EQ(WideText(item.description),
              L"Merges contents of two or more layers into a single layer.");
    EXPECT_EQ(String(22003), L"No Selection Exists.");
}

// Run with the user's language set to Spanish.
TEST(Texts, SpanishUserReadsSpanish) {
    std::string problem;
    const auto plugin = Plugin::Start(problem);
    ASSERT_TRUE(plugin) << problem;
    const MenuItemDescriptor item = CommandItem();
    EXPECT_EQ(WideText(item.text), L"Plyweld...");
    EXPECT_EQ(WideText(item.description),
              L"Unir el contenido de dos o m\u00e1s capas en una \u00fanica capa.");
    EXPECT_EQ(String(20075), L"Todas las capas");
}

TEST(PluginFile, CarriesItsVersion) {
    const std::wstring file = (ProgramFolder() / kPluginFile).wstring();
    DWORD ignored = 0;
    std::vector<BYTE> block(GetFileVersionInfoSizeW(file.c_str(), &ignored));
    ASSERT_FALSE(block.empty());
    ASSERT_TRUE(
        GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) != 0);
    void* found = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &found, &size) != 0);
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
    EXPECT_EQ(fixed->dwFileVersionMS, (6U << 16U) | 10U);
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\FileVersion", &found,
                               &size) != 0);
    EXPECT_EQ(std::wstring{static_cast<const wchar_t*>(found)}, L"6.10");
}

// What the plug-in answers when it is started from a folder that holds the named folder.
i16 StartBeside(const wchar_t* neighbour) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / L"plyweld folder check";
    fs::remove_all(folder);
    fs::create_directories(folder / neighbour);
    fs::copy_file(ProgramFolder() / kPluginFile, folder / kPluginFile);
    HMODULE module = LoadLibraryW((folder / kPluginFile).c_str());
    auto* init = reinterpret_cast<FinaleExtensionInitFunction*>(
        reinterpret_cast<void*>(GetProcAddress(module, "FinaleExtensionInit")));
    u32 flags = 0;
    const i16 answer = init(nullptr, &flags);
    FreeLibrary(module);
    fs::remove_all(folder);
    return answer;
}

TEST(PluginFile, RefusesToStartBesideTheFoldersOfAnotherInstallation) {
    EXPECT_EQ(StartBeside(L"Transpose"), 0);
    EXPECT_EQ(StartBeside(L"Staff Sets.old"), 0);
    EXPECT_EQ(StartBeside(L"transpose"), 1);
}

}  // namespace
