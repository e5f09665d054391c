// The command's options where the plug-in reads them: a value of the registry.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "shell/host/host_types.h"

namespace standin::cli {

struct CommandOptions {
    static constexpr u16 kAllLayers = 0xFFFF;

    u16 sourceLayer = kAllLayers;  // from 0
    u16 destinationLayer = 0;      // from 0
    bool replace = false;
    bool rebeam = true;
    bool hideRests = false;

    // The record that the plug-in stores: six 16-bit words, the first its own size.
    std::array<u8, 12> Record() const;
};

// Puts the options into the registry; what stood there comes back when the object ends.
class StoredOptions {
public:
    explicit StoredOptions(const CommandOptions& options);
    ~StoredOptions();
    StoredOptions(const StoredOptions&) = delete;
    StoredOptions& operator=(const StoredOptions&) = delete;

    explicit operator bool() const noexcept { return m_written; }

private:
    bool m_written = false;
    bool m_hadKey = false;
    std::optional<std::vector<u8>> m_before;
};

}  // namespace standin::cli
