#include "Class Files/score/document/FinPILayer.h"

#include "Class Files/foundation/FinPIException.h"
#include "platform/resources.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u32 kLayerText = 20092;
constexpr char kOrigin[] = "FinPILayer::FinPILayer";

}  // namespace

FinPILayer::FinPILayer(u16 layer) : LayerPrefsRecord{layer} {
    if (layer >= Host::GetMaxLayers()) {
        PostError(FinPIAppError{kOrigin, "Invalid layer."});
    } else if (Load() == 0) {
        PostRecordError<FinPILoadEDataFailed>(kOrigin, Tag());
    }
}

std::u16string FinPILayer::Name(u16 layer) {
    std::u16string name{platform::ResourceString(kLayerText)};
    name += u' ';
    for (const char digit : std::to_string(layer + 1)) {
        name += static_cast<char16>(digit);
    }
    return name;
}
