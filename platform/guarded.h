// The border to callers that know nothing of exceptions: the host, the system, C libraries.
#pragma once

#include <exception>

namespace platform {

// What the operation returns, or whenThrown when it throws; thrown, if given, then holds what.
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
