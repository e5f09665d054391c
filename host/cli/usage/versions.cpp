#include <CLI/Version.hpp>
#include <nlohmann/json_fwd.hpp>
#include <pugixml.hpp>
#include <zip.h>

#include "host/cli/usage/help_text.h"

namespace standin::cli {

std::string VersionText() {
    const auto number = [](int value) { return std::to_string(value); };
    return "Plyweld " PLYWELD_VERSION " (pugixml " + number(PUGIXML_VERSION / 1000) + "." +
           number(PUGIXML_VERSION % 1000 / 10) + ", libzip " + zip_libzip_version() +
           ", CLI11 " CLI11_VERSION ", nlohmann/json " + number(NLOHMANN_JSON_VERSION_MAJOR) + "." +
           number(NLOHMANN_JSON_VERSION_MINOR) + "." + number(NLOHMANN_JSON_VERSION_PATCH) + ")\n";
}

}  // namespace standin::cli
