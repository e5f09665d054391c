#include "host/desktop/window/open_documents.h"

#include <utility>

#include "host/cli/io/output_file.h"
#include "host/musicxml/read/read_score.h"
#include "host/musicxml/write/write_score.h"

namespace standin::desktop {

u16 OpenDocuments::Open(const std::filesystem::path& file, std::string& problem) {
    Document& document = App().OpenDocument(file.u16string());
    const u16 number = document.Number();
    // Any layer may be chosen in the dialog, so none takes in a voice that is not its own.
    constexpr OwnLayers kAll{true, true, true, true};
    ReadResult read = ReadScore(file, &document, kAll);
    if (!read) {
        App().CloseDocument(number);
        problem = read.message;
        return 0;
    }
    m_entries[number] = {std::move(read.score), file, document.Digest()};
    App().SetCurrentDocument(number);
    return number;
}

bool OpenDocuments::Save(u16 document, const std::filesystem::path& file, std::string& problem) {
    const auto found = m_entries.find(document);
    if (found == m_entries.end()) {
        problem = Say(Text::kDocumentNotOpen, {});
        return false;
    }
    problem.clear();
    const std::string bytes = WriteScore(*found->second.score, {}, &problem);
    if (problem.empty()) {
        problem = cli::WriteWhole(cli::TextOf(file), bytes);
    }
    if (!problem.empty()) {
        return false;
    }
    Document& saved = *App().FindDocument(document);
    saved.SetPath(file.u16string());
    found->second.file = file;
    found->second.savedDigest = saved.Digest();
    return true;
}

void OpenDocuments::Close(u16 document) {
    App().CloseDocument(document);
    m_entries.erase(document);
}

const ImportedScore* OpenDocuments::ScoreOf(u16 document) const {
    const auto found = m_entries.find(document);
    return found == m_entries.end() ? nullptr : found->second.score.get();
}

std::filesystem::path OpenDocuments::FileOf(u16 document) const {
    const auto found = m_entries.find(document);
    return found == m_entries.end() ? std::filesystem::path{} : found->second.file;
}

std::string OpenDocuments::WarningsOf(u16 document) const {
    std::string lines;
    const auto found = m_entries.find(document);
    if (found != m_entries.end()) {
        for (const ReadWarning& warning : found->second.score->warnings.All()) {
            lines +=
                '\n' + Say(Text::kWarningInLine, {std::to_string(warning.line), warning.Words()});
        }
    }
    return lines;
}

bool OpenDocuments::IsChanged(u16 document) const {
    const auto found = m_entries.find(document);
    const Document* open = App().FindDocument(document);
    return found != m_entries.end() && open != nullptr &&
           open->Digest() != found->second.savedDigest;
}

}  // namespace standin::desktop
