#include "shell/entry/menu_items.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "Class Files/foundation/FinPIVarString.h"
#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "Class Files/settings/SavedSettings.h"
#include "merge/Plyweld.h"
#include "platform/resources.h"
#include "shell/host/callbacks.h"
#include "shell/module/ModuleState.h"

namespace {

constexpr u32 kCommandDescription = 22001;
constexpr u32 kSavedSettingDescription = 20005;  // has a place for the title

constexpr std::u16string_view kShowsDialog = u"...";

struct SavedSetting {
    std::u16string name;
    bool skipsDialog;

    std::u16string Label() const {
        return skipsDialog ? name : name + std::u16string{kShowsDialog};
    }
};

std::optional<SavedSetting> FindSavedSetting(i16 number) {
    char16 name[128];
    u16 skipDialog = 0;
    if (ReadSavedSetting(Plyweld::kCommandID, number, name, nullptr, &skipDialog, nullptr,
                         nullptr) == 0) {
        return std::nullopt;
    }
    return SavedSetting{{name, std::find(std::begin(name), std::end(name), u'\0')},
                        skipDialog != 0};
}

// The items are to be gathered in a submenu, if there are several.
bool UseSubmenu() {
    if (g_module.itemCount < 2) {
        return false;
    }
    if (g_module.useSubmenuRead == 0) {
        g_module.useSubmenuRead = 1;
        ReadSavedSetting(Plyweld::kCommandID, 1, nullptr, nullptr, nullptr, nullptr,
                         &g_module.useSubmenu);
    }
    return g_module.useSubmenu != 0;
}

// Cut to what the field holds beside its terminator.
void PutText(char16 (&field)[128], std::u16string_view text) {
    const std::u16string_view cut = text.substr(0, std::size(field) - 1);
    *std::copy(cut.begin(), cut.end(), field) = u'\0';
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

void DescribeCommand(MenuItemDescriptor& out) {
    const std::u16string name = UseSubmenu() ? VersionedPluginTitle() : PluginTitle();
    Describe(out, name + std::u16string{kShowsDialog},
             platform::ResourceString(kCommandDescription), false);
}

void DescribeSavedSetting(MenuItemDescriptor& out, const SavedSetting& setting) {
    const std::u16string prefix = UseSubmenu() ? VersionedPluginTitle() + u" " : u"";
    FinPIVarString title;
    title.AppendResource(Plyweld::kCommandID);
    const FinPIVarStringUtf16 description(kSavedSettingDescription, title.Text());
    Describe(out, prefix + setting.Label(), description.Text(), setting.skipsDialog);
}

}  // namespace

std::u16string PluginTitle() {
    return std::u16string{platform::ResourceString(Plyweld::kCommandID)};
}

std::u16string VersionedPluginTitle() {
    return PluginTitle() + u" " PLYWELD_VERSION;
}

std::u16string SavedSettingLabel(i16 number) {
    const std::optional<SavedSetting> setting = FindSavedSetting(number);
    return setting ? setting->Label() : std::u16string{};
}

i16 DescribeMenuItem(i16 item, MenuItemDescriptor* out) {
    if (out == nullptr) {
        return 0;
    }
    if (item == 0) {
        DescribeCommand(*out);
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
    if (item == 0 || Host::GetCurERegions(&result, &selection, &wholeDocument) != 0) {
        return 1;
    }
    const std::optional<SavedSetting> setting = FindSavedSetting(item);
    return setting && setting->skipsDialog ? 0 : 1;
}
