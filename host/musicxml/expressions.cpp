#include "host/musicxml/expressions.h"

#include <cstring>

#include "host/musicxml/note_details.h"
#include "host/score/tags.h"

namespace standin {
namespace {

constexpr std::size_t kDefinitionSize = 38;
constexpr std::size_t kDefinitionPlacement = 12;
constexpr i16 kAtEntry = 9;
constexpr i16 kAtPosition = 3;

// Definitions differ by text and by placement, so their numbers come from both.
u16 DefinitionFor(Document& document, FragmentId text, bool atEntry) {
    Bytes bytes(kDefinitionSize, '\0');
    const i16 placement = atEntry ? kAtEntry : kAtPosition;
    std::memcpy(bytes.data() + kDefinitionPlacement, &placement, sizeof(placement));
    std::memcpy(bytes.data() + kDefinitionPlacement + 4, &text, sizeof(text));
    const RecordStore::Table& known = document.Records().OfTag(Tag::kTextExpression);
    for (const auto& [key, record] : known) {
        if (record == bytes) {
            return key.OtherItem();
        }
    }
    const u16 number =
        known.empty() ? u16{1} : static_cast<u16>(known.rbegin()->first.OtherItem() + 1);
    document.Records().Create(Tag::kTextExpression, RecordKey::Other(number), bytes);
    return number;
}

}  // namespace

void AddExpression(Document& document, const ExpressionPlace& place, FragmentId text, u32 item) {
    MyExpressionAssign expression{};
    expression.definition = DefinitionFor(document, text, place.atEntry);
    expression.positionLow = static_cast<u16>(place.position & 0xFFFF);
    expression.positionHigh = static_cast<u16>(place.position >> 16);
    std::memcpy(reinterpret_cast<char*>(&expression) + kExpressionItemOffset, &item, sizeof(item));
    expression.staff = static_cast<i16>(place.staff);
    expression.layer = static_cast<u16>(place.layer + 1);
    expression.graceIndex = place.graceIndex;
    document.Records().Create(Tag::kExpression, RecordKey::Other(place.measure, kAppend),
                              BytesOf(expression));
}

u32 ItemOfExpression(const Bytes& record) {
    u32 item = 0;
    if (record.size() >= kExpressionItemOffset + sizeof(item)) {
        std::memcpy(&item, record.data() + kExpressionItemOffset, sizeof(item));
    }
    return item;
}

}  // namespace standin
