// Where a script is: the window it works in, and where its files are.
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
    std::filesystem::path folder;    // relative files are looked for here
    std::filesystem::path pictures;  // screenshots go here
    ScriptLanguage language = ScriptLanguage::kEnglish;
    // The title of the window the script works in; nothing = the front dialog.
    std::optional<std::wstring> title = {};
    ObjectCounts objects = {};  // as the script last counted them

    // The window the script works in; null when it is not there.
    HWND Target() const;
    // A control of it by its number; null when it has none.
    HWND Control(const std::string& number) const;
};

// The language of the plug-in's texts in this session.
ScriptLanguage SessionLanguage();

}  // namespace standin::desktop
