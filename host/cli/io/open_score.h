// A score from the command line, opened in the host program.
#pragma once

#include <string>

#include "host/musicxml/read/read_score.h"
#include "host/score/application.h"

namespace standin::cli {

// Opens a document, makes it current and reads the score into it; closes it when the scope ends. If
// the score cannot be read, prints the reason to standard error.
class OpenScore {
public:
    // own: layers that no further voice may take.
    explicit OpenScore(const std::string& name, OwnLayers own = {});
    ~OpenScore();
    OpenScore(const OpenScore&) = delete;
    OpenScore& operator=(const OpenScore&) = delete;

    explicit operator bool() const noexcept { return m_score != nullptr; }
    Document& GetDocument() const noexcept { return m_document; }
    ImportedScore& Score() const noexcept { return *m_score; }

private:
    Document& m_document;
    std::unique_ptr<ImportedScore> m_score;
};

}  // namespace standin::cli
