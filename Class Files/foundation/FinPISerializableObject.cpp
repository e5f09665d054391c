#include "Class Files/foundation/FinPISerializableObject.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

#include "Class Files/foundation/FinPIException.h"

namespace {

#pragma pack(push, 2)
struct BlockHeader {
    u16 serialVersion;
    u32 totalSize;
    u16 headerSize;
    u16 fieldHeaderSize;
    u16 fieldCount;
};
struct FieldHeader {
    u16 number;
    u32 dataSize;
};
#pragma pack(pop)
static_assert(sizeof(BlockHeader) == 12 && sizeof(FieldHeader) == 6);

constexpr char kPutSerialized[] = "FinPISerializableObject::PutSerialized";

constexpr std::size_t Even(std::size_t size) {
    return (size + 1) & ~std::size_t{1};
}

std::vector<u8> Serialize(const FinPISerializableObject& object) {
    const u16 version = object.GetSerialVersion();
    std::vector<u8> block(sizeof(BlockHeader));
    u16 count = 0;
    for (u16 field = 1;; ++field) {
        const i32 size = object.GetFieldSize(field, version);
        if (size < 1) {
            break;
        }
        const FieldHeader header{field, static_cast<u32>(size)};
        const std::size_t start = block.size();
        block.resize(start + sizeof header + Even(header.dataSize));
        std::memcpy(&block[start], &header, sizeof header);
        if (object.GetField(field, version, &block[start + sizeof header], header.dataSize) == 0) {
            block.resize(start);
            break;
        }
        ++count;
    }
    const BlockHeader header{version, static_cast<u32>(block.size()), sizeof(BlockHeader),
                             sizeof(FieldHeader), count};
    std::memcpy(block.data(), &header, sizeof header);
    return block;
}

// Takes the header off the front of the bytes; false when they are too few. headerSize is what
// the block says, and may be more than this library knows of.
template <typename Header>
bool TakeHeader(std::span<const u8>& bytes, Header& header, std::size_t headerSize) {
    if (headerSize < sizeof header || bytes.size() < headerSize) {
        return false;
    }
    std::memcpy(&header, bytes.data(), sizeof header);
    bytes = bytes.subspan(headerSize);
    return true;
}

i16 CutShort() {
    PostError(FinPIAppError(kPutSerialized, "Invalid source input."));
    return 0;
}

}  // namespace

u32 FinPISerializableObject::GetSerialized(void* out, u32 size) const {
    const std::vector<u8> block = Serialize(*this);
    if (out != nullptr) {
        if (size < block.size()) {
            return 0;
        }
        std::memcpy(out, block.data(), block.size());
    }
    return static_cast<u32>(block.size());
}

i16 FinPISerializableObject::PutSerialized(const void* block, u32 size) {
    std::span<const u8> bytes(static_cast<const u8*>(block), size);
    BlockHeader header{};
    if (bytes.size() < sizeof header) {
        return CutShort();
    }
    std::memcpy(&header, block, sizeof header);
    const u16 version = header.serialVersion;
    if (version > GetSerialVersion() ||
        (version < GetSerialVersion() && AcceptsSerialVersion(version) == 0)) {
        PostError(FinPISerialVersionError(kPutSerialized));
        return 0;
    }
    bytes = bytes.first(std::min<std::size_t>(size, header.totalSize));
    if (!TakeHeader(bytes, header, header.headerSize)) {
        return CutShort();
    }
    ClearData();
    for (u16 i = 0; i < header.fieldCount; ++i) {
        FieldHeader field{};
        if (!TakeHeader(bytes, field, header.fieldHeaderSize) || bytes.size() < field.dataSize) {
            return CutShort();
        }
        if (PutField(field.number, version, bytes.data(), field.dataSize) == 0) {
            return 0;
        }
        bytes = bytes.subspan(std::min(bytes.size(), Even(field.dataSize)));
    }
    return 1;
}
