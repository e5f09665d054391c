#include "host/readback/compare/difference.h"

#include "host/readback/compare/place_words.h"
#include "host/texts/texts.h"

namespace standin::readback {

std::string WordsFor(const Difference& difference) {
    if (difference.part == 0) {
        return difference.what;
    }
    std::string place = MeasureWords(difference.number);
    if (difference.staff == 0) {
        place += ", " + Say(Text::kPartByNumber, {std::to_string(difference.part)});
    } else {
        place += ", " + Say(Text::kStaffOfScore, {std::to_string(difference.staff)});
    }
    if (difference.beat) {
        place += ", " + BeatWords(*difference.beat);
    }
    return place + ": " + difference.what;
}

}  // namespace standin::readback
