#include "host/score/detail_kinds.h"

#include <algorithm>
#include <iterator>

#include "shell/host/detail_flags.h"

namespace standin {
namespace {

struct DetailKind {
    u32 tag;
    u32 flag;
};

// Sorted by tag.
constexpr DetailKind kKinds[] = {
    {HostTag("E\x02"
             "Ah"),
     DetailFlag::kNoteMods},
    {HostTag("E\x02"
             "BH"),
     DetailFlag::kStemOrBeamMods},
    {HostTag("E\x02"
             "BL"),
     DetailFlag::kStemOrBeamMods},
    {HostTag("E\x02"
             "bH"),
     DetailFlag::kStemOrBeamMods},
    {HostTag("E\x02"
             "bL"),
     DetailFlag::kStemOrBeamMods},
    {HostTag("E\x02"
             "cn"),
     DetailFlag::kNoteMods},
    {HostTag("E\x03"
             "TP"),
     DetailFlag::kTuplet},
    {HostTag("E\x03"
             "Te"),
     DetailFlag::kTieOrDotMods},
    {HostTag("E\x03"
             "Ts"),
     DetailFlag::kTieOrDotMods},
    {HostTag("SdcH"), DetailFlag::kLyric},
    {HostTag("SdsE"), DetailFlag::kLyric},
    {HostTag("SdvE"), DetailFlag::kLyric},
    {HostTag("edAS"), DetailFlag::kNoteMods},
    {HostTag("edCD"), DetailFlag::kCrossStaff},
    {HostTag("edDE"), DetailFlag::kBeamExtension},
    {HostTag("edEx"), DetailFlag::kSmartShape},
    {HostTag("edIM"), DetailFlag::kArticulation},
    {HostTag("edLE"), DetailFlag::kLyric},
    {HostTag("edLx"), DetailFlag::kSmartShape},
    {HostTag("edST"), DetailFlag::kStemOrBeamMods},
    {HostTag("edSU"), DetailFlag::kStemOrBeamMods},
    {HostTag("edSt"), DetailFlag::kStemOrBeamMods},
    {HostTag("edUE"), DetailFlag::kBeamExtension},
    {HostTag("eddo"), DetailFlag::kTieOrDotMods},
    {HostTag("ednC"), DetailFlag::kNoteMods},
    {HostTag("edsB"), DetailFlag::kSecondaryBeamBreak},
    {HostTag("edsl"), DetailFlag::kStemOrBeamMods},
    {HostTag("edub"), DetailFlag::kStemOrBeamMods},
};

constexpr u32 kOfNotes[] = {
    HostTag("E\002Ah"), HostTag("E\002cn"), HostTag("E\003Te"), HostTag("E\003Ts"),
    HostTag("edCD"),    HostTag("eddo"),    HostTag("ednC"),
};

constexpr bool IsBefore(const DetailKind& a, const DetailKind& b) noexcept {
    return a.tag < b.tag;
}
static_assert(std::is_sorted(std::begin(kKinds), std::end(kKinds), IsBefore));

}  // namespace

u32 DetailFlagOf(u32 tag) noexcept {
    const auto* found =
        std::lower_bound(std::begin(kKinds), std::end(kKinds), DetailKind{tag, 0}, IsBefore);
    return found != std::end(kKinds) && found->tag == tag ? found->flag : 0;
}

bool IsOfNote(u32 tag) noexcept {
    return std::find(std::begin(kOfNotes), std::end(kOfNotes), tag) != std::end(kOfNotes);
}

u32 StoredDetailFlags() noexcept {
    u32 flags = 0;
    for (const DetailKind& kind : kKinds) {
        flags |= kind.flag;
    }
    return flags;
}

u32 DetailFlagsOf(u32 entry, const RecordStore& records) {
    u32 flags = 0;
    if (records.HasDetails(entry)) {
        records.ForEachDetail(
            entry, [&flags](u32 tag, RecordKey, const Bytes&) { flags |= DetailFlagOf(tag); });
    }
    return flags;
}

}  // namespace standin
