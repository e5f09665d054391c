// Makes a part of the current document, or its score, the host's current one until the scope
// ends.
#pragma once

#include "shell/host/host_types.h"

class PartScope {
public:
    static constexpr i16 kScore = 0;

    // A host without parts has its score current.
    explicit PartScope(i16 part);
    ~PartScope();
    PartScope(const PartScope&) = delete;
    PartScope& operator=(const PartScope&) = delete;

    // False: the part does not exist, or the host refused, and the previous one is still current.
    explicit operator bool() const noexcept { return m_isCurrent; }

private:
    i16 m_previous;
    bool m_isCurrent;
};
