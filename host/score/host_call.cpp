#include "host/score/host_call.h"

#include <iterator>
#include <type_traits>

#include "shell/host/host_functions.h"

namespace standin {
namespace {

struct CallRow {
    const char* name;
    bool hasResult;
    ResultMeaning meaning;
};

constexpr CallRow kCalls[] = {
#define HOST_CALLBACK(name, function, result, missing, meaning, parameters) \
    {#function, !std::is_void_v<result>, ResultMeaning::k##meaning},
#include "shell/host/host_callbacks.inc"
#undef HOST_CALLBACK
    {"", false, ResultMeaning::kOpen},
};
static_assert(std::size(kCalls) == kHostCallCount + 1);

}  // namespace

const char* NameOf(HostCall call) noexcept {
    return kCalls[static_cast<std::size_t>(call)].name;
}

ResultMeaning MeaningOf(HostCall call) noexcept {
    return kCalls[static_cast<std::size_t>(call)].meaning;
}

bool HasResult(HostCall call) noexcept {
    return kCalls[static_cast<std::size_t>(call)].hasResult;
}

}  // namespace standin
