#include "Class Files/foundation/FinPIException.h"

#include <utility>

#include "Class Files/foundation/AlertPrintf.h"
#include "Class Files/foundation/FinPITrace.h"
#include "Class Files/foundation/FinPIUniStringUtil.h"
#include "platform/resources.h"

std::unique_ptr<FinPIException> g_pendingError;

namespace {

template <std::size_t N>
void CopyCut(char (&destination)[N], const char* source) {
    std::size_t length = 0;
    while (length < N - 1 && source[length] != '\0') {
        destination[length] = source[length];
        ++length;
    }
    destination[length] = '\0';
}

}  // namespace

FinPIException::FinPIException(u32 messageID, const char* function) : m_msgID{messageID} {
    CopyCut(m_function, function);
    LoadMessage();
    FinPITrace("Class Files\\FinPIException", 45, "%s: %s", m_function, m_message);
}

// A text that cannot be converted posts an error. The text of that error stays empty, so that it
// cannot fail in the same way forever.
void FinPIException::LoadMessage() {
    static bool loading = false;
    m_message[0] = '\0';
    if (loading) {
        return;
    }
    struct Loading {
        Loading() { loading = true; }
        ~Loading() { loading = false; }
    } const guard;
    char16 text[sizeof m_message];
    platform::LoadResourceString(m_msgID, text, sizeof m_message);
    FinPIUniStringUtil::UniChar_Utf8encode(m_message, text, sizeof m_message);
}

void FinPIException::Report() {
    LoadMessage();
    AlertPrintf(m_message, m_function);
}

FinPIAppError::FinPIAppError(const char* function, const char* detail)
    : FinPIClonedError(29999, function) {
    CopyCut(m_detail, detail);
}

void FinPIAppError::Report() {
    LoadMessage();
    AlertPrintf(m_message, m_function, m_detail);
}

void FinPIEDataIOFailed::Report() {
    LoadMessage();
    const auto character = [this](unsigned shift) { return static_cast<char>(m_extag >> shift); };
    AlertPrintf(m_message, m_function, character(24), character(16), character(8), character(0));
}

bool ErrorIsPending() noexcept {
    return g_pendingError != nullptr && g_pendingError->m_msgID != 0;
}

void PostError(const FinPIException& error) {
    if (!g_pendingError) {
        g_pendingError = error.Clone();
    }
}

u16 ReportPendingError() {
    if (!g_pendingError) {
        return 0;
    }
    // While its alert is open, the user may start something that empties the slot.
    const std::unique_ptr<FinPIException> error = std::move(g_pendingError);
    error->Report();
    g_pendingError.reset();
    return error->m_stop;
}
