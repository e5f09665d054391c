// A score as the bytes of a file.
#pragma once

#include <string>

#include "host/musicxml/imported_score.h"

namespace standin::cli {

// The score in the format of the output's extension; empty on failure, with the reason.
std::string BytesFor(const std::string& output, ImportedScore& score, std::string& problem);

}  // namespace standin::cli
