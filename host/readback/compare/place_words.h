// Places of a score in words, in the language of the user interface.
#pragma once

#include <string>

namespace standin::readback {

// "m. 12"
std::string MeasureWords(const std::string& number);

// "beat 2.5", with three decimals at most
std::string BeatWords(double beat);

}  // namespace standin::readback
