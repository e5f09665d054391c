// The merge of one layer into another, for one staff in one measure.
#include <algorithm>
#include <map>
#include <set>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/frames/NormalizeFrame.h"
#include "merge/EntryTools.h"
#include "merge/ExpressionReassignment.h"
#include "merge/FramePair.h"
#include "merge/NoteOrder.h"
#include "merge/Plyweld.h"

namespace {

constexpr char kMergeOperation[] = "Plyweld::MergeFrame";

struct Joined {
    i16 destination;             // index
    std::vector<u16> noteIDs{};  // of the notes that came from the source, in its order
};
// By the index of the source entry.
using PairMap = std::map<i16, Joined>;

bool IsSelectedNote(const FinPIRegion& region, const FinPIEntryPtr& entry) {
    return entry.IsNote() && entry.Document() == region.DocumentID() &&
           region.ContainsTime(static_cast<i16>(entry.Measure()), entry.ScaledPosition());
}

// Without its durations, positions in a frame are unknown.
bool IsMeasured(const FinPITGFPtr& frame) {
    return !frame || (frame.NominalMeasureDuration() > 0 && frame.StaffMeasureDuration() > 0);
}

// A pair with too many notes for one chord stays separate, so that no note is lost. A grace entry
// that launches voice 2 stays, because nothing else would launch that voice.
bool FormsChord(const FinPIEntryPtr& source, const FinPIEntryPtr& destination) {
    return source.IsNote() && source->elapsedTime == destination->elapsedTime &&
           source->actualDuration == destination->actualDuration &&
           source->duration == destination->duration &&
           source->noteCount + destination->noteCount <= kMaxNotesPerEntry &&
           !(source.IsGrace() && source.HasFlag(EntryFlag::kLaunchVoice2));
}

// If two destination entries match a source entry, it joins the one of its own voice, else the
// first.
void Claim(PairMap& pairs, const FramePair& frames, i16 source, i16 destination) {
    const auto [pair, isNew] = pairs.emplace(source, Joined{destination});
    if (isNew) {
        return;
    }
    const bool voice2 = frames.source.EntryAt(source).IsVoice2();
    Joined& joined = pair->second;
    if (frames.destination.EntryAt(joined.destination).IsVoice2() != voice2 &&
        frames.destination.EntryAt(destination).IsVoice2() == voice2) {
        joined.destination = destination;
    }
}

// After the chord's own notes and without IDs, so that they get new ones.
void AppendNotes(EXENTRY& chord, const EXENTRY& source) {
    for (i16 i = 0; i < source.noteCount; ++i) {
        EXNOTE& note = chord.notes[chord.noteCount++];
        note = source.notes[i];
        note.noteID = 0;
    }
}

std::map<u32, i16> GraceIndices(const FinPITGFPtr& frame) {
    std::map<u32, i16> indices;
    const i16 count = frame.Count();
    for (i16 i = 0; i < count; ++i) {
        const FinPIEntryPtr entry = frame.EntryAt(i);
        if (entry.IsGrace()) {
            indices.emplace(entry.Number(), entry.GraceIndex());
        }
    }
    return indices;
}

PairMap PairCoincidingEntries(const FramePair& frames) {
    PairMap pairs;
    const EntriesByPosition sources{frames.source};
    const i16 count = frames.destination.Count();
    for (i16 i = 0; i < count; ++i) {
        const FinPIEntryPtr destination = frames.destination.EntryAt(i);
        if (!IsSelectedNote(frames.region, destination)) {
            continue;
        }
        const i16 source = FindCoincidentEntry(sources, destination.ScaledPosition(),
                                               destination.GraceOffset(), destination.IsVoice2());
        if (source >= 0 && FormsChord(frames.source.EntryAt(source), destination)) {
            Claim(pairs, frames, source, i);
        }
    }
    return pairs;
}

void JoinNotes(const FramePair& frames, PairMap& pairs) {
    for (const auto& [source, joined] : pairs) {
        AppendNotes(*frames.destination.EntryAt(joined.destination),
                    *frames.source.EntryAt(source));
    }
    if (!pairs.empty()) {
        NormalizeFrame(frames.destination.Entries());
    }
    for (auto& [source, joined] : pairs) {
        joined.noteIDs = NoteIDs(frames.destination.EntryAt(joined.destination));
        const auto own = std::ssize(joined.noteIDs) - frames.source.EntryAt(source)->noteCount;
        joined.noteIDs.erase(joined.noteIDs.begin(), joined.noteIDs.begin() + own);
    }
}

void MovePairedEntries(FramePair& frames, const PairMap& pairs) {
    std::set<u32> graceRests;
    for (const auto& [sourceIndex, joined] : pairs) {
        const FinPIEntryPtr source = frames.source.EntryAt(sourceIndex);
        const FinPIEntryPtr destination = frames.destination.EntryAt(joined.destination);
        if (!source || !destination) {
            continue;
        }
        {
            // A detail goes to the first note of its pitch. The chord's own notes may have the same
            // pitch, so the new notes come first while details move.
            const NotesInOrder order{destination, joined.noteIDs};
            MoveAttachments(source, destination, kChordDetails);
        }
        frames.AddMoved(source, destination);
        MakeRest(source, source->duration, frames.hideRests);
        if (source.IsGrace()) {
            graceRests.insert(source.Number());
        }
    }
    if (!pairs.empty()) {
        frames.source.DeleteEntries(graceRests);
    }
}

}  // namespace

i16 Plyweld::MergeFrame(u16 staff, i16 measure, u16 sourceLayer, u16 destinationLayer) {
    const auto frame = [&](u16 layer) {
        return FinPITGFPtr{staff, static_cast<u16>(measure), layer};
    };
    const u16 document = CurrentDocument();
    if (document == 0) {  // nothing would count as selected
        PostError(FinPINoOpenDocumentError{});
        return 0;
    }
    FramePair frames{{m_region, document}, frame(sourceLayer), {}};
    if (frames.source && frames.source.Count() == 0) {
        return 1;
    }
    frames.destination = frame(destinationLayer);
    const u16 slot = frames.region.SlotOfStaff(staff);
    if (slot == 0 || !IsMeasured(frames.source) || !IsMeasured(frames.destination)) {
        PostError(FinPIAppError{kMergeOperation, "Unable to find the staff in the selection."});
        return 0;
    }
    frames.staffSelected = frames.region.ContainsSlot(slot);
    frames.sourceGraces = GraceIndices(frames.source);
    frames.hideRests = m_configData.hideAddedRests != 0;

    PairMap pairs = PairCoincidingEntries(frames);
    JoinNotes(frames, pairs);
    if (frames.destination.ReloadTGF() == 0) {
        return 0;
    }
    MovePairedEntries(frames, pairs);
    if (frames.destination.ReloadTGF() == 0 || FillRestRuns(frames) == 0) {
        return 0;
    }
    ReassignExpressions(frames, sourceLayer, destinationLayer);
    return 1;
}
