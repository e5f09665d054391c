#include "host/desktop/script/byte_pattern.h"

#include <algorithm>
#include <charconv>

namespace standin::desktop {

namespace {

constexpr std::string_view kDigits = "0123456789abcdef";
constexpr char kAny = '?';

// Takes a text in quotes from the pattern's start. False: the quote is not closed.
bool TakeText(std::string_view& pattern, std::string& digits) {
    const std::size_t end = pattern.find('\'', 1);
    if (end == std::string_view::npos) {
        return false;
    }
    const std::string_view text = pattern.substr(1, end - 1);
    digits += DigitsOf(std::vector<unsigned char>{text.begin(), text.end()});
    pattern.remove_prefix(end + 1);
    return true;
}

// Takes digits up to the next blank or quote.
bool TakeGroup(std::string_view& pattern, std::string& digits) {
    const std::string_view group = pattern.substr(0, pattern.find_first_of(" '"));
    pattern.remove_prefix(group.size());
    const std::size_t star = std::min(group.find('*'), group.size());
    const std::string_view once = group.substr(0, star);
    int times = 1;
    if (star != group.size()) {
        const auto read =
            std::from_chars(group.data() + star + 1, group.data() + group.size(), times);
        if (read.ec != std::errc{} || times < 0 || times > 4096) {
            return false;
        }
    }
    const bool readable = once.size() % 2 == 0 && std::ranges::all_of(once, [](char c) {
                              return c == kAny || kDigits.find(c) != std::string_view::npos;
                          });
    for (int i = 0; i < times; ++i) {
        digits += once;
    }
    return readable;
}

}  // namespace

std::string DigitsOf(const std::vector<unsigned char>& bytes) {
    std::string digits;
    for (const unsigned char byte : bytes) {
        digits += kDigits[byte >> 4U];
        digits += kDigits[byte & 15U];
    }
    return digits;
}

std::optional<std::string> DigitsOf(std::string_view pattern) {
    std::string digits;
    while (!pattern.empty()) {
        if (pattern[0] == ' ') {
            pattern.remove_prefix(1);
        } else if (!(pattern[0] == '\'' ? TakeText(pattern, digits) : TakeGroup(pattern, digits))) {
            return std::nullopt;
        }
    }
    return digits;
}

std::optional<std::vector<unsigned char>> BytesOf(std::string_view pattern) {
    const auto digits = DigitsOf(pattern);
    if (!digits || digits->find(kAny) != std::string::npos) {
        return std::nullopt;
    }
    std::vector<unsigned char> bytes;
    for (std::size_t i = 0; i < digits->size(); i += 2) {
        bytes.push_back(static_cast<unsigned char>(kDigits.find((*digits)[i]) * 16 +
                                                   kDigits.find((*digits)[i + 1])));
    }
    return bytes;
}

bool Matches(std::string_view pattern, const std::vector<unsigned char>& bytes) {
    const auto expected = DigitsOf(pattern);
    const std::string digits = DigitsOf(bytes);
    return expected && std::ranges::equal(*expected, digits,
                                          [](char a, char b) { return a == kAny || a == b; });
}

}  // namespace standin::desktop
