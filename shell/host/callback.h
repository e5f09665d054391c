// One host callback: its type, its exported name, and what a call gives when the host lacks it.
#pragma once

#include <atomic>
#include <type_traits>

#include "platform/module.h"
#include "shell/host/host_types.h"

template <typename Function>
class Callback;

// The address is looked up at the first call, once, and kept; two threads that call first
// at the same time find the same address. A missing export is skipped silently.
template <typename Result, typename... Parameters>
class Callback<Result(Parameters...)> {
    using Function = Result(Parameters...);
    using Fallback = std::conditional_t<std::is_void_v<Result>, int, Result>;

public:
    constexpr Callback(const char* name, Fallback whenMissing) noexcept
        : m_name{name}, m_whenMissing{whenMissing} {}
    Callback(const Callback&) = delete;
    Callback& operator=(const Callback&) = delete;

    // The interface version word is added when the arguments leave it out.
    template <typename... Arguments>
    Result operator()(Arguments... arguments) const {
        Function* function = Address();
        if (function == nullptr) {
            if constexpr (std::is_void_v<Result>) {
                return;
            } else {
                return m_whenMissing;
            }
        } else if constexpr (std::is_invocable_v<Function*, Arguments...>) {
            return function(arguments...);
        } else {
            return function(arguments..., kInterfaceVersion);
        }
    }

private:
    Function* Address() const {
        if (!m_looked.load(std::memory_order_acquire)) {
            m_address.store(reinterpret_cast<Function*>(platform::FindHostFunction(m_name)),
                            std::memory_order_relaxed);
            m_looked.store(true, std::memory_order_release);
        }
        return m_address.load(std::memory_order_relaxed);
    }

    const char* m_name;
    Fallback m_whenMissing;
    mutable std::atomic<Function*> m_address{nullptr};
    mutable std::atomic<bool> m_looked{false};
};
