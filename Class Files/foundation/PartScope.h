// Makes a part of the current document, or its score, the host's current one until the scope
// ends.
#pragma once

#include "shell/host/host_types.h"

class PartScope {
public:
    static constexpr i16 kScore = 0;

    // A part that there is not leaves the part that is current.
    explicit PartScope(i16 part);
    ~PartScope();
    PartScope(const PartScope&) = delete;
    PartScope& operator=(const PartScope&) = delete;

private:
    i16 m_previous;
};
