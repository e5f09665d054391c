#include "probe/Layouts.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "probe/LastWritten.h"
#include "shell/host/callbacks.h"

namespace probe {

namespace {

constexpr u32 kShapeTag = HostTag("O\010Sx");
constexpr int kMaxSteps = 70;      // five octaves each way, and the parts of tubas and piccolos
constexpr int kMaxAlteration = 3;  // semitones
constexpr i16 kMaxTupletCount = 64;

}  // namespace

void Layouts::LookAt(const EXNOTE& note) {
    const int steps = static_cast<i16>(note.pitch) >> 4;
    const int magnitude = note.pitch & 7;
    m_pitches.Count(std::abs(steps) <= kMaxSteps && magnitude <= kMaxAlteration);
}

void Layouts::LookAt(const EDTTuplet2005& tuplet) {
    const auto isCount = [](i16 count) { return count > 0 && count <= kMaxTupletCount; };
    m_tuplets.Count(isCount(tuplet.symbolicCount) && isCount(tuplet.referenceCount) &&
                    tuplet.symbolicUnitDuration > 0 && tuplet.referenceUnitDuration > 0);
}

void Layouts::LookAt(const EDTLyric2011& lyric) {
    m_lyrics.Count(lyric.textBlock > 0 && lyric.syllable > 0);
}

void Layouts::LookAt(const EDTSmartShapeEntMark& mark) {
    std::array<u16, 2> key{mark.shapeNumber, 0};
    alignas(16) Room data;
    u32 size = kRoomBytes;
    m_marks.Count(mark.shapeNumber != 0 && Host::LoadEData(kShapeTag, key.data(), data.data(),
                                                           &size, kInterfaceVersion) != 0);
    m_markedShapes.insert(mark.shapeNumber);
}

void Layouts::LookAtShapes(const std::set<u32>& entries, bool isWhole, i16 measures) {
    const auto isEnd = [&](const EDTSmartShapeEnd& end) {
        const u32 number = end.entryNumber;
        const bool isKnown = number == 0 || !isWhole || entries.contains(number);
        return isKnown && end.measure >= 1 && end.measure <= measures &&
               Host::InstToSlot(u16{end.staff}, u16{0}) > 0;
    };
    for (const u16 shapeNumber : m_markedShapes) {
        std::array<u16, 2> key{shapeNumber, 0};
        alignas(16) Room data{};
        u32 size = kRoomBytes;
        if (Host::LoadEData(kShapeTag, key.data(), data.data(), &size, kInterfaceVersion) != 0) {
            EDTSmartShape shape;
            std::memcpy(&shape, data.data(), sizeof shape);
            m_ends.Count(isEnd(shape.start) && isEnd(shape.end));
        }
    }
}

void Layouts::Report(Findings& findings) const {
    findings.Begin(Text::kDetails);
    findings.Add("EXNOTE pitch", Say(Text::kPitches), m_pitches);
    findings.Add("EDTTuplet2005 counts, durations", Say(Text::kTupletCounts), m_tuplets);
    findings.Add("EDTLyric2011 textBlock, syllable", Say(Text::kLyricFields), m_lyrics);
    findings.Add("EDTSmartShapeEntMark shapeNumber", Say(Text::kMarkedShapes), m_marks);
    findings.Add("EDTSmartShape start, end", Say(Text::kShapeEnds), m_ends);
}

}  // namespace probe
