#include <array>
#include <cctype>
#include <cstdio>
#include <string_view>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "Class Files/score/document/FinPILayer.h"
#include "Class Files/score/document/FinPIMeas.h"
#include "Class Files/score/region/FinPIRegion.h"
#include "platform/resources.h"
#include "shell/host/callbacks.h"
#include "shell/host/output_room.h"

namespace {

constexpr u32 kSelectedStavesText = 20093;
constexpr u32 kOptimizedSystemText = 20094;
constexpr u32 kStaffSetText = 20095;
constexpr u32 kEndText = 20096;
constexpr u32 kBeatText = 20097;
constexpr u32 kBarText = 20098;

constexpr u16 kFirstStaffSet = 65500;
constexpr std::size_t kNameUnits = 511;
constexpr std::size_t kNumberUnits = 512;

// The text that a callback writes, whatever its result; empty if it writes nothing.
template <std::size_t units, typename Ask>
std::u16string HostText(Ask ask) {
    OutputRoom<std::array<char16, units>> room;
    ask(room.Address()->data(), static_cast<u32>(units));
    std::array<char16, units> text = room.Known();
    text.back() = 0;
    return text.data();
}

// 0 = the signature has no beats to count.
double BeatNumber(i32 position, const FinPITimeSig& timeSig) {
    i32 before = 0;
    for (std::size_t group = 0; group < timeSig.groupDurations.size(); ++group) {
        const i32 duration = timeSig.groupDurations[group];
        const bool isLast = group + 1 == timeSig.groupDurations.size();
        if (duration > 0 && (isLast || position < before + duration)) {
            return static_cast<double>(group + 1) +
                   static_cast<double>(position - before) / duration;
        }
        before += duration;
    }
    const bool isItem = (timeSig.displayFlags & FinPITimeSig::kCompositeDenominator) != 0;
    return timeSig.beatDuration > 0 && !isItem
               ? static_cast<double>(position) / timeSig.beatDuration + 1
               : 0;
}

// With at most four decimals, without trailing zeros or point.
std::u16string BeatText(double beat) {
    std::array<char, 32> digits{};
    const int length = std::snprintf(digits.data(), digits.size(), "%0.4f", beat);
    std::string_view text{digits.data(), static_cast<std::size_t>(length)};
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (std::isdigit(static_cast<unsigned char>(text.back())) == 0) {
        text.remove_suffix(1);
    }
    return {text.begin(), text.end()};
}

void AppendBeat(std::u16string& text, i16 measure, i32 position) {
    const FinPIMeas record{static_cast<u16>(measure)};
    const double beat = record.IsLoaded() != 0 ? BeatNumber(position, record.GetTimeSig()) : 0;
    if (beat <= 0) {
        return;
    }
    text += u' ';
    text += platform::ResourceString(kBeatText);
    text += u' ';
    text += BeatText(beat);
}

void AppendPartName(std::u16string& text) {
    const i16 part = Host::GetCurrentPartID();
    if (part < 1 || FinPIPartView{static_cast<u16>(part)}.Load() == 0) {
        return;
    }
    text += u" - ";
    text += HostText<kNameUnits>(
        [part](char16* buffer, u32 units) { Host::GetPartName(part, buffer, units); });
}

}  // namespace

void FinPIRegion::AppendEndpoint(std::u16string& text, const Endpoint& end, bool nameStaff) const {
    if (nameStaff) {
        const u16 staff = Host::SlotToInst(end.slot, end.staffList);
        text += HostText<kNameUnits>([&](char16* buffer, u32 /*units*/) {
            Host::AutoNumberedName(staff, end.measure, end.position, buffer);
        });
        text += u' ';
    }
    text += platform::ResourceString(kBarText);
    text += u' ';
    std::array<char16, kNumberUnits> number{};
    FinPIMeas::MeasureNumberString(end.measure, number.data(), kNumberUnits);
    text += number.data();
    if (end.position == kEndOfMeasure) {
        text += u' ';
        text += platform::ResourceString(kEndText);
    } else if (end.position > 0) {
        AppendBeat(text, end.measure, end.position);
    }
}

void FinPIRegion::AppendStaffList(std::u16string& text) const {
    if (startStaffList == 0) {
        return;
    }
    text += u" [";
    if (startStaffList < kFirstStaffSet) {
        text += platform::ResourceString(kOptimizedSystemText);
    } else {
        text += FinPIVarStringUtf16{kStaffSetText, startStaffList - kFirstStaffSet + 1}.Text();
    }
    if (startSlot != endSlot) {
        text += u' ';
        text += FinPIVarStringUtf16{kSelectedStavesText, endSlot - startSlot + 1}.Text();
    }
    text += u']';
}

std::u16string FinPIRegion::Description() const {
    const DocumentScope scope{m_docID};
    if (!scope) {
        return {};
    }
    std::u16string text;
    const u16 document = Host::GetCurrentEnigmaDocument();
    if (document != 0) {
        text = HostText<kDescriptionUnits + 1>([document](char16* buffer, u32 units) {
            Host::GetDocumentPath(document, buffer, units);
        });
    }
    AppendPartName(text);
    if (!text.empty()) {
        text += u' ';
    }
    if (m_isOneLayer != 0) {
        text += FinPILayer::Name(m_layer);
        text += u": ";
    }
    AppendEndpoint(text, {startStaffList, startSlot, startMeasure, startPosition}, true);
    text += u" - ";
    AppendEndpoint(text, {endStaffList, endSlot, endMeasure, endPosition}, startSlot != endSlot);
    AppendStaffList(text);
    text.resize(std::min(text.size(), kDescriptionUnits));
    return text;
}
