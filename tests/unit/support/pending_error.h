// What the library's pending error says, for comparing in one line.
#pragma once

#include <string>

#include "Class Files/foundation/FinPIException.h"

// "id operation", then for application errors ": detail", for record errors ": tag". Empties
// the slot; "" when nothing was pending.
inline std::string TakePendingError() {
    if (!g_pendingError) {
        return "";
    }
    std::string text = std::to_string(g_pendingError->m_msgID) + " " + g_pendingError->m_function;
    if (const auto* error = dynamic_cast<const FinPIAppError*>(g_pendingError.get())) {
        text += std::string(": ") + error->m_detail;
    }
    if (const auto* error = dynamic_cast<const FinPIEDataIOFailed*>(g_pendingError.get())) {
        text += ": ";
        for (const unsigned shift : {24U, 16U, 8U, 0U}) {
            text += static_cast<char>(error->m_extag >> shift);
        }
    }
    g_pendingError.reset();
    return text;
}
