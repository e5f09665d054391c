// The open scores: their files, and whether they have unsaved changes.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "host/musicxml/imported_score.h"
#include "host/score/application.h"

namespace standin::desktop {

class OpenDocuments {
public:
    // Opens a MusicXML file as the current document. 0: refused, problem then says why.
    u16 Open(const std::filesystem::path& file, std::string& problem);
    // Writes it as MusicXML; the document belongs to that file from then on. False: not written.
    bool Save(u16 document, const std::filesystem::path& file, std::string& problem);
    // Another document becomes current when the current one closes.
    void Close(u16 document);

    // Null for an unknown document.
    const ImportedScore* ScoreOf(u16 document) const;
    std::filesystem::path FileOf(u16 document) const;  // empty for an unknown document
    // What reading it found to be wrong, a line each with its place in the file.
    std::string WarningsOf(u16 document) const;
    // Differs from what was opened or last saved. Compares the whole score.
    bool IsChanged(u16 document) const;

private:
    struct Entry {
        std::unique_ptr<ImportedScore> score;
        std::filesystem::path file;
        u64 savedDigest = 0;
    };

    std::map<u16, Entry> m_entries;
};

}  // namespace standin::desktop
