// The command's options, stored where the plug-in reads them: a value of the registry.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/verify/merge_options.h"

namespace standin::cli {

// The registry key of the plug-in's settings.
inline constexpr const char* kBaseKey = "Software\\ZKW\\Finale Plugin Prefs";

// Writes the options to the registry; restores the previous value when the object ends.
class StoredOptions {
public:
    explicit StoredOptions(const MergeOptions& options);
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
