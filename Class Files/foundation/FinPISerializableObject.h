// What can be written to, and read from, a self-describing block of bytes.
#pragma once

#include "shell/host/host_types.h"

// A block, little-endian: u16 serial version, u32 size of the whole block, u16 header size (12),
// u16 field header size (6), u16 number of fields; then the fields, each a u16 number from 1, a
// u32 data size and the data, padded to an even size.
class FinPISerializableObject {
public:
    // The order of the virtual operations is the interface.
    virtual u16 GetSerialVersion() const = 0;
    // Whether blocks of this version, older than GetSerialVersion, can be read.
    virtual i16 AcceptsSerialVersion(u16 olderVersion) const = 0;
    // Fields count from 1. A size below 1 ends the block. GetField: 0 = the size is too small.
    virtual i32 GetFieldSize(u16 field, u16 serialVersion) const = 0;
    virtual i16 GetField(u16 field, u16 serialVersion, void* out, u32 size) const = 0;
    virtual i16 PutField(u16 field, u16 serialVersion, const void* bytes, u32 size) = 0;
    virtual void ClearData() = 0;

    // Writes the block and gives its size. Without a buffer gives only the size; 0, and nothing
    // written, when the buffer is smaller than that.
    u32 GetSerialized(void* out, u32 size) const;

    // Reads a block of at most size bytes. 0 with an error posted when the block is of a version
    // that cannot be read or is cut short; 0 also when a field cannot be read. The object then
    // holds the fields before that one.
    i16 PutSerialized(const void* block, u32 size);

protected:
    ~FinPISerializableObject() = default;
};
