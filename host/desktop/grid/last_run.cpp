#include "host/desktop/grid/last_run.h"

#include <algorithm>
#include <map>

#include "host/report/frame_effect.h"
#include "host/texts/texts.h"
#include "platform/text.h"

namespace standin::desktop {

namespace {

// Layers that received notes; all layers if none did. What is gone from the others has moved.
FrameEffect EffectOf(const Journal& edit, const Document& document) {
    std::map<u16, FrameEffect> byLayer;
    for (const auto& [key, before] : edit.Frames()) {
        const Frame* now = document.FindFrame(key);
        byLayer[key.layer] +=
            EffectOn(before.entries, now == nullptr ? std::vector<EXENTRY>{} : now->entries);
    }
    const auto received = [](const auto& layer) { return layer.second.notesMoved > 0; };
    const bool anyReceived = std::ranges::any_of(byLayer, received);
    FrameEffect total;
    for (const auto& layer : byLayer) {
        total += !anyReceived || received(layer) ? layer.second : FrameEffect{};
    }
    return total;
}

}  // namespace

std::string LastRunText(const Document& document) {
    const Journal* edit = document.LastEdit();
    if (edit == nullptr) {
        return {};
    }
    const FrameEffect effect = EffectOf(*edit, document);
    std::string counts;
    const auto add = [&counts](int number, Text one, Text many) {
        if (number > 0) {
            counts += (counts.empty() ? "" : ", ") +
                      Say(number == 1 ? one : many, {std::to_string(number)});
        }
    };
    add(effect.chordsFormed, Text::kOneChordFormed, Text::kManyChordsFormed);
    add(effect.restsFilled, Text::kOneRestFilled, Text::kManyRestsFilled);
    add(effect.notesMoved, Text::kOneNoteMoved, Text::kManyNotesMoved);
    add(effect.notesGone, Text::kOneNoteCleared, Text::kManyNotesCleared);
    if (counts.empty()) {
        counts = Say(Text::kNoMusicMoved);
    }
    return Say(Text::kLastRun, {platform::Utf8Of(document.UndoTexts().back()), counts});
}

}  // namespace standin::desktop
