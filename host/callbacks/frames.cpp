// Entry frames on loan, and measure durations.
#include <algorithm>
#include <limits>
#include <span>
#include <utility>

#include "host/callbacks/serve.h"
#include "host/score/entry_form.h"
#include "host/score/records/detail_kinds.h"
#include "host/score/records/tags.h"
#include "shell/host/detail_flags.h"
#include "shell/host/host_functions.h"
#include "shell/host/host_records_more.h"

using namespace standin;

namespace {

constexpr i32 kMaxEntries = 0x7FFF;

std::span<EXENTRY> EntriesOf(const EXFRAME& frame) {
    return {frame.entries, static_cast<std::size_t>(frame.count)};
}

// The loan behind a frame pointer, when the call may touch it: on loan, unharmed, and of the
// current document. Null when not.
LentFrame* FindLoan(Application& app, const EXFRAME* frame) {
    LentFrame* loan = app.lent.Find(frame);
    if (loan == nullptr) {
        ++app.calls.strangeFrames;
        return nullptr;
    }
    return loan->IsIntact() && loan->DocumentNumber() == app.CurrentNumber() ? loan : nullptr;
}

template <typename Result, typename Body>
Result ServeLoan(HostCall call, u32 version, const EXFRAME* frame, Result refused,
                 Body body) noexcept {
    return ServeDocument(call, version, refused, [&](Application& app, Document& document) {
        LentFrame* loan = FindLoan(app, frame);
        return loan == nullptr ? RefuseByRule(app, refused) : body(app, document, *loan);
    });
}

// Entry numbers must be this document's, and not in another frame.
bool OwnsAll(const Document& document, FrameKey key, std::span<const EXENTRY> entries) {
    for (const EXENTRY& entry : entries) {
        const FrameKey home = document.HomeOf(entry.entryNumber);
        if (!document.IsIssued(entry.entryNumber) || (home.staff != 0 && home != key)) {
            return false;
        }
    }
    return true;
}

void MakeWild(std::span<EXENTRY> entries) {
    constexpr i32 kMost = std::numeric_limits<i32>::max();
    i32 time = kMost;
    for (EXENTRY& entry : entries) {
        entry.elapsedTime = time;
        entry.actualDuration = time;
        entry.noteCount = static_cast<i16>(time >> 16);
        time = -time;
    }
}

void Respell(std::span<EXENTRY> entries) {
    for (EXENTRY& entry : entries) {
        for (EXNOTE& note : entry.notes) {
            note.pitch ^= 1U;
            note.second ^= 1U;
        }
    }
}

// From the lowest to the highest; of notes on one step, the alteration decides.
bool IsLower(const EXNOTE& a, const EXNOTE& b) {
    const auto height = [](const EXNOTE& note) {
        const i32 alteration = note.pitch & 7;
        return std::pair{static_cast<i16>(note.pitch) >> 4,
                         (note.pitch & 8) != 0 ? -alteration : alteration};
    };
    return height(a) < height(b);
}

void SortNotes(std::span<EXENTRY> entries) {
    for (EXENTRY& entry : entries) {
        std::stable_sort(entry.notes, entry.notes + entry.noteCount, IsLower);
    }
}

void UntieNew(const Document& document, std::span<EXENTRY> entries) {
    for (EXENTRY& entry : entries) {
        const bool isNew = document.HomeOf(entry.entryNumber).staff == 0;
        for (EXNOTE& note : entry.notes) {
            note.flags &= isNew ? ~NoteFlag::kTieEnd : ~u32{0};
        }
    }
}

void CountFlagsOutOfStep(Application& app, const Document& document,
                         std::span<const EXENTRY> entries) {
    for (const EXENTRY& entry : entries) {
        const u32 wanted = DetailFlagsOf(entry.entryNumber, document.Records());
        if ((entry.flags & DetailFlag::kStored) != wanted) {
            ++app.calls.flagsOutOfStep;
        }
    }
}

bool HasNotes(const EXENTRY& entry) {
    return entry.noteCount > 0 && (entry.notes[0].flags & NoteFlag::kRestPlaceholder) == 0;
}

// The measure's key, unless the staff has keys of its own.
i16 KeyInStaff(const Document& document, u16 measure, u16 staff) {
    const RecordStore& records = document.Records();
    const Bytes* const spec = records.Find(Tag::kStaff, RecordKey::Other(staff));
    const Bytes* const own = records.Find(Tag::kStaffInMeasure, RecordKey::Detail(staff, measure));
    const bool isOwn = spec != nullptr && own != nullptr &&
                       (FromBytes<EDTStaffSpec2014>(*spec).flags & StaffFlag::kOwnKeySig) != 0;
    return static_cast<i16>(isOwn ? FromBytes<EDTMeasureFloat2014>(*own).key
                                  : document.Measure(measure).key);
}

}  // namespace

EXFRAME* FX_LoadTGF(u16 firstKey, i16 slot, i16 measure, u16 layer, i16 alwaysOne, u32 version) {
    EXFRAME* const none = nullptr;
    return ServeDocument(
        HostCall::kLoadTGF, version, none, [&](Application& app, Document& document) -> EXFRAME* {
            if (alwaysOne != 1) {
                return RefuseByRule(app, none);
            }
            const u16 staff = document.StaffInSlot(slot, 0);
            if (staff == 0 || !document.HasMeasure(measure) || layer >= app.maxLayers) {
                return nullptr;
            }
            const FrameKey key{staff, static_cast<u16>(measure), layer};
            const Frame* frame = document.FindFrame(key);
            ++app.calls.framesLent;
            EXFRAME* const lent = app.lent.Lend(std::make_unique<LentFrame>(
                document.Number(), key, firstKey, static_cast<u16>(slot),
                frame == nullptr ? nullptr : &frame->entries, app.EntryMemoryForFrames()));
            if (app.faults.wildEntries) {
                MakeWild(EntriesOf(*lent));
            }
            return lent;
        });
}

i16 FX_SaveTGF(EXFRAME* frame, u32 version) {
    return ServeLoan(
        HostCall::kSaveTGF, version, frame, i16{0},
        [](Application& app, Document& document, LentFrame& loan) -> i16 {
            const std::span<EXENTRY> entries = EntriesOf(loan.View());
            if (WhyNotStorable(entries) != nullptr || !OwnsAll(document, loan.Key(), entries)) {
                return RefuseByRule(app, i16{0});
            }
            CountFlagsOutOfStep(app, document, entries);
            std::vector<EXENTRY> stored{entries.begin(), entries.end()};
            if (app.manners.sorting) {
                SortNotes(stored);
            }
            if (app.faults.untiesNewEntries) {
                UntieNew(document, stored);
            }
            document.PutFrame(loan.Key(), std::move(stored));
            return 1;
        });
}

void FX_FreeTGF(EXFRAME* frame, u32 version) {
    Serve(HostCall::kFreeTGF, version, 0, [&](Application& app) {
        if (app.lent.Return(frame)) {
            ++app.calls.framesReturned;
        } else {
            ++app.calls.strangeFrames;
        }
        return 0;
    });
}

i32 FX_GetTGFDuration(EXFRAME* frame, u32 version) {
    return ServeLoan(HostCall::kGetTGFDuration, version, frame, i32{0},
                     [](Application&, Document&, LentFrame& loan) {
                         i32 duration = 0;
                         for (const EXENTRY& entry : EntriesOf(loan.View())) {
                             if ((entry.flags & EntryFlag::kVoice2) == 0) {
                                 duration += entry.actualDuration;
                             }
                         }
                         return duration;
                     });
}

i16 FX_InsertEXENTRY(EXFRAME* frame, i16 index, i16 count, u32 version) {
    return ServeLoan(
        HostCall::kInsertEXENTRY, version, frame, i16{0},
        [&](Application& app, Document& document, LentFrame& loan) -> i16 {
            const i32 before = loan.View().count;
            if (index < 0 || index > before || count < 1 || before + count > kMaxEntries) {
                return RefuseByRule(app, i16{0});
            }
            std::vector<EXENTRY> fresh(static_cast<std::size_t>(count));
            for (EXENTRY& entry : fresh) {
                entry.entryNumber = document.NewEntryNumber();
            }
            loan.Insert(index, fresh);
            return 1;
        });
}

i16 FX_DeleteEXENTRY(EXFRAME* frame, i16 index, i16 count, u32 version) {
    return ServeLoan(HostCall::kDeleteEXENTRY, version, frame, i16{0},
                     [&](Application& app, Document&, LentFrame& loan) -> i16 {
                         if (index < 0 || count < 1 || index + count > loan.View().count) {
                             return RefuseByRule(app, i16{0});
                         }
                         loan.Delete(index, count);
                         if (app.faults.respellsNotes) {
                             Respell(EntriesOf(loan.View()));
                         }
                         return 1;
                     });
}

i16 FX_ReduceEntries(EXFRAME* frame, u32 version) {
    return ServeLoan(HostCall::kReduceEntries, version, frame, i16{0},
                     [](Application&, Document&, LentFrame& loan) -> i16 {
                         for (i16 i = loan.View().count; i-- > 0;) {
                             const EXENTRY& entry = loan.View().entries[i];
                             if (!HasNotes(entry) && entry.duration == 0) {
                                 loan.Delete(i, 1);
                             }
                         }
                         return 1;
                     });
}

i32 FX_GetMeasureDuration(u16 staff, i16 measure, u32 version) {
    return ServeDocument(
        HostCall::kGetMeasureDuration, version, i32{0},
        [&](Application&, Document& document) { return document.MeasureDuration(staff, measure); });
}

i16 FX_GetKeySig(i16 measure, u16 staff, i16, i16 zero, u32 version) {
    return ServeDocument(
        HostCall::kGetKeySig, version, i16{0}, [&](Application& app, Document& document) -> i16 {
            if (zero != 0) {
                return RefuseByRule(app, i16{0});
            }
            const bool exists =
                document.HasMeasure(measure) && (staff == 0 || document.HasStaff(staff));
            return exists ? KeyInStaff(document, static_cast<u16>(measure), staff) : i16{0};
        });
}
