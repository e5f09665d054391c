#include "host/callbacks/serve.h"

#include <algorithm>
#include <cstring>

namespace standin {

bool Admit(HostCall call, u32 version, bool anyVersion) noexcept {
    Application& app = App();
    app.calls.Count(call);
    const auto& change = app.faults.switchDocument;
    if (change && change->beforeCall == app.calls.Total()) {
        app.SetCurrentDocument(change->document);
    }
    if (Refuses(app.faults, app.calls, call)) {
        ++app.calls.refusedByPlan;
        app.calls.firstRefused = app.calls.firstRefused.value_or(call);
        return false;
    }
    const bool isKnown =
        anyVersion ? version != 0 && version <= kInterfaceVersion : version == kInterfaceVersion;
    return isKnown || RefuseByRule(app, false);
}

i16 Mannered(HostCall call, i16 result) noexcept {
    const Manners& manners = App().manners;
    if (!manners.taciturn && !manners.talkative) {
        return result;
    }
    switch (MeaningOf(call)) {
        case ResultMeaning::kOpen:
            return manners.talkative ? i16{1} : i16{0};
        case ResultMeaning::kYesOrNo:
            return result != 0 ? i16{-1} : i16{0};
        case ResultMeaning::kValue:
            break;
    }
    return result;
}

void WriteOn(const Application& app, void* end) noexcept {
    constexpr std::size_t kBytes = 512;
    constexpr int kPattern = 0xA5;
    if (app.manners.wide) {
        std::memset(end, kPattern, kBytes);
    }
}

bool CopyText(const std::u16string& text, char16* buffer, u32 units) noexcept {
    if (buffer == nullptr || units == 0) {
        return false;
    }
    const std::size_t length = std::min<std::size_t>(text.size(), units - 1);
    std::copy_n(text.begin(), length, buffer);
    buffer[length] = 0;
    return true;
}

}  // namespace standin
