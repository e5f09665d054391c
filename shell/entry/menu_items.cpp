#include "shell/entry/menu_items.h"

#include <algorithm>
#include <string_view>

#include "merge/Plyweld.h"
#include "platform/resources.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u32 kDescription = 22001;

// Cut to what the field holds beside its terminator.
void PutText(char16 (&field)[128], std::u16string_view text) {
    const std::u16string_view cut = text.substr(0, std::size(field) - 1);
    *std::copy(cut.begin(), cut.end(), field) = u'\0';
}

void DescribeCommand(MenuItemDescriptor& out) {
    const std::u16string text = PluginTitle() + u"...";
    PutText(out.text, text);
    PutText(out.description, platform::ResourceString(kDescription));
    PutText(out.textCopy, text);
    out.skipsDialog = 0;
    out.alwaysOne = 1;
    out.flags |= 1U;
}

}  // namespace

std::u16string PluginTitle() {
    return std::u16string{platform::ResourceString(Plyweld::kCommandID)};
}

i16 DescribeMenuItem(i16 item, MenuItemDescriptor* out) {
    if (out == nullptr || item != 0) {
        return 0;
    }
    DescribeCommand(*out);
    return 1;
}

i16 MenuItemStatus(i16 /*item*/) {
    return 1;
}
