// What the operating system refused, in the language of the user interface.
#pragma once

#include <string>
#include <system_error>

namespace standin {

// Of an error that writing files often meets; of others, the system's own words.
std::string WordsFor(const std::error_code& failed);

}  // namespace standin
