#include "host/score/records/detail_kinds.h"

#include <algorithm>
#include <iterator>

#include "shell/host/detail_flags.h"
#include "shell/host/host_frames.h"

namespace standin {
namespace {

constexpr DetailKindRow kDetailKinds[] = {
#define ENTRY_DETAIL(name, family, structure, tag, downTag, flag, ...) \
    {tag, downTag, DetailFlag::flag, 0, false, false},
#define NOTE_DETAIL(name, structure, tag, flag, noteFlag, ...) \
    {tag, 0, DetailFlag::flag, noteFlag, true, false},
#define SHAPE_DETAIL(name, structure, tag, flag, ...) {tag, 0, DetailFlag::flag, 0, false, true},
#include "shell/host/entry_details.inc"
};

}  // namespace

std::span<const DetailKindRow> DetailKinds() noexcept {
    return kDetailKinds;
}

const DetailKindRow* FindDetailKind(u32 tag) noexcept {
    const auto* const found = std::ranges::find_if(kDetailKinds, [tag](const DetailKindRow& row) {
        return row.tag == tag || (row.downTag == tag && tag != 0);
    });
    return found != std::end(kDetailKinds) ? found : nullptr;
}

u32 DetailFlagOf(u32 tag) noexcept {
    const DetailKindRow* const kind = FindDetailKind(tag);
    return kind != nullptr ? kind->flag : 0;
}

bool IsOfNote(u32 tag) noexcept {
    const DetailKindRow* const kind = FindDetailKind(tag);
    return kind != nullptr && kind->isOfNote;
}

u32 DetailFlagsOf(u32 entry, const RecordStore& records) {
    u32 flags = 0;
    records.ForEachDetailTag(entry, [&flags](u32 tag) { flags |= DetailFlagOf(tag); });
    return flags;
}

}  // namespace standin
