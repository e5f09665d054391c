#include "host/musicxml/imported_score.h"

namespace standin {

const std::string& StaffVoices::Name(u16 measure, u16 layer) const {
    const auto other = others.find({measure, layer});
    static const std::string kNone;
    return other != others.end() ? other->second : layer < kLayers ? names[layer] : kNone;
}

const std::string& StaffVoices::NameAt(u16 measure, u16 layer, u32 entry) const {
    const auto guest = guests.find(entry);
    return guest != guests.end() ? guest->second : Name(measure, layer);
}

}  // namespace standin
