#include "merge/Plyweld.h"

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "platform/text.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u16 kSameLayerText = 22002;
constexpr u16 kNoSelectionText = 22003;

std::u16string ToUtf16(const std::string& text) {
    return platform::MultiByteToUtf16(text, platform::CodePage::kAnsi).value_or(u"");
}

}  // namespace

Plyweld::Plyweld(WindowHandle owner, u16 item, const std::string& title)
    : Plyweld{owner, item, ToUtf16(title)} {}

Plyweld::Plyweld(WindowHandle owner, u16 item, std::u16string name)
    : FinPIModeless{owner, item, kCommandID, name.c_str()}, m_name{std::move(name)} {}

i16 Plyweld::ProcessStaffMeasure(i16 /*slot*/, u16 staff, i16 measure, u16 /*staffSystem*/) {
    const DocumentScope document;
    const i16 layers = Host::GetMaxLayers();
    if (layers <= 0) {
        PostError(FinPIAppError{"Plyweld::ProcessStaffMeasure", "Unable to count the layers."});
        return 0;
    }
    const u16 destination = m_configData.destinationLayer;
    const bool all = m_configData.sourceLayer == kAllLayers;
    const i32 first = all ? 0 : m_configData.sourceLayer;
    const i32 last = all ? layers - 1 : first;
    for (i32 layer = first; layer <= last; ++layer) {
        if (layer == destination ||
            MergeFrame(staff, measure, static_cast<u16>(layer), destination) != 0) {
            continue;
        }
        // A failed frame merge may have posted no error, but the edit must be rolled back.
        PostRecordError<FinPISaveEDataFailed>("Plyweld::MergeFrame", kFrameTag);
        return 0;
    }
    if (m_configData.rebeam != 0) {
        RebeamWholeMeasures();
    }
    return 1;
}

void Plyweld::RebeamWholeMeasures() const {
    EREGION region = m_region;
    region.startPosition = 0;
    region.endPosition = kEndOfMeasure;
    Host::RebeamRegion(static_cast<const EREGION*>(&region), i16{0});
}

i16 Plyweld::Execute(const EREGION* /*selection*/, const EREGION* /*wholeDocument*/) {
    if (m_configData.sourceLayer == m_configData.destinationLayer) {
        Host::AlertMessage(AlertOwner(), i16{0}, kSameLayerText, nullptr);
        return 0;
    }
    u64 result{};
    EREGION selection{};
    EREGION wholeDocument{};
    if (Host::GetCurERegions(&result, &selection, &wholeDocument) == 0) {
        Host::AlertMessage(AlertOwner(), i16{0}, kNoSelectionText, nullptr);
        return 0;
    }
    return ProcessCurrentDocument();
}
