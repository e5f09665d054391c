// The state of a script: its window and its folders.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/desktop/script/object_counts.h"
#include "host/desktop/script/script_line.h"
#include "host/desktop/toolkit/windows_api.h"
#include "host/desktop/window/main_window.h"

namespace standin::desktop {

struct ScriptScene {
    MainWindow& window;
    std::filesystem::path folder;    // relative paths start here
    std::filesystem::path pictures;  // screenshots go here
    ScriptLanguage language = ScriptLanguage::kEnglish;
    // The title of the script's window; nothing = the front dialog.
    std::optional<std::wstring> title = {};
    u64 digest = 0;             // of the current document, as the script last remembered it
    ObjectCounts objects = {};  // as the script last counted them

    // The script's window; null if it does not exist.
    HWND Target() const;
    // Its control with that number; null if it has none.
    HWND Control(const std::string& number) const;
    // Of the current document's whole content; 0 if no document is open.
    u64 DocumentDigest() const;
};

// The language of the plug-in's texts in this session.
ScriptLanguage SessionLanguage();

}  // namespace standin::desktop
