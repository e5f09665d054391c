// Random rhythms.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace standin {

inline constexpr int kQuarter = 720;  // so that a triplet in a triplet and a quintuplet come out

struct MadeUpTuplet {
    int actual = 0;
    int normal = 0;
    std::size_t first = 0;  // the entries that it holds, of the whole rhythm
    std::size_t last = 0;
    bool isInner = false;  // in another tuplet
};

struct MadeUpValue {
    std::string type = {};
    int dots = 0;
    int length = 0;  // as it sounds; of a grace note 0
    int actual = 1;  // of all tuplets around it
    int normal = 1;
};

struct MadeUpRhythm {
    std::vector<MadeUpValue> values;
    std::vector<MadeUpTuplet> tuplets;  // an outer one before those in it
};

// Fills a length, a multiple of a sixteenth, with values. Below(n) gives a number from 0 to n - 1.
MadeUpRhythm MakeUpRhythm(int length, const std::function<int(int)>& below);

}  // namespace standin
