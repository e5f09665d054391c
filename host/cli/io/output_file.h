// A file that is written completely or not at all.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace standin::cli {

// "-" names standard input or standard output.
inline constexpr std::string_view kStandardStream = "-";

// Writes the bytes to a new file beside the target and renames it, so that a failure, even a power
// cut, leaves the target unchanged. Links are followed; a pipe or a device is written to directly.
// No bytes are an error, because they mean that the score could not be written. Returns the error;
// empty on success.
std::string WriteWhole(const std::string& target, std::string_view bytes);

// A path from its UTF-8 text, and back.
std::filesystem::path PathOf(const std::string& text);
std::string TextOf(const std::filesystem::path& path);

// ".mxl" of "Score.MXL"; empty for a name without an extension.
std::string LowerCaseExtension(const std::string& name);

// A pipe or device that exists: its name does not give the format.
bool IsDeviceOrPipe(const std::string& name);

}  // namespace standin::cli
