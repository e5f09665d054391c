#include "host/musicxml/lyric_numbers.h"

#include <algorithm>

#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

std::string LyricNumberOf(std::string_view lyric) {
    const std::string_view number = AttributeText(lyric, "number");
    return std::string{number.empty() ? std::string_view{"1"} : number};
}

std::string NextFree(const std::string& number, const std::vector<std::string>& taken) {
    int next = IntegerOf(number).value_or(0) + 1;
    while (std::ranges::find(taken, std::to_string(next)) != taken.end()) {
        ++next;
    }
    return std::to_string(next);
}

}  // namespace

std::vector<std::string> LyricNumbers(const Fragments& fragments,
                                      const std::vector<LyricAtEntry>& lyrics) {
    std::vector<std::string> taken;
    taken.reserve(lyrics.size());
    for (const LyricAtEntry& lyric : lyrics) {
        taken.push_back(LyricNumberOf(fragments[lyric.fragment]));
    }
    std::vector<std::string> numbers(lyrics.size());
    for (std::size_t i = 1; i < lyrics.size(); ++i) {
        for (std::size_t earlier = 0; earlier < i && numbers[i].empty(); ++earlier) {
            if (lyrics[i].joined && taken[earlier] == taken[i]) {
                numbers[i] = NextFree(taken[i], taken);
            }
        }
        taken[i] = numbers[i].empty() ? taken[i] : numbers[i];
    }
    return numbers;
}

}  // namespace standin
