// Where the user keeps documents.
#pragma once

#include <string>

namespace platform {

// In UTF-8; a folder for temporary files where the system names none.
std::string DocumentsFolder();

}  // namespace platform
