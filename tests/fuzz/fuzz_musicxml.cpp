// Any file as a score: it is read or refused with one line, and a score that was read can be
// written and read again. The second reader accepts or refuses the same files and finds the score
// equal to itself.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "host/musicxml/read/read_score.h"
#include "host/musicxml/write/write_score.h"
#include "host/readback/compare/compare.h"
#include "host/readback/read/read_content.h"

using namespace standin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

bool IsOneLine(const std::string& message) {
    return !message.empty() && message.find('\n') == std::string::npos;
}

void ReadAsSecond(const std::string& bytes) {
    readback::Texts texts;
    const readback::Reading first = readback::ReadContent(bytes, texts);
    const readback::Reading second = readback::ReadContent(bytes, texts);
    if (first.score == nullptr) {
        if (!IsOneLine(first.problem)) {
            std::cerr << "refused with: " << first.problem << '\n';
            std::abort();
        }
    } else if (!readback::Differences(*first.score, *second.score, texts).empty() ||
               !readback::FaultsOfMerge(*first.score, *second.score, texts).empty()) {
        std::cerr << "not the same as itself\n";
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes{reinterpret_cast<const char*>(data), size};
    ReadAsSecond(bytes);
    const ReadResult score = ReadScore(bytes);
    if (!score) {
        if (!IsOneLine(score.message)) {
            std::cerr << "refused with: " << score.message << '\n';
            std::abort();
        }
        return 0;
    }
    const std::string written = WriteScore(*score.score, {.rebuildAll = true});
    if (written.empty()) {
        return 0;  // the archive is damaged outside the score, or line numbers ran out
    }
    const ReadResult again = ReadScore(written);
    if (!again) {
        std::cerr << "written, but not readable: " << again.message << '\n';
        std::abort();
    }
    return 0;
}
