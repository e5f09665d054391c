#include "host/report/measure_pictures.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include "host/report/excerpts.h"
#include "host/report/places.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

constexpr i64 kRounding = 2;  // duration units by which times of tuplets may differ

// A staff by its number in the score, counted from 1.
struct PartStaff {
    const ScorePart* part = nullptr;
    u16 staff = 1;  // of the part
};

std::vector<PartStaff> StavesOf(const ImportedScore& score) {
    std::vector<PartStaff> staves{{}};
    for (const ScorePart& part : score.parts) {
        for (std::size_t staff = 1; staff <= part.staves.size(); ++staff) {
            staves.push_back({&part, static_cast<u16>(staff)});
        }
    }
    return staves;
}

// The layers by the names of their voices, as the score was read.
std::map<std::string, u16> LayersOfVoices(const Document& document, const StaffVoices& voices,
                                          u16 measure) {
    std::map<std::string, u16> layers;
    for (u16 layer = 0; layer < kLayers; ++layer) {
        if (const Frame* frame = document.ImportedFrame({voices.staff, measure, layer})) {
            for (const EXENTRY& entry : frame->entries) {
                layers.emplace(voices.NameAt(measure, layer, u32{entry.entryNumber}), layer);
            }
        }
    }
    return layers;
}

bool Coincide(i64 a, i64 b) {
    return std::abs(a - b) <= kRounding;
}

bool Stays(const MergedMeasure& measure, const ExcerptNote& note, std::optional<u16> layer) {
    return std::ranges::any_of(measure.stayed, [&](const StayedEntry& entry) {
        return entry.layer == layer && Coincide(entry.onset, note.onset) &&
               std::ranges::find(entry.pitches, note.pitch) != entry.pitches.end();
    });
}

std::vector<PicturedNote> NotesBefore(const Excerpt& excerpt, const MergedMeasure& measure,
                                      const std::map<std::string, u16>& layers) {
    std::vector<PicturedNote> notes;
    notes.reserve(excerpt.notes.size());
    for (const ExcerptNote& note : excerpt.notes) {
        const auto found = layers.find(note.voice);
        const auto layer = found == layers.end() ? std::nullopt : std::optional{found->second};
        notes.push_back({layer, Stays(measure, note, layer)});
    }
    return notes;
}

// Each note after the merge is one of those before: of equal ones, that of its own voice first.
std::vector<PicturedNote> NotesAfter(const Excerpt& after, const Excerpt& before,
                                     const std::vector<PicturedNote>& notesBefore) {
    std::vector<PicturedNote> notes(after.notes.size());
    std::vector<bool> isPaired(after.notes.size());
    std::vector<bool> isTaken(before.notes.size());
    for (const bool withinVoice : {true, false}) {
        for (std::size_t i = 0; i < notes.size(); ++i) {
            for (std::size_t j = 0; j < before.notes.size() && !isPaired[i]; ++j) {
                const ExcerptNote& was = before.notes[j];
                const ExcerptNote& is = after.notes[i];
                if (!isTaken[j] && was.pitch == is.pitch && Coincide(was.onset, is.onset) &&
                    (!withinVoice || was.voice == is.voice)) {
                    notes[i] = notesBefore[j];
                    isPaired[i] = isTaken[j] = true;
                }
            }
        }
    }
    return notes;
}

std::string WordsFor(const ImportedScore& score, u16 measure, const EXENTRY& entry) {
    if (entry.noteCount == 0) {
        return std::string{Say(Text::kRest)};
    }
    std::string words;
    for (int i = 0; i < entry.noteCount; ++i) {
        words += (i == 0 ? "" : "+") + NameOfNote(score, measure, entry.notes[i]);
    }
    return words;
}

// What is seen of a measure, layer by layer; frameOf: the frame in a layer, or null.
template <typename FrameOf>
std::string WordsForLayers(const ImportedScore& score, u16 measure, FrameOf frameOf) {
    std::string words;
    for (u16 layer = 0; layer < kLayers; ++layer) {
        std::string list;
        if (const Frame* frame = frameOf(layer)) {
            for (const EXENTRY& entry : frame->entries) {
                const bool isSeen = entry.noteCount > 0 || (entry.flags & EntryFlag::kIgnore) == 0;
                if (isSeen) {
                    list += (list.empty() ? "" : ", ") + WordsFor(score, measure, entry);
                }
            }
        }
        if (!list.empty()) {
            words += (words.empty() ? "" : ". ") +
                     Say(Text::kLayerHolds, {std::to_string(layer + 1), list});
        }
    }
    return words;
}

}  // namespace

std::vector<MeasurePictures> PicturesOf(const MergeReport& report, const ImportedScore& score,
                                        const std::string& result) {
    const Document& document = *score.document;
    const std::vector<PartStaff> staves = StavesOf(score);
    std::vector<ExcerptPlace> places;
    places.reserve(report.measures.size());
    for (const MergedMeasure& measure : report.measures) {
        const PartStaff& at = staves[measure.staff];
        places.push_back({at.part->id, at.staff, static_cast<std::size_t>(measure.measure - 1)});
    }
    std::vector<Excerpt> before = CutExcerpts(score.text, places);
    std::vector<Excerpt> after = CutExcerpts(result, places);
    std::vector<MeasurePictures> pictures(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        const MergedMeasure& measure = report.measures[i];
        const StaffVoices& voices =
            staves[measure.staff].part->staves[std::size_t{places[i].staff} - 1];
        const auto key = [&](u16 layer) { return FrameKey{voices.staff, measure.measure, layer}; };
        Picture& first = pictures[i].before;
        first.notes =
            NotesBefore(before[i], measure, LayersOfVoices(document, voices, measure.measure));
        first.words = WordsForLayers(score, measure.measure,
                                     [&](u16 layer) { return document.ImportedFrame(key(layer)); });
        Picture& second = pictures[i].after;
        second.notes = NotesAfter(after[i], before[i], first.notes);
        second.words = WordsForLayers(score, measure.measure,
                                      [&](u16 layer) { return document.FindFrame(key(layer)); });
        first.measure = std::move(before[i].measure);
        second.measure = std::move(after[i].measure);
    }
    return pictures;
}

}  // namespace standin
