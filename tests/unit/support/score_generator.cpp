#include "tests/unit/support/score_generator.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <random>
#include <sstream>

#include "host/score/records/detail_kinds.h"
#include "shell/host/detail_flags.h"

namespace standin {
namespace {

using Words = std::vector<std::string>;

// Each with its sixteenths.
using Values = std::pair<const char*, int>;
constexpr Values kValues[] = {{"w:", 16}, {"h.:", 12}, {"h:", 8}, {"q.:", 6}, {"q:", 4},
                              {"q:", 4},  {"e.:", 3},  {"e:", 2}, {"e:", 2},  {"s:", 1}};
constexpr Values kTuplets[] = {{"(3:2 e: e: e: )", 4},
                               {"(3:2e q: e: )", 4},
                               {"(3:2 q: q: q: )", 8},
                               {"(5:4 s: s: s: s: s: )", 4},
                               {"(3:2q q: (3:2 e: e: e: ) q: )", 8},  // nested
                               {"(2:3 e: e: )", 6}};

constexpr const char* kPitches[] = {"c4",  "e4", "g4",  "c5", "d4", "f#4", "bb4", "a3",
                                    "eb5", "f5", "g#5", "b3", "d5", "a5",  "c6"};

constexpr u32 kFlagDetails[] = {
#define FLAG_DETAIL(name, upFlags, ...) DetailFlag::upFlags,
#include "shell/host/entry_details.inc"
};

// Tuplets are written with the notes, shapes by themselves.
std::vector<u32> TagsToWrite(bool ofNotes) {
    std::vector<u32> tags;
    for (const DetailKindRow& kind : DetailKinds()) {
        if (kind.isOfNote == ofNotes && !kind.isShapeMark && kind.tag != Tag::kTuplet) {
            tags.push_back(kind.tag);
        }
    }
    return tags;
}

class Maker {
public:
    explicit Maker(u32 seed) : m_random{seed} {}

    WrittenScore Run() {
        m_score.staves = 1 + Below(10) / 8;
        m_score.measures = 1 + Below(10) / 6;
        m_score.layers = Chance(85) ? 4 : 1 + Below(8);
        MakeFrames();
        for (const auto& frame : m_score.frames) {
            AddDetails(frame);
        }
        AddShapes();
        AddExpressions();
        Select();
        const int layers = m_score.layers;
        const bool all = layers == 1 || Chance(60);
        m_score.options.source = all ? u16{65535} : static_cast<u16>(Below(layers));
        do {
            m_score.options.destination = static_cast<u16>(Below(layers));
        } while (m_score.options.destination == m_score.options.source);
        m_score.options.mode = Chance(12) ? 1 : 0;
        for (const MergeSwitch& each : kMergeSwitches) {
            m_score.options.*each.member = Chance(50) ? 1 : 0;
        }
        return std::move(m_score);
    }

private:
    int Below(int end) { return static_cast<int>(m_random() % static_cast<u32>(end)); }
    bool Chance(int percent) { return Below(100) < percent; }
    template <typename Array>
    auto& OneOf(Array& array) {
        return array[static_cast<std::size_t>(Below(static_cast<int>(std::size(array))))];
    }

    void MakeFrames() {
        for (i16 slot = 1; slot <= m_score.staves; ++slot) {
            for (u16 measure = 1; measure <= m_score.measures; ++measure) {
                int sixteenths = 16;
                if (Chance(8)) {
                    sixteenths = Chance(50) ? 12 : 18;
                    m_score.durations.push_back({slot, measure, sixteenths * 256});
                }
                MakeMeasure(slot, measure, sixteenths);
            }
        }
    }

    // Layers that share a rhythm meet; the others fill or miss each other.
    void MakeMeasure(i16 slot, u16 measure, int sixteenths) {
        const std::array<Words, 2> shared = {Rhythm(sixteenths), Rhythm(sixteenths)};
        for (u16 layer = 0; layer < m_score.layers; ++layer) {
            if (Chance(layer < 2 ? 12 : layer < 4 ? 55 : 75)) {
                continue;
            }
            const int length = Chance(10) ? Below(sixteenths) : sixteenths;
            const Words rhythm =
                length == sixteenths && Chance(75) ? shared[Chance(70) ? 0U : 1U] : Rhythm(length);
            constexpr int kRestChances[] = {10, 10, 45, 80, 100};
            m_restChance = OneOf(kRestChances);
            Words words = Voice1(rhythm, length);
            if (!words.empty()) {
                m_score.frames.push_back({slot, measure, layer, std::move(words)});
            }
        }
    }

    Words Rhythm(int sixteenths) {
        Words words;
        while (sixteenths > 0) {
            const auto& [text, value] = Chance(12) ? OneOf(kTuplets) : OneOf(kValues);
            if (value <= sixteenths) {
                std::istringstream stream{text};
                std::copy(std::istream_iterator<std::string>{stream}, {},
                          std::back_inserter(words));
                sixteenths -= value;
            }
        }
        return words;
    }

    static int SixteenthsOf(const std::string& value) {
        return std::ranges::find_if(kValues,
                                    [&value](const Values& known) { return value == known.first; })
            ->second;
    }

    // Fills a rhythm with notes and rests, and puts grace notes and second voices into it.
    Words Voice1(const Words& rhythm, int length) {
        Words words;
        int left = length;   // sixteenths, where no tuplet is running
        int voice2Left = 0;  // how far a second voice still goes on
        int depth = 0;
        for (const std::string& word : rhythm) {
            depth += word.front() == '(' ? 1 : 0;
            depth -= word == ")" ? 1 : 0;
            if (!IsEntry(word)) {
                words.push_back(word);
                voice2Left = 99;  // no second voice beside or behind a tuplet
                continue;
            }
            if ((words.empty() || words.back().front() != '(') && Chance(12)) {
                AddGraceNotes(words);
            }
            words.push_back(word + Content());
            const int sixteenths = SixteenthsOf(word);
            if (depth == 0 && voice2Left <= 0 && Chance(12)) {
                voice2Left = Chance(75) ? sixteenths : std::min(left, sixteenths + 2);
                AddVoice2(words, voice2Left);
            }
            left -= sixteenths;
            voice2Left -= sixteenths;
        }
        return words;
    }

    void AddGraceNotes(Words& words) {
        for (int count = 1 + Below(3); count > 0; --count) {
            words.push_back(std::string(Chance(70) ? "gs:" : "ge:") + Notes());
        }
    }

    void AddVoice2(Words& words, int sixteenths) {
        words.emplace_back("v2{");
        for (const std::string& word : Rhythm(sixteenths)) {
            if (words.back().front() != '(' && IsEntry(word) && Chance(8)) {
                words.push_back("gs:" + Notes());
            }
            words.push_back(IsEntry(word) ? word + Content() : word);
        }
        words.emplace_back("}");
    }

    std::string Content() {
        if (Chance(m_restChance)) {
            return Chance(12) ? "x" : "r";
        }
        return Notes() + (Chance(2) ? "!" : "");
    }

    std::string Notes() {
        const int count = Chance(65) ? 1 : Chance(75) ? 2 + Below(2) : 4 + Below(9);
        Words pitches{std::begin(kPitches), std::end(kPitches)};
        pitches.resize(count > 3 ? pitches.size() : 8);  // small chords have more in common
        std::string text;
        for (int i = 0; i < count; ++i) {
            std::string& pitch = OneOf(pitches);
            text += i > 0 ? "," : "";
            text += Chance(8) ? "~" : "";
            text += pitch;
            text += Chance(8) ? "~" : "";
            pitches.erase(pitches.begin() + (&pitch - pitches.data()));
        }
        return text;
    }

    void AddDetails(const WrittenScore::Frame& frame) {
        int index = -1;
        for (const std::string& word : frame.words) {
            if (!IsEntry(word)) {
                continue;
            }
            const EntryPlace place{frame.slot, frame.measure, frame.layer, ++index};
            const bool isRest = word.back() == 'r' || word.back() == 'x';
            for (int more = Chance(isRest ? 3 : 14) ? 1 + Below(2) : 0; more > 0; --more) {
                AddDetail(place, word, isRest);
            }
        }
    }

    void AddDetail(EntryPlace place, const std::string& word, bool isRest) {
        const char content = static_cast<char>('a' + Below(3));
        if (isRest) {
            m_score.details.push_back({place, HostTag("edIM"), 0, 0, content});
        } else if (Chance(10)) {
            m_score.details.push_back({place, 0, OneOf(kFlagDetails), 0, content});
        } else if (Chance(40)) {
            const int notes = 1 + static_cast<int>(std::ranges::count(word, ','));
            m_score.details.push_back({place, OneOf(m_noteTags), 0, Below(notes), content});
        } else {
            m_score.details.push_back({place, OneOf(m_entryTags), 0, 0, content});
        }
    }

    // Some entry, of the staff in this slot unless it is 0.
    EntryPlace SomePlace(i16 slot) {
        std::vector<WrittenScore::Frame> frames = m_score.frames;
        std::erase_if(frames, [slot](const auto& f) { return slot != 0 && f.slot != slot; });
        if (frames.empty()) {
            return {1, 1, 0, 0};
        }
        const WrittenScore::Frame& frame = OneOf(frames);
        const auto entries = std::ranges::count_if(frame.words, IsEntry);
        return {frame.slot, frame.measure, frame.layer, Below(static_cast<int>(entries))};
    }

    void AddShapes() {
        for (int count = Below(4); count > 0; --count) {
            EntryPlace from = SomePlace(0);
            EntryPlace to = Chance(15) ? from : SomePlace(from.slot);
            if (to.measure < from.measure) {
                std::swap(from, to);
            }
            m_score.shapes.push_back({from, to, Chance(15)});
        }
    }

    void AddExpressions() {
        for (int count = Below(4); count > 0; --count) {
            const EntryPlace place = SomePlace(0);
            const i16 other = static_cast<i16>(Below(m_score.layers + 1) - 1);
            m_score.expressions.push_back(
                {place, Chance(70) ? static_cast<i16>(place.layer) : other});
        }
    }

    i32 SomePosition() { return Below(17) * 256; }

    void Select() {
        EREGION& region = m_score.selection;
        const auto choose = [this](int last) {
            const auto first = static_cast<i16>(1 + (Chance(20) ? Below(last) : 0));
            return std::pair{first, Chance(80) ? static_cast<i16>(last) : first};
        };
        const auto [startSlot, endSlot] = choose(m_score.staves);
        const auto [startMeasure, endMeasure] = choose(m_score.measures);
        region = {0, startSlot, startMeasure, 0, 0, endSlot, endMeasure, kEndOfMeasure};
        region.startPosition = Chance(25) ? SomePosition() : 0;
        region.endPosition = Chance(25) ? SomePosition() - Below(2) : kEndOfMeasure;
        if (region.endMeasure == region.startMeasure) {
            region.endPosition = std::max(i32{region.endPosition}, i32{region.startPosition});
        }
    }

    const std::vector<u32> m_noteTags = TagsToWrite(true);
    const std::vector<u32> m_entryTags = TagsToWrite(false);
    std::mt19937 m_random;
    WrittenScore m_score;
    int m_restChance = 10;
};

}  // namespace

std::vector<DetailToWrite> DetailsToWrite() {
    std::vector<DetailToWrite> details;
    for (const bool ofNotes : {true, false}) {
        for (const u32 tag : TagsToWrite(ofNotes)) {
            details.push_back({tag, 0});
        }
    }
    for (const u32 flags : kFlagDetails) {
        details.push_back({0, flags});
    }
    return details;
}

WrittenScore MakeUpScore(u32 seed) {
    return Maker{seed}.Run();
}

}  // namespace standin
