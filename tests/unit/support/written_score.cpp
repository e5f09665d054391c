#include "tests/unit/support/written_score.h"

#include <algorithm>
#include <array>

#include "host/score/detail_kinds.h"
#include "host/score/smart_shape.h"
#include "tests/unit/support/notation.h"

namespace standin {
namespace {

struct NoteTag {
    u32 tag;
    u32 noteFlag;  // only notes with it have such details
};

constexpr NoteTag kNoteTags[] = {
    {HostTag("edCD"), NoteFlag::kCrossStaff},
    {HostTag("E\002Ah"), 0},
    {HostTag("E\002cn"), 0},
    {HostTag("eddo"), 0},
    {HostTag("E\003Ts"), NoteFlag::kTieStart},
    {HostTag("E\003Te"), NoteFlag::kTieEnd},
    {HostTag("ednC"), 0},
};

const NoteTag* FindNoteTag(u32 tag) {
    const auto* found = std::find_if(std::begin(kNoteTags), std::end(kNoteTags),
                                     [tag](const NoteTag& noteTag) { return noteTag.tag == tag; });
    return found == std::end(kNoteTags) ? nullptr : found;
}

const EXENTRY* Find(StandIn& host, EntryPlace place) {
    const auto* frame = host.Score().FindFrame(host.Key(place.slot, place.measure, place.layer));
    const auto index = static_cast<std::size_t>(place.index);
    return frame == nullptr || index >= frame->entries.size() ? nullptr : &frame->entries[index];
}

void SetFlags(StandIn& host, EntryPlace place, u32 entryFlags, int note, u32 noteFlags) {
    const FrameKey key = host.Key(place.slot, place.measure, place.layer);
    std::vector<EXENTRY> entries = host.Score().FindFrame(key)->entries;
    EXENTRY& entry = entries[static_cast<std::size_t>(place.index)];
    entry.flags |= entryFlags;
    entry.notes[note].flags |= noteFlags;
    host.Score().PutFrame(key, std::move(entries));
}

// Of the kinds with a variant for each stem direction the up-stem one is written.
u32 VariantFor(EntryPlace place, u32 tag) {
    const u32 down = tag == HostTag("edUE")   ? HostTag("edDE")
                     : tag == HostTag("edSU") ? HostTag("edsl")
                                              : tag;
    if (down == tag) {
        return tag;
    }
    EXFRAME* frame = FX_LoadTGF(0, place.slot, static_cast<i16>(place.measure), place.layer, 1,
                                kInterfaceVersion);
    ENTRYMETRICS metrics{};
    FX_GetEntryMetrics(frame, static_cast<i16>(place.index), &metrics, kInterfaceVersion);
    FX_FreeTGF(frame, kInterfaceVersion);
    return metrics.stemDirection < 0 ? down : tag;
}

void AddDetail(StandIn& host, const WrittenScore::Detail& detail) {
    const EXENTRY* entry = Find(host, detail.place);
    if (entry == nullptr) {
        return;
    }
    const NoteTag* noteTag = FindNoteTag(detail.tag);
    if (noteTag != nullptr && detail.note >= entry->noteCount) {
        return;
    }
    std::string content{detail.content};
    if (noteTag != nullptr) {
        const u16 noteID = entry->notes[detail.note].noteID;
        content.insert(0, reinterpret_cast<const char*>(&noteID), sizeof(noteID));
    }
    const u32 noteFlag = noteTag != nullptr ? noteTag->noteFlag : 0;
    if (detail.entryFlags != 0 || noteFlag != 0) {
        SetFlags(host, detail.place, detail.entryFlags, detail.note, noteFlag);
    }
    if (detail.tag != 0) {
        host.Attach(detail.place, VariantFor(detail.place, detail.tag), content);
    }
}

void AddShape(StandIn& host, const WrittenScore::Shape& written) {
    const auto end = [&host](EntryPlace place, const EXENTRY& entry) {
        return EDTSmartShapeEnd{host.Staff(place.slot), place.measure, entry.entryNumber,
                                entry.elapsedTime};
    };
    const EXENTRY* from = Find(host, written.from);
    const EXENTRY* to = Find(host, written.to);
    if (from != nullptr && to != nullptr) {
        EDTSmartShape shape{};
        shape.start = end(written.from, *from);
        shape.end = end(written.to, *to);
        AddSmartShape(host.Score(), shape,
                      written.onLyrics ? Tag::kShapeOnLyric : Tag::kShapeOnEntry);
    }
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

std::string Numbers(std::initializer_list<i32> numbers) {
    std::string text;
    for (const i32 number : numbers) {
        text += (text.empty() ? "" : ", ") +
                (number == kEndOfMeasure ? "kEndOfMeasure" : std::to_string(number));
    }
    return text;
}

std::string Written(EntryPlace place) {
    return '{' + Numbers({place.slot, place.measure, place.layer, place.index}) + '}';
}

std::string TagText(u32 tag) {
    std::string text;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        const char letter = static_cast<char>(tag >> shift);
        text += letter < ' ' ? static_cast<char>('0' + letter) : letter;
    }
    return text;
}

// The places that a frame's removal, or a staff's or measure's, leaves without an entry.
template <typename IsGone>
void DropWhatHangsOn(WrittenScore& score, IsGone isGone) {
    std::erase_if(score.durations, [&](const auto& d) { return isGone(d.slot, d.measure, -1); });
    std::erase_if(score.frames, [&](const auto& f) { return isGone(f.slot, f.measure, f.layer); });
    const auto placeGone = [&](EntryPlace place) {
        return isGone(place.slot, place.measure, place.layer);
    };
    std::erase_if(score.details, [&](const auto& d) { return placeGone(d.place); });
    std::erase_if(score.expressions, [&](const auto& e) { return placeGone(e.place); });
    std::erase_if(score.shapes,
                  [&](const auto& s) { return placeGone(s.from) || placeGone(s.to); });
}

WrittenScore WithoutLastStaff(WrittenScore score) {
    const int last = score.staves--;
    DropWhatHangsOn(score, [last](int slot, int, int) { return slot == last; });
    score.selection.startSlot = std::min(score.selection.startSlot, static_cast<i16>(last - 1));
    score.selection.endSlot = std::min(score.selection.endSlot, static_cast<i16>(last - 1));
    return score;
}

WrittenScore WithoutLastMeasure(WrittenScore score) {
    const int last = score.measures--;
    DropWhatHangsOn(score, [last](int, int measure, int) { return measure == last; });
    EREGION& region = score.selection;
    if (region.endMeasure == last) {
        region.endMeasure = static_cast<i16>(last - 1);
        region.endPosition = kEndOfMeasure;
    }
    if (region.startMeasure == last) {
        region.startMeasure = static_cast<i16>(last - 1);
        region.startPosition = 0;
    }
    return score;
}

template <typename Item>
void WithoutEach(const WrittenScore& score, std::vector<Item> WrittenScore::*items,
                 std::vector<WrittenScore>& smaller) {
    for (std::size_t i = 0; i < (score.*items).size(); ++i) {
        smaller.push_back(score);
        auto& left = smaller.back().*items;
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

// A rest for the entry, one note less, nothing hidden.
std::vector<std::string> SimplerThan(const std::string& word) {
    std::vector<std::string> simpler;
    const std::size_t content = word.find(':') + 1;
    const std::string value = word.substr(0, content);
    if (word.substr(content) != "r") {
        simpler.push_back(value + 'r');
    }
    const std::size_t comma = word.rfind(',');
    if (comma != std::string::npos) {
        simpler.push_back(word.substr(0, comma));
        simpler.push_back(value + word.substr(comma + 1));
    }
    if (word.back() == '!') {
        simpler.push_back(word.substr(0, word.size() - 1));
    }
    if (word.find('~') != std::string::npos) {
        simpler.push_back(word);
        std::erase(simpler.back(), '~');
    }
    return simpler;
}

void WithSimplerEntries(const WrittenScore& score, std::vector<WrittenScore>& smaller) {
    for (std::size_t f = 0; f < score.frames.size(); ++f) {
        const std::vector<std::string>& words = score.frames[f].words;
        for (std::size_t w = 0; w < words.size(); ++w) {
            if (!IsEntry(words[w])) {
                continue;
            }
            for (const std::string& word : SimplerThan(words[w])) {
                smaller.push_back(score);
                smaller.back().frames[f].words[w] = word;
            }
        }
    }
}

}  // namespace

bool IsEntry(const std::string& word) {
    return word.front() != '(' && word.find(':') != std::string::npos;
}

int EntryCount(const std::vector<std::string>& words) {
    return static_cast<int>(std::count_if(words.begin(), words.end(), IsEntry));
}

std::unique_ptr<StandIn> Build(const WrittenScore& score) {
    auto host = std::make_unique<StandIn>(score.staves, score.measures);
    App().maxLayers = static_cast<i16>(score.layers);
    for (const auto& duration : score.durations) {
        host->Score().SetMeasureDuration(host->Staff(duration.slot), duration.measure,
                                         duration.duration);
    }
    for (const auto& frame : score.frames) {
        host->Layer(frame.slot, frame.measure, frame.layer, Joined(frame.words));
    }
    for (const auto& detail : score.details) {
        AddDetail(*host, detail);
    }
    for (const auto& shape : score.shapes) {
        AddShape(*host, shape);
    }
    for (const auto& expression : score.expressions) {
        if (const EXENTRY* entry = Find(*host, expression.place)) {
            host->Expression(expression.place.slot, expression.place.measure, entry->elapsedTime,
                             expression.layer);
        }
    }
    host->Score().selection = score.selection;
    return host;
}

std::string Print(const WrittenScore& score) {
    std::string text = "StandIn host{" + Numbers({score.staves, score.measures}) + "};\n";
    text += "App().maxLayers = " + std::to_string(score.layers) + ";\n";
    for (const auto& d : score.durations) {
        text += "SetMeasureDuration(Staff(" + std::to_string(d.slot) + "), " +
                Numbers({d.measure, d.duration}) + ");\n";
    }
    for (const auto& frame : score.frames) {
        text += "host.Layer(" + Numbers({frame.slot, frame.measure, frame.layer}) + ", \"" +
                Joined(frame.words) + "\");\n";
    }
    for (const auto& d : score.details) {
        text += "detail at " + Written(d.place) + ": " +
                (d.tag == 0 ? "flags " + std::to_string(d.entryFlags) : TagText(d.tag));
        text += IsOfNote(d.tag) ? " of note " + std::to_string(d.note) : std::string{};
        text += std::string(" '") + d.content + "'\n";
    }
    for (const auto& s : score.shapes) {
        text += "host.Slur(" + Written(s.from) + ", " + Written(s.to) + ");" +
                (s.onLyrics ? " on lyrics\n" : "\n");
    }
    for (const auto& e : score.expressions) {
        text += "expression at " + Written(e.place) + " of layer " + std::to_string(e.layer) + '\n';
    }
    const EREGION& r = score.selection;
    text += "host.Select(" +
            Numbers({r.startSlot, r.startMeasure, r.startPosition, r.endSlot, r.endMeasure,
                     r.endPosition}) +
            ");\n";
    const MergeOptions& o = score.options;
    return text + "MergeOptions{" +
           Numbers({o.size, o.source, o.destination, o.mode, o.rebeam, o.hideRests}) + "}\n";
}

std::vector<WrittenScore> SmallerThan(const WrittenScore& score) {
    std::vector<WrittenScore> smaller;
    if (score.staves > 1) {
        smaller.push_back(WithoutLastStaff(score));
    }
    if (score.measures > 1) {
        smaller.push_back(WithoutLastMeasure(score));
    }
    for (const auto& frame : score.frames) {
        smaller.push_back(score);
        DropWhatHangsOn(smaller.back(), [&frame](int slot, int measure, int layer) {
            return slot == frame.slot && measure == frame.measure && layer == frame.layer;
        });
    }
    WithoutEach(score, &WrittenScore::durations, smaller);
    WithoutEach(score, &WrittenScore::details, smaller);
    WithoutEach(score, &WrittenScore::shapes, smaller);
    WithoutEach(score, &WrittenScore::expressions, smaller);
    WithSimplerEntries(score, smaller);
    return smaller;
}

}  // namespace standin
