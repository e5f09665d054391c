// The host's own commands on layers.
#include <algorithm>

#include "host/score/application.h"
#include "host/score/records/tags.h"
#include "shell/host/detail_flags.h"

namespace standin {
namespace {

// An edit of the host's own, or part of the one already open.
class CommandEdit {
public:
    CommandEdit(Document& document, std::u16string undoText)
        : m_document{document}, m_isOwn{document.BeginEdit(std::move(undoText))} {}
    ~CommandEdit() {
        if (m_isOwn) {
            m_document.EndEdit();
        }
    }
    CommandEdit(const CommandEdit&) = delete;
    CommandEdit& operator=(const CommandEdit&) = delete;

private:
    Document& m_document;
    bool m_isOwn;
};

bool ToggleShowActiveLayerOnly(Document& document) {
    const Bytes* stored = document.Records().Find(Tag::kMiscPrefs, RecordKey::Other(0));
    if (stored == nullptr) {
        return false;
    }
    const CommandEdit edit{document, u"Show Active Layer Only"};
    auto prefs = FromBytes<CurrEDTMiscPrefs>(*stored);
    prefs.showActiveLayerOnly = prefs.showActiveLayerOnly == 0 ? 1 : 0;
    return document.Records().Save(Tag::kMiscPrefs, RecordKey::Other(0), BytesOf(prefs));
}

// The selected part of a measure, including both ends.
struct Span {
    i32 first;
    i32 last;

    bool Covers(i32 duration) const { return first <= 0 && last >= duration - 1; }
};

Span SelectedSpan(const EREGION& region, i32 measure) {
    return {measure == region.startMeasure ? i32{region.startPosition} : 0,
            measure == region.endMeasure ? i32{region.endPosition} : kEndOfMeasure};
}

// An entry's start in the measure's own units, as in selections.
i32 PositionInMeasure(const Document& document, FrameKey key, const EXENTRY& entry) {
    const i64 nominal = document.MeasureDuration(0, key.measure);
    const i64 staff = document.MeasureDuration(key.staff, key.measure);
    return staff <= 0 ? i32{entry.elapsedTime}
                      : static_cast<i32>((nominal * entry.elapsedTime + staff / 2) / staff);
}

// Leaves a visible rest of the same duration; details of the note are deleted, tuplets stay.
void TurnIntoRest(Document& document, EXENTRY& entry) {
    std::vector<std::pair<u32, RecordKey>> doomed;  // the last ones first
    RecordStore& records = document.Records();
    records.ForEachDetail(entry.entryNumber, [&](u32 tag, RecordKey key, const Bytes&) {
        if (tag != Tag::kTuplet) {
            doomed.insert(doomed.begin(), {tag, key});
        }
    });
    for (const auto& [tag, key] : doomed) {
        records.Delete(tag, key);
    }
    constexpr u32 kStays = EntryFlag::kVoice2 | EntryFlag::kLaunchVoice2 | DetailFlag::kTuplet;
    entry.flags = (entry.flags & kStays) | EntryFlag::kMadeRest | EntryFlag::kNoNotes;
    entry.noteCount = 0;
    std::ranges::fill(entry.notes, EXNOTE{});
}

void ClearFrame(Document& document, FrameKey key, Span selected) {
    const Frame* frame = document.FindFrame(key);
    if (frame == nullptr) {
        return;
    }
    std::vector<EXENTRY> entries;
    if (!selected.Covers(document.MeasureDuration(0, key.measure))) {
        for (const EXENTRY& stored : frame->entries) {
            entries.push_back(stored);
            const i32 position = PositionInMeasure(document, key, stored);
            if (position < selected.first || position > selected.last) {
                continue;
            }
            if ((stored.flags & EntryFlag::kGrace) != 0) {
                entries.pop_back();
            } else {
                TurnIntoRest(document, entries.back());
            }
        }
    }
    document.PutFrame(key, std::move(entries));
}

bool ClearActiveLayer(Document& document, i16 layer) {
    if (!document.selection) {
        return false;
    }
    const EREGION region = *document.selection;
    const CommandEdit edit{document, u"Clear Layer"};
    const i32 lastMeasure = std::min<i32>(region.endMeasure, document.MeasureCount());
    for (i32 slot = region.startSlot; slot <= region.endSlot; ++slot) {
        const u16 staff = document.StaffInSlot(static_cast<i16>(slot), region.startStaffList);
        for (i32 measure = std::max<i32>(region.startMeasure, 1); measure <= lastMeasure;
             ++measure) {
            ClearFrame(document, {staff, static_cast<u16>(measure), static_cast<u16>(layer)},
                       SelectedSpan(region, measure));
        }
    }
    return true;
}

}  // namespace

bool RunMenuCommand(u16 command) {
    Application& app = App();
    Document* document = app.CurrentDocument();
    if (document == nullptr) {
        return false;
    }
    if (command == MenuCommand::kShowActiveLayerOnly) {
        return ToggleShowActiveLayerOnly(*document);
    }
    if (command == MenuCommand::kClearLayer) {
        return ClearActiveLayer(*document, app.activeLayer);
    }
    const i32 layer = i32{command} - MenuCommand::kFirstLayer;
    if (layer < 0 || layer >= app.maxLayers) {
        return false;
    }
    app.activeLayer = static_cast<i16>(layer);
    return true;
}

}  // namespace standin
