// Any file as a score: it is read or refused with one line; what is read can be written and read
// again, with the same music.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "host/musicxml/music/compare.h"
#include "host/musicxml/read/read_score.h"
#include "host/musicxml/write/write_score.h"

using namespace standin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ReadResult score = ReadScore(std::string{reinterpret_cast<const char*>(data), size});
    if (!score) {
        if (score.message.empty() || score.message.find('\n') != std::string::npos) {
            std::cerr << "refused with: " << score.message << '\n';
            std::abort();
        }
        return 0;
    }
    const std::string written = WriteScore(*score.score, {.rebuildAll = true});
    if (written.empty() && !score.score->archive.empty()) {
        return 0;  // the archive is damaged beside the score
    }
    const ReadResult again = ReadScore(written);
    if (!again) {
        std::cerr << "written, but not readable: " << again.message << '\n';
        std::abort();
    }
    return 0;
}
