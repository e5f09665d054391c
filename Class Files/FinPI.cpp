#include "Class Files/FinPI.h"

#include <algorithm>
#include <string_view>

#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/interface/FinPIAlert.h"
#include "Class Files/settings/SavedSettings.h"
#include "platform/resources.h"

namespace {

// Copies a terminated text, cut to length - 1 units.
void CopyText(char16* buffer, i32 length, std::u16string_view text) {
    if (length < 1) {
        return;
    }
    const auto room = static_cast<std::size_t>(length - 1);
    const std::u16string_view cut = text.substr(0, room);
    *std::ranges::copy(cut, buffer).out = u'\0';
}

}  // namespace

FinPI::FinPI(WindowHandle owner, u16 item, u16 commandID) noexcept
    : m_ownerWindow{owner}, m_item{item}, m_commandID{commandID}, m_commandItem{item} {}

FinPI::~FinPI() = default;

void FinPI::ForgetWindowPlace(u16 /*identifier*/) {}

i16 FinPI::AllowProgress(u64 /*workSteps*/, i16 /*layers*/) {
    return 1;
}

i16 FinPI::ProcessStaffMeasure(i16 /*slot*/, u16 /*staff*/, i16 /*measure*/, u16 /*staffSystem*/) {
    return 1;
}

i16 FinPI::ShowDialog(const EREGION* /*selection*/, const EREGION* /*wholeDocument*/) {
    return 1;
}

i16 FinPI::Execute(const EREGION* /*selection*/, const EREGION* /*wholeDocument*/) {
    return 0;
}

void FinPI::GetTitle(char16* buffer, i32 length, u16 stringID) const {
    if (stringID != 0) {
        CopyText(buffer, length, platform::ResourceString(stringID));
    } else {
        CopyText(buffer, length, m_savedSetting != 0 ? m_savedSettingName : GetName());
    }
}

void FinPI::ResetAlerts() {
    for (const u16 question : {FinPIAlert::kStaleMenuQuestion, GetWholeDocumentQuestion(),
                               GetAllDocumentsQuestion(), GetOtherDocumentsQuestion()}) {
        if (question != 0) {
            ZKFX_DeleteSettings(FinPIAlert::kSettingName, static_cast<i16>(question),
                                FinPIAlert::kStoredUnder);
        }
    }
}

i16 FinPI::SavedSettingNumber() const {
    return SavedSettings::CurrentNumber(GetCommandID(), m_savedSetting, m_savedSettingID);
}

void FinPI::UseSavedSetting(i16 number, u16 identifier) {
    m_savedSetting = number;
    m_savedSettingID = identifier;
    ReadSavedSetting(GetCommandID(), number, m_savedSettingName, nullptr, nullptr, nullptr,
                     nullptr);
}
