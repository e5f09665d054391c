#include "host/desktop/dialogs/file_prompts.h"

#include <string>

namespace standin::desktop {

namespace {

constexpr wchar_t kKinds[] =
    L"MusicXML (*.musicxml; *.xml; *.mxl)\0*.musicxml;*.xml;*.mxl\0All files\0*.*\0";
constexpr std::size_t kLongestPath = 32768;

OPENFILENAMEW Question(HWND owner, std::wstring& path) {
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = kKinds;
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.lpstrDefExt = L"musicxml";
    question.Flags = OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    return question;
}

}  // namespace

std::optional<std::filesystem::path> AskForFileToOpen(HWND owner) {
    std::wstring path(kLongestPath, L'\0');
    OPENFILENAMEW question = Question(owner, path);
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
    OPENFILENAMEW question = Question(owner, path);
    question.Flags |= OFN_OVERWRITEPROMPT;
    if (GetSaveFileNameW(&question) == 0) {
        return std::nullopt;
    }
    return std::filesystem::path{path.c_str()};
}

}  // namespace standin::desktop
