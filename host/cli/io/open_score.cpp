#include "host/cli/io/open_score.h"

#include <iostream>
#include <iterator>
#include <utility>

#include "host/cli/io/messages.h"
#include "host/cli/io/output_file.h"

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
    if (m_score == nullptr) {
        Complain(PlaceIn(name, result.line) + ": " + result.message);
        return;
    }
    for (const ReadWarning& warning : m_score->warnings.All()) {
        Warn(PlaceIn(name, warning.line), warning.Words());
    }
}

OpenScore::~OpenScore() {
    App().CloseDocument(m_document.Number());
}

}  // namespace standin::cli
