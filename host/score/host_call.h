// The callbacks by number, from host_callbacks.inc, to count them and to refuse them.
#pragma once

#include <cstddef>

namespace standin {

enum class HostCall {
#define HOST_CALLBACK(name, function, result, missing, meaning, parameters) k##name,
#include "shell/host/host_callbacks.inc"
#undef HOST_CALLBACK
    kCount
};

inline constexpr std::size_t kHostCallCount = static_cast<std::size_t>(HostCall::kCount);

// The exported name, such as "FX_LoadTGF"; empty for kCount.
const char* NameOf(HostCall call) noexcept;

// Whether it has a result, and so can be refused.
bool HasResult(HostCall call) noexcept;

// What the interface says of a result: it may be anything, any number but 0 is yes, or a value.
enum class ResultMeaning { kOpen, kYesOrNo, kValue };
ResultMeaning MeaningOf(HostCall call) noexcept;

}  // namespace standin
