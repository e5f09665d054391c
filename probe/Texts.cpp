#include "probe/Texts.h"

#include <cstddef>
#include <string_view>

#include "platform/resources.h"

namespace probe {

namespace {

struct TextRow {
    std::string_view english;
    std::string_view spanish;
};

constexpr TextRow kTexts[] = {
#define PROBE_TEXT(name, english, spanish) {english, spanish},
#include "probe/texts.inc"
#undef PROBE_TEXT
};

constexpr unsigned kLanguageCode = 22202;  // a string that names the language in use

}  // namespace

std::string Say(Text text, const std::vector<std::string>& values) {
    const TextRow& row = kTexts[static_cast<std::size_t>(text)];
    std::string result{platform::ResourceString(kLanguageCode) == u"es" ? row.spanish
                                                                        : row.english};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::string place = std::string{"{"}.append(std::to_string(i)).append("}");
        const std::size_t at = result.find(place);
        if (at != std::string::npos) {
            result.replace(at, place.size(), values[i]);
        }
    }
    return result;
}

}  // namespace probe
