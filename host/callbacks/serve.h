// The frame of every callback: count the call, refuse it when the interface or the fault plan
// says so, and let no exception out.
#pragma once

#include <type_traits>

#include "host/score/application.h"
#include "platform/guarded.h"
#include "shell/host/host_types.h"

namespace standin {

// Whether the counted call may continue. anyVersion: the version is that of a record class, so it
// may be anything from 0 to the host's own.
bool Admit(HostCall call, u32 version, bool anyVersion) noexcept;

// The result as the host's manners change it: the same, unless the interface leaves it open or any
// number but 0 means yes.
i16 Mannered(HostCall call, i16 result) noexcept;

template <typename Result, typename Body>
Result ServeAsAsked(HostCall call, u32 version, Result refused, Body body,
                    bool anyVersion) noexcept {
    if (!Admit(call, version, anyVersion)) {
        return refused;
    }
    if constexpr (std::is_same_v<Result, i16> || std::is_same_v<Result, i32>) {
        if (App().faults.pretendKind == call) {
            return Result{1};
        }
    }
    // Out of memory: the call fails as if refused.
    return platform::Guarded(refused, [&] { return body(App()); });
}

template <typename Result, typename Body>
Result Serve(HostCall call, u32 version, Result refused, Body body,
             bool anyVersion = false) noexcept {
    const Result result = ServeAsAsked(call, version, refused, body, anyVersion);
    if constexpr (std::is_same_v<Result, i16>) {
        return Mannered(call, result);
    } else {
        return result;
    }
}

// For a call that the interface does not allow: counted, so that a test can distinguish it from one
// that found nothing.
template <typename Result>
Result RefuseByRule(Application& app, Result refused) noexcept {
    ++app.calls.refusedByRule;
    return refused;
}

// Calls that make no sense without a document.
template <typename Result, typename Body>
Result ServeDocument(HostCall call, u32 version, Result refused, Body body) noexcept {
    return Serve(call, version, refused, [&](Application& app) -> Result {
        Document* document = app.CurrentDocument();
        return document == nullptr ? RefuseByRule(app, refused) : body(app, *document);
    });
}

// A wide host writes beyond the known record if it does not know the buffer's size.
void WriteOn(const Application& app, void* end) noexcept;

// Copies as much as fits and terminates it. False when there is no room at all.
bool CopyText(const std::u16string& text, char16* buffer, u32 units) noexcept;

}  // namespace standin
