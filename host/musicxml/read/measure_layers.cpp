#include "host/musicxml/read/measure_layers.h"

#include <algorithm>
#include <map>
#include <set>

#include "host/musicxml/read/line_frame.h"

namespace standin {

void MeasureLayers::Begin(u16 measure) {
    m_measure = measure;
    m_drafts.clear();
    m_voices.clear();
}

EntryDraft& MeasureLayers::Add(int staff, std::string_view name) {
    auto voice = std::ranges::find_if(m_voices, [&](const Voice& candidate) {
        return candidate.staff == staff && candidate.name == name;
    });
    if (voice == m_voices.end()) {
        m_voices.push_back({staff, std::string{name}, {}, {}, -1});
        voice = std::prev(m_voices.end());
    }
    EntryDraft& draft = m_drafts.emplace_back();
    draft.entry.entryNumber = m_score.document->NewEntryNumber();
    draft.staff = staff;
    draft.voice = name;
    voice->entries.push_back(&draft);
    return draft;
}

int MeasureLayers::LayerOf(int staff, std::string_view name) const {
    for (const Voice& voice : m_voices) {
        if (voice.staff == staff && voice.name == name) {
            return voice.layer;
        }
    }
    return -1;
}

// Grace entries belong to the entry that follows them.
void MeasureLayers::SplitIntoLines(Voice& voice) {
    const auto byStart = [](const EntryDraft* a, const EntryDraft* b) {
        return a->start < b->start;
    };
    std::ranges::stable_sort(voice.entries, byStart);
    std::vector<EntryDraft*> graces;
    const auto lineFor = [&voice](Rational start) -> Line& {
        for (Line& line : voice.lines) {
            if (!(start < line.end)) {
                return line;
            }
        }
        return voice.lines.emplace_back();
    };
    for (EntryDraft* draft : voice.entries) {
        if (draft->Grace()) {
            graces.push_back(draft);
            continue;
        }
        Line& line = lineFor(draft->start);
        line.entries.insert(line.entries.end(), graces.begin(), graces.end());
        graces.clear();
        line.entries.push_back(draft);
        line.end = draft->End();
    }
    if (!graces.empty()) {
        Line& line = lineFor(graces.front()->start);
        line.entries.insert(line.entries.end(), graces.begin(), graces.end());
    }
}

namespace {

constexpr int kMaxLayers = 256;  // of a staff in a measure, those of carried voices too

bool ShareTime(const EntryDraft& a, const EntryDraft& b) {
    const auto isWithin = [](const EntryDraft& grace, const EntryDraft& other) {
        return !(grace.start < SpanStart(other)) && grace.start < SpanEnd(other);
    };
    if (a.Grace() || b.Grace()) {
        return a.start == b.start || isWithin(a, b) || isWithin(b, a);
    }
    return SpanStart(a) < SpanEnd(b) && SpanStart(b) < SpanEnd(a);
}

// Of two voices, each in order of time and without entries that share time.
bool ShareTime(const std::vector<EntryDraft*>& a, const std::vector<EntryDraft*>& b) {
    using Owned = std::pair<const EntryDraft*, bool>;
    std::vector<Owned> all;
    all.reserve(a.size() + b.size());
    for (const EntryDraft* entry : a) {
        all.emplace_back(entry, true);
    }
    for (const EntryDraft* entry : b) {
        all.emplace_back(entry, false);
    }
    std::ranges::stable_sort(all, [](const Owned& left, const Owned& right) {
        return left.first->start < right.first->start;
    });
    return std::ranges::adjacent_find(all, [](const Owned& left, const Owned& right) {
               return left.second != right.second && ShareTime(*left.first, *right.first);
           }) != all.end();
}

}  // namespace

Problem MeasureLayers::TooManyVoices(const Voice& voice) const {
    return {Text::kTooManyVoices,
            voice.entries.front()->text.begin,
            {m_part.id, std::to_string(voice.staff + 1), std::to_string(m_measure)}};
}

int MeasureLayers::FreeLayer(const Used& used) const {
    for (int layer = 0; layer < kLayers; ++layer) {
        const auto index = static_cast<std::size_t>(layer);
        if (!used.layers[index] && !m_own[index]) {
            return layer;
        }
    }
    return -1;
}

// A layer below 0 means a carrying layer. Returns kMaxLayers if none is left.
int MeasureLayers::TakeLayer(const Voice& voice, int layer, Used& used) {
    if (layer < 0) {
        if (used.nextCarried == kMaxLayers) {
            return kMaxLayers;
        }
        layer = used.nextCarried++;
        PartMeasure& measure = m_part.measures.back();
        measure.layers = std::max(measure.layers, static_cast<u16>(layer + 1));
    } else {
        used.layers[static_cast<std::size_t>(layer)] = true;
    }
    StaffVoices& staff = m_part.staves[static_cast<std::size_t>(voice.staff)];
    staff.others[{m_measure, static_cast<u16>(layer)}] = voice.name;
    return layer;
}

Problem MeasureLayers::ChooseFurtherLayer(Voice& voice, Used& used) {
    const int free = FreeLayer(used);
    if (free >= 0 || !ShareLayer(voice)) {
        voice.layer = TakeLayer(voice, free, used);
    }
    return voice.layer == kMaxLayers ? TooManyVoices(voice) : Problem{};
}

// Its entries join a voice of the same staff that they do not overlap.
bool MeasureLayers::ShareLayer(Voice& voice) {
    const auto takesIn = [&](const Voice& host) {
        return host.staff == voice.staff && host.layer >= 0 && host.layer < kLayers &&
               !host.isGuest && !m_own[static_cast<std::size_t>(host.layer)] &&
               host.lines.size() == 1 && !ShareTime(host.entries, voice.entries);
    };
    const auto host = std::ranges::find_if(m_voices, takesIn);
    if (host == m_voices.end() || voice.lines.size() > 1) {
        return false;
    }
    StaffVoices& staff = m_part.staves[static_cast<std::size_t>(voice.staff)];
    for (const EntryDraft* draft : voice.entries) {
        staff.guests[draft->entry.entryNumber] = voice.name;
    }
    host->entries.insert(host->entries.end(), voice.entries.begin(), voice.entries.end());
    host->lines.clear();
    SplitIntoLines(*host);
    voice.layer = host->layer;
    voice.isGuest = true;
    return true;
}

// Known voices first, so that another one takes a layer that none of them needs here.
Problem MeasureLayers::ChooseLayers(int staff) {
    StaffVoices& names = m_part.staves[static_cast<std::size_t>(staff)];
    Used used{};
    for (Voice& voice : m_voices) {
        if (voice.staff != staff) {
            continue;
        }
        auto layer = std::ranges::find(names.names, voice.name);
        if (layer == names.names.end()) {
            layer = std::ranges::find(names.names, "");
            if (layer == names.names.end()) {
                continue;
            }
            *layer = voice.name;
        }
        voice.layer = static_cast<int>(layer - names.names.begin());
        used.layers[static_cast<std::size_t>(voice.layer)] = true;
    }
    for (Voice& voice : m_voices) {
        if (voice.staff == staff && voice.layer < 0) {
            if (Problem problem = ChooseFurtherLayer(voice, used)) {
                return problem;
            }
        }
    }
    for (Voice& voice : m_voices) {
        if (voice.staff == staff && !voice.isGuest) {
            if (Problem problem = StoreVoice(voice, used)) {
                return problem;
            }
        }
    }
    return {};
}

// A tuplet is complete in its line, and nothing else there overlaps it.
void MeasureLayers::DissolveTornTuplets(const Voice& voice) {
    std::map<TupletGroup*, const Line*> homes;
    std::set<TupletGroup*> torn;
    for (const Line& line : voice.lines) {
        TupletGroup* running = nullptr;
        Rational end{};
        for (const EntryDraft* draft : line.entries) {
            if (draft->Grace()) {
                continue;
            }
            TupletGroup* group = draft->tuplet != nullptr ? &draft->tuplet->Outermost() : nullptr;
            if (group != running) {
                if (SpanStart(*draft) < end) {
                    torn.insert({group, running});
                }
                running = group;
            }
            if (group != nullptr && homes.try_emplace(group, &line).first->second != &line) {
                torn.insert(group);
            }
            end = std::max(end, SpanEnd(*draft));
        }
    }
    torn.erase(nullptr);
    for (TupletGroup* group : torn) {
        TupletGroups::Dissolve(*group);
    }
}

Problem MeasureLayers::Store() {
    m_tuplets.Find(m_drafts, m_measure);
    for (Voice& voice : m_voices) {
        SplitIntoLines(voice);
        DissolveTornTuplets(voice);
    }
    for (std::size_t staff = 0; staff < m_part.staves.size(); ++staff) {
        if (Problem problem = ChooseLayers(static_cast<int>(staff))) {
            return problem;
        }
    }
    return {};
}

Problem MeasureLayers::StoreLine(const Voice& voice, const Line& line, int layer) {
    std::vector<EXENTRY> frame;
    if (Problem problem = LayOut(line, 0, {}, frame)) {
        return problem;
    }
    PutFrame(voice.staff, layer, std::move(frame));
    if (layer >= kLayers) {
        KeepText(line);
    }
    return {};
}

void MeasureLayers::KeepText(const Line& line) {
    for (const EntryDraft* draft : line.entries) {
        if (draft->isOnePiece) {
            m_score.carried[draft->entry.entryNumber] = draft->text;
        }
    }
}

Problem MeasureLayers::StoreVoice(Voice& voice, Used& used) {
    const bool isCarried = voice.layer >= kLayers;
    const Line* secondVoice = nullptr;
    for (std::size_t i = 1; i < voice.lines.size(); ++i) {
        const Line& line = voice.lines[i];
        const int free = isCarried ? -1 : FreeLayer(used);
        if (free < 0 && !isCarried && secondVoice == nullptr) {
            secondVoice = &line;
            continue;
        }
        const int layer = TakeLayer(voice, free, used);
        if (Problem problem =
                layer == kMaxLayers ? TooManyVoices(voice) : StoreLine(voice, line, layer)) {
            return problem;
        }
    }
    if (secondVoice == nullptr) {
        return StoreLine(voice, voice.lines.front(), voice.layer);
    }
    std::vector<EXENTRY> frame;
    if (Problem problem = LayOut(voice.lines.front(), 0, {}, frame)) {
        return problem;
    }
    if (Problem problem = AppendSecondVoice(voice, *secondVoice, frame)) {
        return problem;
    }
    PutFrame(voice.staff, voice.layer, std::move(frame));
    return {};
}

// Voice 2 starts with the last entry of the layer that starts no later than the line.
Problem MeasureLayers::AppendSecondVoice(const Voice& voice, const Line& line,
                                         std::vector<EXENTRY>& frame) {
    const Line& first = voice.lines.front();
    std::size_t launcher = 0;
    Rational start{};
    std::size_t at = 0;
    for (const EntryDraft* draft : first.entries) {
        while (at < frame.size() && frame[at].entryNumber != draft->entry.entryNumber) {
            ++at;
        }
        const bool starts = !draft->Grace() && !(SpanStart(*line.entries.front()) < draft->start);
        if (starts && at < frame.size()) {
            launcher = at;
            start = draft->start;
        }
    }
    frame[launcher].flags |= EntryFlag::kLaunchVoice2;
    std::vector<EXENTRY> second;
    if (Problem problem = LayOut(line, EntryFlag::kVoice2, start, second)) {
        return problem;
    }
    frame.insert(frame.begin() + static_cast<std::ptrdiff_t>(launcher) + 1, second.begin(),
                 second.end());
    return {};
}

Problem MeasureLayers::LayOut(const Line& line, u32 flags, Rational from,
                              std::vector<EXENTRY>& frame) {
    LineFrame built{m_score, flags, from};
    for (auto draft = line.entries.begin(); draft != line.entries.end(); ++draft) {
        const auto main = std::find_if_not(draft, line.entries.end(),
                                           [](const EntryDraft* entry) { return entry->Grace(); });
        if (Problem problem =
                built.Append(**draft, main != line.entries.end() ? **main : **draft)) {
            return problem;
        }
    }
    frame = built.Take();
    return {};
}

void MeasureLayers::PutFrame(int staff, int layer, std::vector<EXENTRY> frame) {
    const FrameKey key{m_part.staves[static_cast<std::size_t>(staff)].staff, m_measure,
                       static_cast<u16>(layer)};
    m_score.document->PutFrame(key, std::move(frame));
}

}  // namespace standin
