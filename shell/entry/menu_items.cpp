#include "shell/entry/menu_items.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "Class Files/foundation/FinPIVarString.h"
#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "Class Files/settings/SavedSettings.h"
#include "platform/resources.h"
#include "shell/host/callbacks.h"
#include "shell/module/ModuleState.h"

namespace {

constexpr u32 kSavedSettingDescription = 20005;  // has a place for the title

constexpr std::u16string_view kShowsDialog = u"...";

struct SavedSetting {
    std::u16string name;
    bool skipsDialog;

    std::u16string Label() const {
        return skipsDialog ? name : name + std::u16string{kShowsDialog};
    }
};

u16 SettingsID() {
    return Commands().front().commandID;
}

// Of an item behind those of the commands.
std::optional<SavedSetting> FindSavedSetting(i16 item) {
    char16 name[128];
    u16 skipDialog = 0;
    const i16 number = static_cast<i16>(item - g_module.lastCommandItem);
    if (ReadSavedSetting(SettingsID(), number, name, nullptr, &skipDialog, nullptr, nullptr) == 0) {
        return std::nullopt;
    }
    return SavedSetting{{name, std::ranges::find(name, u'\0')}, skipDialog != 0};
}

// The items are to be gathered in a submenu, if there are several.
bool UseSubmenu() {
    if (g_module.itemCount < 2) {
        return false;
    }
    if (g_module.useSubmenuRead == 0) {
        g_module.useSubmenuRead = 1;
        ReadSavedSetting(SettingsID(), 1, nullptr, nullptr, nullptr, nullptr, &g_module.useSubmenu);
    }
    return g_module.useSubmenu != 0;
}

// Cut to what the field holds beside its terminator.
void PutText(char16 (&field)[128], std::u16string_view text) {
    const std::u16string_view cut = text.substr(0, std::size(field) - 1);
    *std::ranges::copy(cut, field).out = u'\0';
}

void Describe(MenuItemDescriptor& out, std::u16string_view text, std::u16string_view description,
              bool skipsDialog) {
    PutText(out.text, text);
    PutText(out.description, description);
    PutText(out.textCopy, text);
    out.skipsDialog = skipsDialog ? 1 : 0;
    out.alwaysOne = 1;
    if (!skipsDialog) {
        out.flags |= 1U;
    }
}

bool IsCommand(i16 item) {
    return item >= 0 && item <= g_module.lastCommandItem;
}

// The first command is listed by the plug-in's title, which a submenu is later named for.
void DescribeCommand(MenuItemDescriptor& out, i16 item) {
    std::u16string text = ItemLabel(item);
    if (UseSubmenu()) {
        text = item == 0 ? VersionedPluginTitle() + std::u16string{kShowsDialog}
                         : VersionedPluginTitle() + u" " + text;
    }
    Describe(out, text, platform::ResourceString(CommandOf(static_cast<u16>(item)).description),
             false);
}

void DescribeSavedSetting(MenuItemDescriptor& out, const SavedSetting& setting) {
    const std::u16string prefix = UseSubmenu() ? VersionedPluginTitle() + u" " : u"";
    FinPIVarString title;
    title.AppendResource(SettingsID());
    const FinPIVarStringUtf16 description(kSavedSettingDescription, title.Text());
    Describe(out, prefix + setting.Label(), description.Text(), setting.skipsDialog);
}

}  // namespace

const CommandRow& CommandOf(u16 item) {
    return item < Commands().size() ? Commands()[item] : Commands().front();
}

std::u16string CommandTitle(const CommandRow& row) {
    return std::u16string{platform::ResourceString(row.commandID)};
}

std::u16string PluginTitle() {
    return CommandTitle(Commands().front());
}

std::u16string VersionedPluginTitle() {
    return PluginTitle() + u" " PLYWELD_VERSION;
}

std::u16string ItemLabel(i16 item) {
    if (IsCommand(item)) {
        return CommandTitle(CommandOf(static_cast<u16>(item))) + std::u16string{kShowsDialog};
    }
    const std::optional<SavedSetting> setting = FindSavedSetting(item);
    return setting ? setting->Label() : std::u16string{};
}

i16 DescribeMenuItem(i16 item, MenuItemDescriptor* out) {
    if (out == nullptr) {
        return 0;
    }
    if (IsCommand(item)) {
        DescribeCommand(*out, item);
        return 1;
    }
    const std::optional<SavedSetting> setting = FindSavedSetting(item);
    if (!setting) {
        return 0;
    }
    DescribeSavedSetting(*out, *setting);
    return 1;
}

i16 MenuItemStatus(i16 item) {
    u64 result = 0;
    EREGION selection{};
    EREGION wholeDocument{};
    if (IsCommand(item) || Host::GetCurERegions(&result, &selection, &wholeDocument) != 0) {
        return 1;
    }
    const std::optional<SavedSetting> setting = FindSavedSetting(item);
    return setting && setting->skipsDialog ? 0 : 1;
}
