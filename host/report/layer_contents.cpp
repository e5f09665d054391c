#include "host/report/layer_contents.h"

namespace standin {
namespace {

LayerContent ContentOfFrame(const Frame& frame) {
    LayerContent content;
    for (const EXENTRY& entry : frame.entries) {
        const bool hidden = (entry.flags & EntryFlag::kIgnore) != 0;
        content.notes += entry.noteCount;
        content.entries += entry.noteCount > 0 ? 1 : 0;
        content.visibleRests += entry.noteCount == 0 && !hidden ? 1 : 0;
        content.hiddenRests += entry.noteCount == 0 && hidden ? 1 : 0;
    }
    return content;
}

}  // namespace

std::vector<StaffMeasureContent> ContentOf(const ImportedScore& score) {
    const Document& document = *score.document;
    std::vector<StaffMeasureContent> contents;
    const std::vector<u16>& staves = document.StaffList(0);
    for (std::size_t slot = 0; slot < staves.size(); ++slot) {
        for (u16 measure = 1; measure <= document.MeasureCount(); ++measure) {
            StaffMeasureContent content{static_cast<u16>(slot + 1), measure, {}};
            bool any = false;
            for (u16 layer = 0; layer < kLayers; ++layer) {
                if (const Frame* frame = document.FindFrame({staves[slot], measure, layer})) {
                    content.layers[layer] = ContentOfFrame(*frame);
                    any = true;
                }
            }
            if (any) {
                contents.push_back(content);
            }
        }
    }
    return contents;
}

}  // namespace standin
