#include "host/cli/installation.h"

#include <filesystem>
#include <initializer_list>

#include "host/cli/output_file.h"
#include "host/system/machine.h"
#include "host/texts/texts.h"

namespace standin::cli {

namespace {

// The first of the paths that exists; empty if none does.
std::string FirstOf(std::initializer_list<std::filesystem::path> places) {
    for (const std::filesystem::path& place : places) {
        std::error_code failed;
        if (std::filesystem::exists(place, failed)) {
            return TextOf(place.lexically_normal());
        }
    }
    return {};
}

}  // namespace

std::string PluginFile() {
    const std::filesystem::path beside = machine::ProgramFolder() / machine::kPluginFile;
    const std::string found = FirstOf(
        {beside, machine::ProgramFolder() / ".." / "lib" / "plyweld" / machine::kPluginFile});
    return found.empty() ? TextOf(beside) : found;
}

std::string GuideFile() {
    const std::string name =
        CurrentLanguage() == Language::kSpanish ? "guia-del-usuario" : "user-guide";
    const std::filesystem::path folder = machine::ProgramFolder();
    const std::filesystem::path inDocuments = std::filesystem::path{"share"} / "doc" / "plyweld";
    return FirstOf({folder / "guide" / (name + ".html"),
                    folder / ".." / ".." / inDocuments / "guide" / (name + ".html")});
}

}  // namespace standin::cli
