#include "tests/unit/support/made_up_rhythm.h"

#include <array>

namespace standin {
namespace {

struct Value {
    const char* type;
    int dots;
    int length;
};
constexpr Value kValues[] = {
    {"whole", 0, 4 * kQuarter},       {"half", 1, 3 * kQuarter},       {"half", 0, 2 * kQuarter},
    {"quarter", 1, kQuarter * 3 / 2}, {"quarter", 0, kQuarter},        {"quarter", 0, kQuarter},
    {"quarter", 0, kQuarter},         {"eighth", 1, kQuarter * 3 / 4}, {"eighth", 0, kQuarter / 2},
    {"eighth", 0, kQuarter / 2},      {"16th", 0, kQuarter / 4},
};

// Written values in a ratio; a value of type "" means a triplet of eighths.
struct Group {
    int actual;
    int normal;
    std::vector<Value> members;
    int length;
};
const Value kEighth = {"eighth", 0, kQuarter / 2};
const Value kFourth = {"quarter", 0, kQuarter};
const Value k16th = {"16th", 0, kQuarter / 4};
const Value kInner = {"", 0, kQuarter};

const std::vector<Group>& Groups() {
    static const std::vector<Group> groups = {
        {3, 2, {kEighth, kEighth, kEighth}, kQuarter},
        {3, 2, {kFourth, kEighth}, kQuarter},
        {3, 2, {kFourth, kFourth, kFourth}, 2 * kQuarter},
        {5, 4, {k16th, k16th, k16th, k16th, k16th}, kQuarter},
        {6, 4, {k16th, k16th, k16th, k16th, k16th, k16th}, kQuarter},
        {3, 2, {kFourth, kInner, kFourth}, 2 * kQuarter},
        {2, 3, {kEighth, kEighth}, kQuarter * 3 / 2},
    };
    return groups;
}

void Add(MadeUpRhythm& rhythm, const Value& value, int actual, int normal) {
    rhythm.values.push_back(
        {value.type, value.dots, value.length * normal / actual, actual, normal});
}

void AddGroup(MadeUpRhythm& rhythm, const Group& group) {
    const std::size_t outer = rhythm.tuplets.size();
    rhythm.tuplets.push_back({group.actual, group.normal, rhythm.values.size(), 0, false});
    for (const Value& member : group.members) {
        if (*member.type != '\0') {
            Add(rhythm, member, group.actual, group.normal);
            continue;
        }
        rhythm.tuplets.push_back({3, 2, rhythm.values.size(), rhythm.values.size() + 2, true});
        for (int i = 0; i < 3; ++i) {
            Add(rhythm, kEighth, 3 * group.actual, 2 * group.normal);
        }
    }
    rhythm.tuplets[outer].last = rhythm.values.size() - 1;
}

}  // namespace

MadeUpRhythm MakeUpRhythm(int length, const std::function<int(int)>& below) {
    MadeUpRhythm rhythm;
    while (length > 0) {
        if (below(100) < 25) {
            const Group& group = Groups()[static_cast<std::size_t>(below(7))];
            if (group.length <= length) {
                AddGroup(rhythm, group);
                length -= group.length;
            }
            continue;
        }
        const Value& value = kValues[below(static_cast<int>(std::size(kValues)))];
        if (value.length <= length) {
            Add(rhythm, value, 1, 1);
            length -= value.length;
        }
    }
    return rhythm;
}

}  // namespace standin
