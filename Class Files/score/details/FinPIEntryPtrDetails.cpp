#include <array>
#include <cstddef>
#include <iterator>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/score/details/DetailKind.h"
#include "Class Files/score/details/EntryDetailKinds.h"
#include "Class Files/score/details/FinPISmartShapeAssign.h"
#include "Class Files/score/document/FinPIMeas.h"

namespace {

// How a kind is copied and deleted.
struct KindRow {
    u32 selector;    // the set holds the kind when it has all of these bits
    u32 entryFlags;  // of kinds with stored records; several kinds share a flag
    i16 (*copy)(const FinPIEntryPtr& target, const FinPIEntryPtr& source, u32 kinds);
    FinPIEntryDetail::Removal (*remove)(const FinPIEntryPtr& entry);
    bool (*hasRecord)(const FinPIEntryPtr& entry);

    bool IsIn(u32 kinds) const { return (kinds & selector) == selector; }
    // False: the entry's flags say that it has no records of the kind.
    bool MayStandAt(const FinPIEntryPtr& entry) const {
        return entryFlags == 0 || entry.HasFlag(entryFlags);
    }
};

enum class CopyRule { kAnyEntries, kSameKind };

template <typename Kind>
FinPIEntryDetail::Removal RemoveKind(const FinPIEntryPtr& entry) {
    return Kind{entry}.DeleteAll();
}

template <typename Kind>
bool HasRecordOfKind(const FinPIEntryPtr& entry) {
    return Kind{entry}.HasRecord();
}

// Clears the flags that no stored detail needs any more.
void ClearFlags(const FinPIEntryPtr& entry, u32 flags);

template <typename Kind, CopyRule rule>
i16 CopyKind(const FinPIEntryPtr& target, const FinPIEntryPtr& source, u32 /*kinds*/) {
    Kind to{target};
    Kind from{source};
    i16 anyCopied{};
    const i16 result =
        FinPIEntryDetail::CopyDetail(to, from, rule == CopyRule::kSameKind, anyCopied);
    ClearFlags(target, to.FlagsOfDeleted());
    return result;
}

template <typename Kind>
i16 CopyNoteKind(const FinPIEntryPtr& target, const FinPIEntryPtr& source, u32 kinds) {
    Kind to{target};
    Kind from{source};
    i16 anyCopied{};
    return FinPINoteDetail::CopyNoteDetail(to, from, (kinds & DetailKind::kMatchNotesByPitch) != 0,
                                           anyCopied);
}

template <typename Kind, CopyRule rule>
constexpr KindRow StoredKind(u32 selector) {
    return {selector, Kind::kEntryFlags, CopyKind<Kind, rule>, RemoveKind<Kind>,
            HasRecordOfKind<Kind>};
}

template <typename Kind>
constexpr KindRow NoteKind(u32 selector) {
    return {selector, Kind::kEntryFlags, CopyNoteKind<Kind>, RemoveKind<Kind>,
            HasRecordOfKind<Kind>};
}

template <typename Kind, CopyRule rule>
constexpr KindRow FlagKind(u32 selector) {
    return {selector, 0, CopyKind<Kind, rule>, RemoveKind<Kind>, nullptr};
}

bool AreBothNotesOrRests(const FinPIEntryPtr& a, const FinPIEntryPtr& b) {
    return a.IsNote() == b.IsNote();
}

i16 CopyDuration(const FinPIEntryPtr& target, const FinPIEntryPtr& source, u32 /*kinds*/) {
    if (AreBothNotesOrRests(target, source)) {
        target->duration = source->duration;
    }
    return 1;
}

FinPIEntryDetail::Removal DeleteDuration(const FinPIEntryPtr& /*entry*/) {
    return {};
}

// Manual positioning replaces the automatic modes that would ignore it.
i16 RaisePositioningMode(const FinPIEntryPtr& entry) {
    constexpr u16 kModeBits = 7;
    const DocumentScope document{entry.Document()};
    if (!document) {
        return 0;
    }
    FinPIMeas measure{entry.Measure()};
    if (measure.IsLoaded() == 0) {
        return 1;
    }
    const auto mode = static_cast<u16>(measure.positioning & kModeBits);
    if (mode != 1 && mode != 2) {
        return 1;
    }
    const u16 raised = mode == 1 ? u16{4} : u16{6};
    measure.positioning = static_cast<u16>((measure.positioning & ~kModeBits) | raised);
    return measure.Save();
}

i16 CopyField6(const FinPIEntryPtr& target, const FinPIEntryPtr& source, u32 /*kinds*/) {
    if (!AreBothNotesOrRests(target, source)) {
        return 1;
    }
    target->fieldAt6 = source->fieldAt6;
    return RaisePositioningMode(target);
}

FinPIEntryDetail::Removal DeleteField6(const FinPIEntryPtr& entry) {
    FinPIEntryDetail::Removal removal;
    removal.anyDeleted = entry->fieldAt6 != 0;
    entry->fieldAt6 = 0;
    return removal;
}

// In the order in which kinds are copied and deleted.
constexpr KindRow kKinds[] = {
#define ENTRY_DETAIL(name, family, structure, tag, downTag, flag, kind, rule) \
    StoredKind<FinPI##name, CopyRule::rule>(DetailKind::kind),
#define NOTE_DETAIL(name, structure, tag, flag, noteFlag, kind) \
    NoteKind<FinPI##name>(DetailKind::kind),
#define SHAPE_DETAIL(name, structure, tag, flag, kind, rule) \
    StoredKind<FinPI##name, CopyRule::rule>(DetailKind::kind),
#define FLAG_DETAIL(name, upFlags, downFlags, kind, rule) \
    FlagKind<FinPI##name, CopyRule::rule>(DetailKind::kind),
#define FIELD_DETAIL(name, kind) {DetailKind::kind, 0, Copy##name, Delete##name, nullptr},
#include "shell/host/entry_details.inc"
};

using KindMarks = std::array<bool, std::size(kKinds)>;

// The same; emptied receives the kinds known to have no records.
void ClearFlags(const FinPIEntryPtr& entry, u32 flags, const KindMarks& emptied) {
    auto isEmptied = emptied.begin();
    for (const KindRow& kind : kKinds) {
        const bool mayHaveRecord = !*isEmptied++ && (kind.entryFlags & flags) != 0;
        if (mayHaveRecord && kind.hasRecord(entry)) {
            flags &= ~kind.entryFlags;
        }
    }
    entry->flags &= ~flags;
}

void ClearFlags(const FinPIEntryPtr& entry, u32 flags) {
    ClearFlags(entry, flags, {});
}

}  // namespace

i16 FinPIEntryPtr::CopyDetailsFrom(u32 detailKinds, const FinPIEntryPtr& source) const {
    if (!*this || !source) {
        return 0;
    }
    FinPIEntryPtr to = Shared();
    FinPIEntryPtr from = source.Shared();
    StemDirections toStems;
    StemDirections fromStems;
    to.AttachStemDirections(m_stemDirections != nullptr ? m_stemDirections : &toStems);
    from.AttachStemDirections(source.m_stemDirections != nullptr ? source.m_stemDirections
                                                                 : &fromStems);
    i16 result = 1;
    for (const KindRow& kind : kKinds) {
        if (kind.IsIn(detailKinds) && kind.MayStandAt(from) &&
            kind.copy(to, from, detailKinds) == 0) {
            result = 0;
        }
    }
    return result;
}

i16 FinPIEntryPtr::DeleteDetails(u32 detailKinds, i16& anyDeleted) const {
    if (!*this) {
        return 0;
    }
    i16 result = 1;
    u32 touchedFlags = 0;
    KindMarks emptied{};
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        if (!kKinds[i].IsIn(detailKinds) || !kKinds[i].MayStandAt(*this)) {
            continue;
        }
        const FinPIEntryDetail::Removal removal = kKinds[i].remove(*this);
        emptied[i] = removal.leftNone;
        if (!removal.succeeded) {
            result = 0;
        }
        if (removal.anyDeleted) {
            touchedFlags |= kKinds[i].entryFlags;
            anyDeleted = 1;
        }
    }
    ClearFlags(*this, touchedFlags, emptied);
    return result;
}
