#include <iostream>
#include <iterator>
#include <string>
#include <utility>

#include "host/cli/commands.h"
#include "host/cli/output_file.h"
#include "host/musicxml/xml/file_bytes.h"
#include "host/readback/compare.h"
#include "host/readback/read_content.h"

namespace standin::cli {

namespace {

readback::Reading Read(const std::string& name, readback::Texts& texts) {
    if (name == kStandardStream) {
        return readback::ReadContent({std::istreambuf_iterator<char>{std::cin}, {}}, texts);
    }
    FileBytes file = ReadFileBytes(PathOf(name));
    return file.problem.empty() ? readback::ReadContent(std::move(file.bytes), texts)
                                : readback::Reading{nullptr, std::move(file.problem), 0};
}

// If the score cannot be read, prints the reason to standard error.
std::unique_ptr<readback::Score> Open(const std::string& name, readback::Texts& texts) {
    readback::Reading reading = Read(name, texts);
    if (reading.score == nullptr) {
        std::cerr << (name == kStandardStream ? "standard input" : name);
        if (reading.line > 0) {
            std::cerr << ':' << reading.line;
        }
        std::cerr << ": " << reading.problem << '\n';
    }
    return std::move(reading.score);
}

}  // namespace

ExitCode CompareScores(const CompareCommand& command) {
    readback::Texts texts;
    const auto first = Open(command.first, texts);
    if (first == nullptr) {
        return kUnreadable;
    }
    const auto second = Open(command.second, texts);
    if (second == nullptr) {
        return kUnreadable;
    }
    const auto differences = readback::Differences(*first, *second, texts);
    for (const std::string& difference : differences) {
        std::cout << difference << '\n';
    }
    if (differences.empty()) {
        std::cout << "The music is the same\n";
    }
    return differences.empty() ? kDone : kFailed;
}

}  // namespace standin::cli
