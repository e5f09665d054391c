#include "host/cli/open_score.h"

#include <iostream>
#include <iterator>
#include <utility>

#include "host/cli/output_file.h"

namespace standin::cli {

namespace {

ReadResult Read(const std::string& name, Document& into, OwnLayers own) {
    if (name != kStandardStream) {
        return ReadScore(PathOf(name), &into, own);
    }
    std::string bytes{std::istreambuf_iterator<char>{std::cin}, {}};
    return ReadScore(std::move(bytes), &into, own);
}

}  // namespace

OpenScore::OpenScore(const std::string& name, OwnLayers own)
    : m_document{App().OpenDocument(PathOf(name).u16string())} {
    App().SetCurrentDocument(m_document.Number());
    ReadResult result = Read(name, m_document, own);
    m_score = std::move(result.score);
    const std::string shown = name == kStandardStream ? "standard input" : name;
    if (m_score == nullptr) {
        std::cerr << "plyweld: " << shown;
        if (result.line > 0) {
            std::cerr << ':' << result.line;
        }
        std::cerr << ": " << result.message << '\n';
        return;
    }
    for (const ReadWarning& warning : m_score->warnings.All()) {
        std::cerr << "plyweld: " << shown << ':' << warning.line << ": warning: " << warning.Words()
                  << '\n';
    }
}

OpenScore::~OpenScore() {
    App().CloseDocument(m_document.Number());
}

}  // namespace standin::cli
