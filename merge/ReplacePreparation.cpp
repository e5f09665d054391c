// "Replace In Target": the host's own command on the destination layer, before the merge.
#include <algorithm>

#include "Class Files/foundation/FinPIDoc.h"
#include "Class Files/foundation/FinPIException.h"
#include "merge/Plyweld.h"
#include "shell/host/callbacks.h"

namespace {

// The host's menu commands.
constexpr u16 kToggleShowActiveLayerOnly = 10632;
constexpr u16 kActivateFirstLayer = 10633;  // + n activates layer n
constexpr u16 kReplaceInLayer = 16048;

class ShownDocument final : public FinPIDoc {};

void ActivateLayer(i16 layer) {
    Host::ExecuteMenuItem(static_cast<u16>(kActivateFirstLayer + layer));
}

constexpr i16 kNotTold = -1;

// The visible layer is the active one only while the option is on. If several show, the host
// ignored the option.
i16 ShownLayer() {
    const i16 layers = Host::GetMaxLayers();
    i16 shown = kNotTold;
    for (i16 layer = 0; layer < layers; ++layer) {
        if (Host::GetShowLayer(layer) != 0) {
            if (shown != kNotTold) {
                return kNotTold;
            }
            shown = layer;
        }
    }
    return shown;
}

// If the host's command leaves the option off, it is turned on only for this query.
i16 FindActiveLayer(const FinPIDoc& document, bool optionOn) {
    if (!optionOn) {
        document.SetShowActiveLayerOnlyOption(1);
    }
    const i16 layer = ShownLayer();
    if (!optionOn) {
        document.SetShowActiveLayerOnlyOption(0);
    }
    return layer;
}

void PostNotActivated() {
    PostError(FinPIAppError{"Plyweld::PrepareDocument", "Unable to activate the layer."});
}

// The host's command clears whichever layer is active, which must be the destination. Only the
// visible layers can show whether the host activated it.
void ReplaceInLayer(const FinPIDoc& document, i16 destination, i16 active, bool optionOn) {
    if (active != destination) {
        ActivateLayer(destination);
        const i16 now = FindActiveLayer(document, optionOn);
        if (now != kNotTold && now != destination) {
            PostNotActivated();
            return;
        }
    }
    Host::ExecuteMenuItem(kReplaceInLayer);
}

}  // namespace

i16 Plyweld::PrepareDocument() {
    if (m_configData.mode != MergeMode::kReplaceInTarget) {
        return 1;
    }
    // A number beyond the layers would be a different menu command.
    if (m_configData.destinationLayer >= Host::GetMaxLayers()) {
        PostNotActivated();
        return 1;
    }
    const ShownDocument document;
    const auto destination = static_cast<i16>(m_configData.destinationLayer);
    const bool wasOn = document.ShowActiveLayerOnlyOption() != 0;
    if (!wasOn) {
        Host::ExecuteMenuItem(kToggleShowActiveLayerOnly);
    }
    const bool optionOn = document.ShowActiveLayerOnlyOption() != 0;
    const i16 active = FindActiveLayer(document, optionOn);
    ReplaceInLayer(document, destination, active, optionOn);
    if (active != destination) {
        ActivateLayer(std::max<i16>(active, 0));
    }
    if (!wasOn) {
        Host::ExecuteMenuItem(kToggleShowActiveLayerOnly);
        if (document.ShowActiveLayerOnlyOption() != 0) {
            document.SetShowActiveLayerOnlyOption(0);
        }
    }
    return 1;
}
