// Another run of this program, its output kept in files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace standin::machine {

// Runs this program with the arguments, in UTF-8, and waits until it ends; its standard output and
// error go to the files, which are overwritten. Returns its exit code; 130 if a signal interrupted
// it, -1 if it could not be started or crashed. Several threads may call it at once.
int RunThisProgram(const std::vector<std::string>& arguments, const std::filesystem::path& output,
                   const std::filesystem::path& errors);

}  // namespace standin::machine
