#include "host/musicxml/write/beam_writer.h"

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

constexpr std::array<std::string_view, 6> kNames{"",    "begin",        "continue",
                                                 "end", "forward hook", "backward hook"};

// One level of the beams of one voice.
class BeamLine {
public:
    void Take(BeamedEntry& entry, std::size_t level) {
        Beam& beam = entry.levels[level];
        const bool isOpen = m_last != nullptr || entry.comesIn;
        switch (beam) {
            case Beam::kBegin:
                Close();
                m_last = &beam;
                break;
            case Beam::kContinue:
                beam = isOpen ? beam : Beam::kBegin;
                m_last = &beam;
                break;
            case Beam::kEnd:
                beam = isOpen ? beam : Beam::kNone;
                m_last = nullptr;
                break;
            case Beam::kNone:
            case Beam::kForwardHook:
            case Beam::kBackwardHook:
                Close();
                break;
        }
        m_goesOn = entry.goesOn;
    }

    void EndMeasure() {
        if (!m_goesOn) {
            Close();
        }
    }

private:
    // The beam ends with the entry that it reached last.
    void Close() {
        if (m_last != nullptr) {
            *m_last = *m_last == Beam::kBegin ? Beam::kNone : Beam::kEnd;
        }
        m_last = nullptr;
    }

    Beam* m_last = nullptr;  // the open beam's latest mark
    bool m_goesOn = false;   // the latest entry's beams
};

}  // namespace

BeamLevels ReadBeams(std::string_view elements) {
    BeamLevels levels{};
    ForEachElement(elements, [&levels](std::string_view element) {
        const std::string_view numberText = AttributeText(element, "number");
        const int number = numberText.empty() ? 1 : IntegerOf(numberText).value_or(0);
        const std::size_t begin = TagEnd(element, 0);
        const std::string_view value =
            Trimmed(element.substr(begin, element.find("</", begin) - begin));
        for (std::size_t i = 1; i < kNames.size(); ++i) {
            if (number >= 1 && number <= static_cast<int>(levels.size()) && value == kNames[i]) {
                levels[static_cast<std::size_t>(number - 1)] = static_cast<Beam>(i);
            }
        }
    });
    return levels;
}

std::string WriteBeams(const BeamLevels& levels) {
    std::string elements;
    for (std::size_t level = 0; level < levels.size(); ++level) {
        if (levels[level] != Beam::kNone) {
            elements += "<beam number=\"" + std::to_string(level + 1) + "\">";
            elements += kNames[static_cast<std::size_t>(levels[level])];
            elements += "</beam>";
        }
    }
    return elements;
}

void MakeBeamsWhole(std::vector<BeamedEntry>& entries) {
    for (std::size_t level = 0; level < BeamLevels{}.size(); ++level) {
        for (const bool grace : {false, true}) {
            BeamLine line;
            for (BeamedEntry& entry : entries) {
                const bool isPassed = entry.isRest && entry.levels[level] == Beam::kNone;
                if (entry.isGrace == grace && !isPassed) {
                    line.Take(entry, level);
                }
            }
            line.EndMeasure();
        }
        for (BeamedEntry& entry : entries) {
            if (entry.levels.front() == Beam::kNone) {
                entry.levels = {};
            }
        }
    }
}

}  // namespace standin
