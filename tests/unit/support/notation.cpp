#include "tests/unit/support/notation.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "host/score/records/tags.h"
#include "host/verify/note_name.h"

namespace standin {
namespace {

constexpr std::string_view kLetters = "bwhqesti";  // each half of the one before
constexpr i32 kBreve = 8192;
constexpr std::string_view kSteps = "cdefgab";

i32 DurationOf(char letter) {
    const std::size_t at = kLetters.find(letter);
    return at == kLetters.npos ? 0 : kBreve >> at;
}

std::string WrittenDuration(i32 duration) {
    for (const char letter : kLetters) {
        i32 dotted = DurationOf(letter);
        std::string text{letter};
        for (i32 dot = dotted / 2; dotted < duration && dot > 0; dot /= 2) {
            dotted += dot;
            text += '.';
        }
        if (dotted == duration) {
            return text;
        }
    }
    return std::to_string(duration);
}

class Parser {
public:
    explicit Parser(std::string_view text) : m_rest{text} {}

    WrittenLayer Run() {
        while (SkipBlanks()) {
            Item();
        }
        return std::move(m_layer);
    }

private:
    bool SkipBlanks() {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(' '), m_rest.size()));
        return !m_rest.empty();
    }

    bool Take(std::string_view expected) {
        const bool matches = m_rest.starts_with(expected);
        m_rest.remove_prefix(matches ? expected.size() : 0);
        return matches;
    }

    void Require(bool understood) {
        if (!understood) {
            throw std::invalid_argument{"not understood: " + std::string{m_rest}};
        }
    }

    int Number() {
        int number = 0;
        const auto [end, error] =
            std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), number);
        Require(error == std::errc{});
        m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
        return number;
    }

    void Item() {
        if (Take("v2{")) {
            Require(!m_layer.entries.empty());
            m_layer.entries.back().flags |= EntryFlag::kLaunchVoice2;
            m_voice = EntryFlag::kVoice2;
        } else if (Take("}")) {
            m_voice = 0;
        } else if (Take("(")) {
            BeginTuplet();
        } else if (!Take(")")) {
            Entry();
        }
    }

    void BeginTuplet() {
        WrittenTuplet written{m_layer.entries.size(), {}};
        written.tuplet.symbolicCount = static_cast<i16>(Number());
        Require(Take(":"));
        written.tuplet.referenceCount = static_cast<i16>(Number());
        if (!m_rest.empty() && DurationOf(m_rest.front()) != 0) {
            SetUnit(written.tuplet, DurationOf(m_rest.front()));
            m_rest.remove_prefix(1);
        }
        m_layer.tuplets.push_back(written);
    }

    static void SetUnit(EDTTuplet2005& tuplet, i32 duration) {
        tuplet.symbolicUnitDuration = tuplet.referenceUnitDuration = static_cast<i16>(duration);
    }

    void Entry() {
        EXENTRY entry{};
        entry.flags = m_voice | (Take("g") ? EntryFlag::kGrace : 0);
        i32 duration = m_rest.empty() ? 0 : DurationOf(m_rest.front());
        Require(duration != 0);
        m_rest.remove_prefix(1);
        for (i32 dot = duration / 2; Take("."); dot /= 2) {
            duration += dot;
        }
        Require(Take(":"));
        entry.duration = static_cast<i16>(duration);
        Content(entry);
        for (WrittenTuplet& written : m_layer.tuplets) {
            if (written.entry == m_layer.entries.size() &&
                written.tuplet.symbolicUnitDuration == 0) {
                SetUnit(written.tuplet, entry.duration);
            }
        }
        m_layer.entries.push_back(entry);
    }

    void Content(EXENTRY& entry) {
        if (Take("r")) {
            return;
        }
        if (!Take("x")) {
            entry.flags |= EntryFlag::kNote;
            do {
                Note(entry);
            } while (Take(","));
            if (!Take("!")) {
                return;
            }
        }
        entry.flags |= EntryFlag::kIgnore;
    }

    void Note(EXENTRY& entry) {
        Require(entry.noteCount < kMaxNotesPerEntry);
        EXNOTE& note = entry.notes[entry.noteCount++];
        note.noteID = static_cast<u16>(entry.noteCount);
        note.flags = Take("~") ? NoteFlag::kTieEnd : 0;
        const std::size_t step = m_rest.empty() ? kSteps.npos : kSteps.find(m_rest.front());
        Require(step != kSteps.npos);
        m_rest.remove_prefix(1);
        unsigned alteration = m_rest.starts_with('b') ? 8U : 0U;
        while (Take("#") || Take("b")) {
            ++alteration;
        }
        const int steps = (Number() - 4) * 7 + static_cast<int>(step);
        note.pitch = static_cast<u16>(static_cast<unsigned>(steps) << 4U | alteration);
        note.flags |= Take("~") ? NoteFlag::kTieStart : 0;
    }

    std::string_view m_rest;
    WrittenLayer m_layer;
    u32 m_voice = 0;
};

class Printer {
public:
    explicit Printer(const RecordStore& records) : m_records{records} {}

    static std::string Written(const EXENTRY& entry) {
        std::string text = (entry.flags & EntryFlag::kGrace) != 0 ? "g" : "";
        text += WrittenDuration(entry.duration) + ':';
        const bool isHidden = (entry.flags & EntryFlag::kIgnore) != 0;
        if ((entry.flags & EntryFlag::kNote) == 0) {
            return text + (isHidden ? 'x' : 'r');
        }
        for (i16 i = 0; i < entry.noteCount; ++i) {
            text += (i > 0 ? "," : "") + NameOfNote(entry.notes[i]);
        }
        return isHidden ? text + '!' : text;
    }

    std::string Run(const std::vector<EXENTRY>& entries) {
        for (const EXENTRY& entry : entries) {
            SwitchVoice(entry.flags & EntryFlag::kVoice2);
            OpenTuplets(entry);
            Word(Written(entry));
            if ((entry.flags & EntryFlag::kGrace) == 0) {
                Fill(entry.duration);
            }
        }
        SwitchVoice(0);
        return m_text + std::string(m_open.size(), ')');
    }

private:
    struct Open {
        double symbolic;
        double reference;
        double filled = 0;
    };

    void Word(const std::string& word) {
        m_text += m_text.empty() || m_text.back() == '{' ? word : ' ' + word;
    }

    void SwitchVoice(u32 voice) {
        if (voice == m_voice) {
            return;
        }
        m_voice = voice;
        m_open.swap(m_otherVoice);
        if (voice != 0) {
            Word("v2{");
        } else {
            m_text += '}';
        }
    }

    void OpenTuplets(const EXENTRY& entry) {
        m_records.ForEachDetail(entry.entryNumber, [&](u32 tag, RecordKey, const Bytes& bytes) {
            if (tag != Tag::kTuplet) {
                return;
            }
            const auto tuplet = FromBytes<EDTTuplet2005>(bytes);
            std::string word = '(' + std::to_string(tuplet.symbolicCount) + ':' +
                               std::to_string(tuplet.referenceCount);
            if (tuplet.symbolicUnitDuration != entry.duration) {
                word += WrittenDuration(tuplet.symbolicUnitDuration);
            }
            Word(word);
            m_open.push_back({1.0 * tuplet.symbolicCount * tuplet.symbolicUnitDuration,
                              1.0 * tuplet.referenceCount * tuplet.referenceUnitDuration});
        });
    }

    void Fill(double written) {
        while (!m_open.empty()) {
            Open& innermost = m_open.back();
            innermost.filled += written;
            if (innermost.filled < innermost.symbolic - 0.001) {
                return;
            }
            written = innermost.filled * innermost.reference / innermost.symbolic;
            m_text += ')';
            m_open.pop_back();
        }
    }

    const RecordStore& m_records;
    std::string m_text;
    u32 m_voice = 0;
    std::vector<Open> m_open;  // tuplets of the present voice, the innermost last
    std::vector<Open> m_otherVoice;
};

}  // namespace

WrittenLayer ParseLayer(std::string_view notation) {
    return Parser{notation}.Run();
}

std::string PrintLayer(const Document& document, FrameKey key) {
    const Frame* frame = document.FindFrame(key);
    return frame == nullptr ? std::string{} : Printer{document.Records()}.Run(frame->entries);
}

std::string PrintTimes(const Document& document, FrameKey key) {
    std::string text;
    if (const Frame* frame = document.FindFrame(key)) {
        for (const EXENTRY& entry : frame->entries) {
            text += (text.empty() ? "" : " ") + std::to_string(entry.elapsedTime) + '+' +
                    std::to_string(entry.actualDuration);
        }
    }
    return text;
}

}  // namespace standin
