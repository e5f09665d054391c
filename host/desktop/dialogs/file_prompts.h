// The dialogs for a file name.
#pragma once

#include <filesystem>
#include <optional>

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

// Nothing if the user cancels.
std::optional<std::filesystem::path> AskForFileToOpen(HWND owner);
std::optional<std::filesystem::path> AskForFileToSave(HWND owner,
                                                      const std::filesystem::path& present);

}  // namespace standin::desktop
