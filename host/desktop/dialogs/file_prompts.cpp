#include "host/desktop/dialogs/file_prompts.h"

#include <string>

#include "host/desktop/toolkit/wide_text.h"

namespace standin::desktop {

namespace {

constexpr std::size_t kLongestPath = 32768;

// Pairs of a description and its patterns, each ended by a zero.
std::wstring Kinds() {
    using namespace std::string_literals;
    return WideText(Text::kFilesOfScores) + L"\0*.musicxml;*.xml;*.mxl\0"s +
           WideText(Text::kFilesOfAnyKind) + L"\0*.*\0"s;
}

OPENFILENAMEW Question(HWND owner, const std::wstring& kinds, std::wstring& path) {
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = kinds.c_str();
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.lpstrDefExt = L"musicxml";
    question.Flags = OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    return question;
}

}  // namespace

std::optional<std::filesystem::path> AskForFileToOpen(HWND owner) {
    std::wstring path(kLongestPath, L'\0');
    const std::wstring kinds = Kinds();
    OPENFILENAMEW question = Question(owner, kinds, path);
    question.Flags |= OFN_FILEMUSTEXIST;
    if (GetOpenFileNameW(&question) == 0) {
        return std::nullopt;
    }
    return std::filesystem::path{path.c_str()};
}

std::optional<std::filesystem::path> AskForFileToSave(HWND owner,
                                                      const std::filesystem::path& present) {
    std::wstring path = present.wstring().substr(0, kLongestPath - 1);
    path.resize(kLongestPath, L'\0');
    const std::wstring kinds = Kinds();
    OPENFILENAMEW question = Question(owner, kinds, path);
    question.Flags |= OFN_OVERWRITEPROMPT;
    if (GetSaveFileNameW(&question) == 0) {
        return std::nullopt;
    }
    return std::filesystem::path{path.c_str()};
}

}  // namespace standin::desktop
