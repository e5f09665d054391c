// The boundary to callers that cannot handle exceptions: the host, the system, C libraries.
#pragma once

#include <exception>

namespace platform {

// The operation's result, or whenThrown if it throws; thrown, if given, then refers to the
// exception.
template <typename Result, typename Operation>
Result Guarded(Result whenThrown, Operation&& operation,
               std::exception_ptr* thrown = nullptr) noexcept {
    try {
        return operation();
    } catch (...) {
        if (thrown != nullptr) {
            *thrown = std::current_exception();
        }
        return whenThrown;
    }
}

}  // namespace platform
