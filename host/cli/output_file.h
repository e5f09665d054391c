// A file that appears whole or not at all.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace standin::cli {

// "-" names standard input or standard output.
inline constexpr std::string_view kStandardStream = "-";

// Writes the bytes to a new file beside the target and renames it, so that whatever goes wrong
// leaves the target as it was, a power cut too. Links are followed; what is no regular file (a
// pipe, a device) is written to directly. No bytes are an error: they stand for a score that could
// not be put together. Returns what went wrong; empty when nothing did.
std::string WriteWhole(const std::string& target, std::string_view bytes);

// A path from its UTF-8 text, and back.
std::filesystem::path PathOf(const std::string& text);
std::string TextOf(const std::filesystem::path& path);

// ".mxl" of "Score.MXL"; empty for a name without an extension.
std::string LowerCaseExtension(const std::string& name);

// What exists and takes bytes, but keeps no file: its name says nothing about its form.
bool IsDeviceOrPipe(const std::string& name);

}  // namespace standin::cli
