#include "host/score/manners.h"

#include <algorithm>
#include <iterator>

namespace standin {
namespace {

constexpr HostCall kDispensable[] = {
    HostCall::kGetNextEnigmaDocument,
    HostCall::kGetDocumentPath,
    HostCall::kGetCurrentPartID,
    HostCall::kGetNextPartID,
    HostCall::kSetCurrentPartID,
    HostCall::kSetCurrentPartInView,
    HostCall::kGetPartName,
    HostCall::kAutoNumberedName,
    HostCall::kGetTGFDuration,
    HostCall::kReduceEntries,
    HostCall::kGetKeySig,
    HostCall::kGetEntryMetrics2014,
    HostCall::kFreeEntryMetrics,
    HostCall::kFreeMeasureMetrics,
    HostCall::kStartMassEdit,
    HostCall::kMassEditProgress,
    HostCall::kEndMassEdit,
    HostCall::kRebeamRegion,
    HostCall::kRedrawMusic,
    HostCall::kGetDlgItemUser,
    HostCall::kSetDlgItemUser,
    HostCall::kEnableDlgItem,
    HostCall::kShowHideDlgItem,
    HostCall::kSetDlgFocus,
    HostCall::kSetTimer,
    HostCall::kKillTimer,
    HostCall::kGetMeasureNumberString,
    HostCall::kGetCurrentWindowInfo,
};

}  // namespace

bool IsDispensable(HostCall call) noexcept {
    return std::ranges::find(kDispensable, call) != std::end(kDispensable);
}

std::optional<Manners> ParseManners(std::string_view names) {
    Manners manners;
    while (!names.empty()) {
        const std::string_view name = names.substr(0, names.find(','));
        const auto* const manner = std::ranges::find(kManners, name, &Manner::name);
        if (manner == std::end(kManners)) {
            return std::nullopt;
        }
        manners.*(manner->flag) = true;
        names.remove_prefix(std::min(names.size(), name.size() + 1));
    }
    return manners;
}

std::string NamesOf(const Manners& manners) {
    std::string names;
    for (const Manner& manner : kManners) {
        if (manners.*(manner.flag)) {
            names += (names.empty() ? "" : ",") + std::string{manner.name};
        }
    }
    return names;
}

}  // namespace standin
