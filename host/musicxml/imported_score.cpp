#include "host/musicxml/imported_score.h"

namespace standin {

const std::string& StaffVoices::Name(u16 measure, u16 layer) const {
    const auto other = others.find({measure, layer});
    return other != others.end() ? other->second : names[layer];
}

}  // namespace standin
