#include "tests/unit/support/written_score.h"

#include <sstream>

#include "host/score/records/detail_kinds.h"
#include "shell/host/output_room.h"

namespace standin {
namespace {

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
    const u32 down = FindDetailKind(tag)->downTag;
    if (down == 0) {
        return tag;
    }
    EXFRAME* frame = FX_LoadTGF(0, place.slot, static_cast<i16>(place.measure), place.layer, 1,
                                kInterfaceVersion);
    OutputRoom<ENTRYMETRICS> metrics;
    FX_GetEntryMetrics(frame, static_cast<i16>(place.index), metrics.Address(), kInterfaceVersion);
    FX_FreeTGF(frame, kInterfaceVersion);
    return metrics.Known().stemDirection < 0 ? down : tag;
}

void AddDetail(StandIn& host, const WrittenScore::Detail& detail) {
    const EXENTRY* entry = Find(host, detail.place);
    if (entry == nullptr) {
        return;
    }
    const DetailKindRow* const kind = FindDetailKind(detail.tag);
    const bool isOfNote = IsOfNote(detail.tag);
    if (isOfNote && detail.note >= entry->noteCount) {
        return;
    }
    std::string content{detail.content};
    if (isOfNote) {
        const u16 noteID = entry->notes[detail.note].noteID;
        content.insert(0, reinterpret_cast<const char*>(&noteID), sizeof(noteID));
    }
    SetFlags(host, detail.place, detail.entryFlags, detail.note,
             kind != nullptr ? kind->noteFlag : 0);
    if (detail.tag != 0) {
        host.Attach(detail.place, VariantFor(detail.place, detail.tag), content);
    }
}

void AddShape(StandIn& host, const WrittenScore::Shape& written) {
    if (Find(host, written.from) != nullptr && Find(host, written.to) != nullptr) {
        host.Slur(written.from, written.to,
                  written.onLyrics ? Tag::kShapeOnLyric : Tag::kShapeOnEntry);
    }
}

void AddExpression(StandIn& host, const WrittenScore::Expression& written) {
    EntryPlace place = written.place;
    const EXENTRY* entry = Find(host, place);
    if (entry == nullptr) {
        return;
    }
    i16 graceIndex = 0;
    for (const EXENTRY* at = entry; at != nullptr && (at->flags & EntryFlag::kGrace) != 0;
         at = --place.index < 0 ? nullptr : Find(host, place)) {
        ++graceIndex;
    }
    host.Expression(place.slot, place.measure, entry->elapsedTime, written.layer, graceIndex);
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

std::string Braced(std::initializer_list<i32> numbers) {
    std::string text;
    for (const i32 number : numbers) {
        text += (text.empty() ? "{" : ", ") +
                (number == kEndOfMeasure ? "kEndOfMeasure" : std::to_string(number));
    }
    return text + '}';
}

std::string Braced(EntryPlace place) {
    return Braced({place.slot, place.measure, place.layer, place.index});
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

}  // namespace

bool IsEntry(const std::string& word) {
    return word.front() != '(' && word.find(':') != std::string::npos;
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
        AddExpression(*host, expression);
    }
    host->Score().selection = score.selection;
    return host;
}

std::vector<std::string> LayersOf(const StandIn& host, const WrittenScore& score) {
    std::vector<std::string> layers;
    for (i16 slot = 1; slot <= score.staves; ++slot) {
        for (u16 measure = 1; measure <= score.measures; ++measure) {
            for (u16 layer = 0; layer < App().maxLayers; ++layer) {
                layers.push_back(host.Layer(slot, measure, layer));
            }
        }
    }
    return layers;
}

std::string Print(const WrittenScore& score) {
    std::ostringstream text;
    text << "StandIn host" << Braced({score.staves, score.measures}) << ";\n"
         << "App().maxLayers = " << score.layers << ";\n";
    for (const auto& d : score.durations) {
        text << "duration " << Braced({d.slot, d.measure, d.duration}) << '\n';
    }
    for (const auto& f : score.frames) {
        text << "host.Layer(" << f.slot << ", " << f.measure << ", " << f.layer << ", \""
             << Joined(f.words) << "\");\n";
    }
    for (const auto& d : score.details) {
        text << "detail at " << Braced(d.place) << ": tag " << d.tag << " of note " << d.note
             << ", flags " << d.entryFlags << " '" << d.content << "'\n";
    }
    for (const auto& s : score.shapes) {
        text << "host.Slur(" << Braced(s.from) << ", " << Braced(s.to)
             << (s.onLyrics ? "); on lyrics\n" : ");\n");
    }
    for (const auto& e : score.expressions) {
        text << "expression at " << Braced(e.place) << " of layer " << e.layer << '\n';
    }
    const EREGION& r = score.selection;
    const MergeOptions& o = score.options;
    text << "host.Select"
         << Braced({r.startSlot, r.startMeasure, r.startPosition, r.endSlot, r.endMeasure,
                    r.endPosition})
         << "\nMergeOptions{.source = " << o.source << ", .destination = " << o.destination
         << ", .mode = " << o.mode;
    for (const MergeSwitch& each : kMergeSwitches) {
        text << ", ." << each.name << " = " << o.*each.member;
    }
    text << "}\n";
    return text.str();
}

std::vector<WrittenScore> SmallerThan(const WrittenScore& score) {
    std::vector<WrittenScore> smaller;
    WithoutEach(score, &WrittenScore::expressions, smaller);
    WithoutEach(score, &WrittenScore::shapes, smaller);
    WithoutEach(score, &WrittenScore::details, smaller);
    WithoutEach(score, &WrittenScore::durations, smaller);
    WithoutEach(score, &WrittenScore::frames, smaller);
    return smaller;
}

}  // namespace standin
