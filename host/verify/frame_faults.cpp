#include "host/verify/frame_faults.h"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "host/score/records/detail_kinds.h"
#include "host/score/time/entry_times.h"
#include "host/texts/texts.h"
#include "shell/host/detail_flags.h"

namespace standin {
namespace {

constexpr i32 kRounding = 2;  // times inside tuplets are rounded to whole units

bool IsVoice2(const EXENTRY& entry) {
    return (entry.flags & EntryFlag::kVoice2) != 0;
}

i32 EndOfVoice1(const Frame& frame) {
    i32 end = 0;
    for (const EXENTRY& entry : frame.entries) {
        end = IsVoice2(entry) ? end : std::max(end, EndOf(entry));
    }
    return end;
}

std::optional<Text> FaultOfNotes(const EXENTRY& entry) {
    for (i16 i = 0; i < entry.noteCount; ++i) {
        bool isUnique = entry.notes[i].noteID != 0;
        for (i16 other = 0; other < i; ++other) {
            isUnique = isUnique && entry.notes[other].noteID != entry.notes[i].noteID;
        }
        if (!isUnique) {
            return Text::kFaultNoteIds;
        }
    }
    return std::nullopt;
}

std::optional<Text> FaultOfLaunch(const Frame& frame, std::size_t index) {
    const EXENTRY& entry = frame.entries[index];
    const bool launches = (entry.flags & EntryFlag::kLaunchVoice2) != 0;
    const bool followed = index + 1 < frame.entries.size() && IsVoice2(frame.entries[index + 1]);
    if (IsVoice2(entry) || launches == followed) {
        return std::nullopt;
    }
    return launches ? Text::kFaultNoLaunch : Text::kFaultNotLaunched;
}

// The flags that match the stored details, by entry number.
std::unordered_map<u32, u32> DetailFlagsByEntry(const DocumentContent& content) {
    std::unordered_map<u32, u32> flags;
    for (const auto& [tag, table] : content.records) {
        if (FamilyOf(tag) == RecordFamily::kEntryDetail) {
            for (const auto& [key, bytes] : table) {
                flags[key.Entry()] |= DetailFlagOf(tag);
            }
        }
    }
    return flags;
}

void CheckFrame(FrameKey key, const Frame& frame, const std::unordered_map<u32, u32>& detailFlags,
                std::vector<std::string>& faults) {
    i32 ends[2] = {0, 0};  // of each voice
    for (std::size_t i = 0; i < frame.entries.size(); ++i) {
        const EXENTRY& entry = frame.entries[i];
        const auto add = [&](std::optional<Text> what) {
            if (what) {
                faults.push_back(WordsFor(key) + ", " + std::to_string(entry.elapsedTime) + ": " +
                                 Say(*what, {}));
            }
        };
        const auto addIf = [&](bool isFaulty, Text what) {
            add(isFaulty ? std::optional{what} : std::nullopt);
        };
        i32& end = ends[IsVoice2(entry) ? 1 : 0];
        addIf(entry.elapsedTime < end - kRounding, Text::kFaultOverlap);
        end = std::max(end, EndOf(entry));
        const auto wanted = detailFlags.find(u32{entry.entryNumber});
        const u32 flags = wanted == detailFlags.end() ? 0 : wanted->second;
        addIf((entry.flags & DetailFlag::kStored) != flags, Text::kFaultDetailFlags);
        add(FaultOfLaunch(frame, i));
        add(FaultOfNotes(entry));
    }
}

}  // namespace

std::string WordsFor(FrameKey key) {
    return Say(Text::kFaultLayer,
               {std::to_string(key.staff), std::to_string(key.measure), std::to_string(key.layer)});
}

void AddFaultsOfFrames(const DocumentContent& before, const DocumentContent& after,
                       std::vector<std::string>& faults) {
    std::map<std::pair<u16, u16>, i32> lengths;  // the longest layer by staff and measure
    for (const auto& [key, frame] : before.frames) {
        i32& longest = lengths[{key.staff, key.measure}];
        longest = std::max(longest, EndOfVoice1(frame));
    }
    const std::unordered_map<u32, u32> detailFlags = DetailFlagsByEntry(after);
    for (const auto& [key, frame] : after.frames) {
        if (EndOfVoice1(frame) > lengths[{key.staff, key.measure}] + kRounding) {
            faults.push_back(WordsFor(key) + ": " + Say(Text::kFaultLayerGrew, {}));
        }
        CheckFrame(key, frame, detailFlags, faults);
    }
}

}  // namespace standin
