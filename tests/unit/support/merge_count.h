// The number of repetitions of tests that could continue forever.
#pragma once

#include <cstdlib>

#include "shell/host/host_types.h"

namespace standin {

inline u32 NumberFromEnvironment(const char* name, u32 otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : static_cast<u32>(std::strtoul(text, nullptr, 10));
}

// Merges of made-up music.
inline u32 MergeCount() {
    return NumberFromEnvironment("PLYWELD_MERGES", 5000);
}

}  // namespace standin
