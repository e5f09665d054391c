#include "host/musicxml/lyric_numbers.h"

#include <map>
#include <set>

#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

std::string LyricNumberOf(std::string_view lyric) {
    const std::string_view number = AttributeText(lyric, "number");
    return std::string{number.empty() ? std::string_view{"1"} : number};
}

std::string NextFree(const std::string& number, const std::set<std::string>& taken) {
    int next = IntegerOf(number).value_or(0) + 1;
    while (taken.contains(std::to_string(next))) {
        ++next;
    }
    return std::to_string(next);
}

}  // namespace

std::vector<std::string> LyricNumbers(const Fragments& fragments,
                                      const std::vector<LyricAtEntry>& lyrics) {
    std::vector<std::string> numbers(lyrics.size());
    std::set<std::string> taken;
    for (const LyricAtEntry& lyric : lyrics) {
        taken.insert(LyricNumberOf(fragments[lyric.fragment]));
    }
    std::set<std::string> earlier;
    std::map<std::string, std::string> lastFound;  // by the number read
    for (std::size_t i = 0; i < lyrics.size(); ++i) {
        std::string number = LyricNumberOf(fragments[lyrics[i].fragment]);
        if (lyrics[i].joined && earlier.contains(number)) {
            std::string& last = lastFound.try_emplace(number, number).first->second;
            last = NextFree(last, taken);
            number = numbers[i] = last;
            taken.insert(number);
        }
        earlier.insert(std::move(number));
    }
    return numbers;
}

}  // namespace standin
