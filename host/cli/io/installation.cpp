#include "host/cli/io/installation.h"

#include <algorithm>
#include <filesystem>
#include <initializer_list>

#include "host/cli/io/output_file.h"
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

// Natively the folder holds other libraries, too.
bool IsPluginName(const std::filesystem::path& file) {
    const std::filesystem::path name{machine::kPluginFile};
    return file.extension() == name.extension() &&
           TextOf(file.stem()).starts_with(TextOf(name.stem()));
}

}  // namespace

std::string PluginFile() {
    const std::filesystem::path beside = machine::ProgramFolder() / machine::kPluginFile;
    const std::string found = FirstOf(
        {beside, machine::ProgramFolder() / ".." / "lib" / "plyweld" / machine::kPluginFile});
    return found.empty() ? TextOf(beside) : found;
}

std::vector<std::string> PluginFiles() {
    const std::filesystem::path first = PathOf(PluginFile());
    std::vector<std::string> files;
    std::error_code failed;
    for (const auto& entry : std::filesystem::directory_iterator{first.parent_path(), failed}) {
        if (entry.path().filename() != first.filename() && IsPluginName(entry.path())) {
            files.push_back(TextOf(entry.path()));
        }
    }
    std::ranges::sort(files);
    files.insert(files.begin(), TextOf(first));
    return files;
}

std::string EngraverFile() {
    const std::filesystem::path beside = machine::ProgramFolder() / "engraver.js";
    const std::filesystem::path installed =
        std::filesystem::path{"share"} / "plyweld" / "engraver.js";
    const std::string found = FirstOf({beside, machine::ProgramFolder() / ".." / ".." / installed});
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
