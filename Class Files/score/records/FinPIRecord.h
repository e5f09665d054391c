// Binds a host structure to a family of records: the record's data is the structure itself.
#pragma once

#include "shell/host/host_types.h"

template <typename Family, typename Structure>
class FinPIRecord : public Family, public Structure {
public:
    const void* GetData() const final { return static_cast<const Structure*>(this); }
    u32 GetDataSize() const final { return sizeof(Structure); }

protected:
    template <typename... Arguments>
    explicit FinPIRecord(Arguments... arguments) : Family{arguments...}, Structure{} {}
};
