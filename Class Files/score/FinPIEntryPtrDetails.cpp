#include <array>
#include <cstddef>
#include <iterator>

#include "Class Files/score/DetailKind.h"
#include "Class Files/score/EntryDetailKinds.h"
#include "Class Files/score/FinPIMeas.h"
#include "Class Files/score/FinPISmartShapeAssign.h"

namespace {

// What copying and deleting do with a kind.
struct KindRow {
    u32 selector;    // the set holds the kind when it has all of these bits
    u32 entryFlags;  // of kinds whose records the host keeps; several share a flag
    i16 (*copy)(const FinPIEntryPtr& target, const FinPIEntryPtr& source, u32 kinds);
    FinPIEntryDetail::Removal (*remove)(const FinPIEntryPtr& entry);
    bool (*hasRecord)(const FinPIEntryPtr& entry);

    bool IsIn(u32 kinds) const { return (kinds & selector) == selector; }
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

template <typename Kind, CopyRule rule>
i16 CopyKind(const FinPIEntryPtr& target, const FinPIEntryPtr& source, u32 /*kinds*/) {
    Kind to{target};
    Kind from{source};
    i16 anyCopied = 0;
    return FinPIEntryDetail::CopyDetail(to, from, rule == CopyRule::kSameKind, anyCopied);
}

template <typename Kind>
i16 CopyNoteKind(const FinPIEntryPtr& target, const FinPIEntryPtr& source, u32 kinds) {
    Kind to{target};
    Kind from{source};
    i16 anyCopied = 0;
    return FinPINoteDetail::CopyNoteDetail(to, from, (kinds & DetailKind::kMatchNotesByPitch) != 0,
                                           anyCopied);
}

template <typename Kind, CopyRule rule>
constexpr KindRow StoredKind(u32 selector, u32 entryFlags) {
    return {selector, entryFlags, CopyKind<Kind, rule>, RemoveKind<Kind>, HasRecordOfKind<Kind>};
}

template <typename Kind>
constexpr KindRow NoteKind(u32 selector, u32 entryFlags) {
    return {selector, entryFlags, CopyNoteKind<Kind>, RemoveKind<Kind>, HasRecordOfKind<Kind>};
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

FinPIEntryDetail::Removal KeepDuration(const FinPIEntryPtr& /*entry*/) {
    return {};
}

// Positioning by hand takes the place of the automatic modes that know nothing of it.
i16 RaisePositioningMode(u16 measureNumber) {
    constexpr u16 kModeBits = 7;
    FinPIMeas measure{measureNumber};
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
    return RaisePositioningMode(target.Measure());
}

FinPIEntryDetail::Removal ClearField6(const FinPIEntryPtr& entry) {
    FinPIEntryDetail::Removal removal;
    removal.anyDeleted = entry->fieldAt6 != 0;
    entry->fieldAt6 = 0;
    return removal;
}

using DetailFlag::kNoteMods;
using DetailFlag::kStemOrBeamMods;
constexpr CopyRule kAny = CopyRule::kAnyEntries;
constexpr CopyRule kSame = CopyRule::kSameKind;
constexpr u32 kLyricShape = DetailKind::kLyric | DetailKind::kLyricSmartShape;

// In the order in which kinds are copied and deleted.
constexpr KindRow kKinds[] = {
    FlagKind<FinPIFrozenStem, kSame>(DetailKind::kFrozenStem),
    {DetailKind::kDuration, 0, CopyDuration, KeepDuration, nullptr},
    StoredKind<FinPITuplet, kAny>(DetailKind::kTuplet, DetailFlag::kTuplet),
    StoredKind<FinPIArticulation, kSame>(DetailKind::kArticulation, DetailFlag::kArticulation),
    StoredKind<FinPIVerseAssign, kSame>(DetailKind::kLyric, DetailFlag::kLyric),
    StoredKind<FinPIChorusAssign, kSame>(DetailKind::kLyric, DetailFlag::kLyric),
    StoredKind<FinPISectionAssign, kSame>(DetailKind::kLyric, DetailFlag::kLyric),
    StoredKind<FinPILyricEntryInfo, kSame>(DetailKind::kLyric, DetailFlag::kLyric),
    StoredKind<FinPISmartShapeLyricAssign, kSame>(kLyricShape, DetailFlag::kSmartShape),
    NoteKind<FinPICrossStaff>(DetailKind::kCrossStaff, DetailFlag::kCrossStaff),
    FlagKind<FinPIPrimaryBeamBreak, kAny>(DetailKind::kPrimaryBeamBreak),
    StoredKind<FinPIBeamAlt<HostTag("E\002BL")>, kSame>(DetailKind::kBeamAlt, kStemOrBeamMods),
    StoredKind<FinPIBeamAlt<HostTag("E\002BH")>, kSame>(DetailKind::kBeamAlt, kStemOrBeamMods),
    StoredKind<FinPIBeamAlt<HostTag("E\002bL")>, kSame>(DetailKind::kBeamAlt, kStemOrBeamMods),
    StoredKind<FinPIBeamAlt<HostTag("E\002bH")>, kSame>(DetailKind::kBeamAlt, kStemOrBeamMods),
    StoredKind<FinPISecondaryBeamBreak, kAny>(DetailKind::kSecondaryBeamBreak,
                                              DetailFlag::kSecondaryBeamBreak),
    StoredKind<FinPIBeamExtension, kSame>(DetailKind::kBeamExtension, DetailFlag::kBeamExtension),
    StoredKind<FinPIStemAlt<HostTag("edST")>, kSame>(DetailKind::kStemAlt, kStemOrBeamMods),
    StoredKind<FinPIStemAlt<HostTag("edSt")>, kSame>(DetailKind::kSecondStemAlt, kStemOrBeamMods),
    StoredKind<FinPICustomStem, kSame>(DetailKind::kCustomStem, kStemOrBeamMods),
    StoredKind<FinPIBeamStubDirection, kSame>(DetailKind::kBeamStubDirection, kStemOrBeamMods),
    FlagKind<FinPINullEntryDetail<DetailFlag::kFlagDetail1>, kSame>(DetailKind::kFlagDetails),
    FlagKind<FinPINullEntryDetail<DetailFlag::kFlagDetail2>, kSame>(DetailKind::kFlagDetails),
    NoteKind<FinPIAccidentalMods>(DetailKind::kAccidentalMods, kNoteMods),
    NoteKind<FinPINoteheadMods>(DetailKind::kNoteheadMods, kNoteMods),
    StoredKind<FinPINoteAlts, kSame>(DetailKind::kNoteAlts, kNoteMods),
    StoredKind<FinPISmartShapeAssign, kSame>(DetailKind::kSmartShape, DetailFlag::kSmartShape),
    NoteKind<FinPITieStartRaw>(DetailKind::kTieStart, DetailFlag::kTieOrDotMods),
    NoteKind<FinPITieEndRaw>(DetailKind::kTieEnd, DetailFlag::kTieOrDotMods),
    NoteKind<FinPIDotAlts>(DetailKind::kDotAlts, DetailFlag::kTieOrDotMods),
    NoteKind<FinPIPercNoteCode>(DetailKind::kPercNoteCode, kNoteMods),
    {DetailKind::kEntryField6, 0, CopyField6, ClearField6, nullptr},
};

using KindMarks = std::array<bool, std::size(kKinds)>;

// Clears those of the flags that no stored detail asks for any more. emptied marks the kinds
// that are known to have none.
void ClearFlags(const FinPIEntryPtr& entry, u32 flags, const KindMarks& emptied) {
    for (std::size_t i = 0; i < std::size(kKinds) && flags != 0; ++i) {
        if ((kKinds[i].entryFlags & flags) != 0 && !emptied[i] && kKinds[i].hasRecord(entry)) {
            flags &= ~kKinds[i].entryFlags;
        }
    }
    entry->flags &= ~flags;
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
        if (kind.IsIn(detailKinds) && kind.copy(to, from, detailKinds) == 0) {
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
        if (!kKinds[i].IsIn(detailKinds)) {
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
