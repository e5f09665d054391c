#include "host/musicxml/expressions.h"

#include <cstring>

#include "host/musicxml/note_details.h"
#include "host/score/records/tags.h"

namespace standin {
namespace {

constexpr std::size_t kDefinitionSize = 38;
constexpr std::size_t kDefinitionPlacement = 12;
constexpr i16 kAtEntry = 9;
constexpr i16 kAtPosition = 3;

// 0 when no number is left.
u16 DefinitionFor(ImportedScore& score, FragmentId text, bool atEntry) {
    const auto [known, isNew] = score.definitions.try_emplace({text, atEntry}, u16{0});
    if (!isNew || score.definitions.size() >= kAppend) {
        return known->second;
    }
    known->second = static_cast<u16>(score.definitions.size());
    Bytes bytes(kDefinitionSize, '\0');
    const i16 placement = atEntry ? kAtEntry : kAtPosition;
    std::memcpy(bytes.data() + kDefinitionPlacement, &placement, sizeof(placement));
    std::memcpy(bytes.data() + kDefinitionPlacement + 4, &text, sizeof(text));
    score.document->Records().Create(Tag::kTextExpression, RecordKey::Other(known->second), bytes);
    return known->second;
}

}  // namespace

bool AddExpression(ImportedScore& score, const ExpressionPlace& place, FragmentId text, u32 item) {
    MyExpressionAssign expression{};
    expression.definition = DefinitionFor(score, text, place.atEntry);
    expression.positionLow = static_cast<u16>(place.position & 0xFFFF);
    expression.positionHigh = static_cast<u16>(place.position >> 16);
    std::memcpy(reinterpret_cast<char*>(&expression) + kExpressionItemOffset, &item, sizeof(item));
    expression.staff = static_cast<i16>(place.staff);
    expression.layer = static_cast<u16>(place.layer + 1);
    expression.graceIndex = place.graceIndex;
    const RecordKey key = RecordKey::Other(place.measure, kAppend);
    return expression.definition != 0 &&
           score.document->Records().Create(Tag::kExpression, key, BytesOf(expression)).has_value();
}

u32 ItemOfExpression(const Bytes& record) {
    u32 item = 0;
    if (record.size() >= kExpressionItemOffset + sizeof(item)) {
        std::memcpy(&item, record.data() + kExpressionItemOffset, sizeof(item));
    }
    return item;
}

}  // namespace standin
