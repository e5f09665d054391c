// The commands of the plug-in that library_plugin_test.cpp loads.
#include "Class Files/CommandTable.h"
#include "library_example.h"
#include "merge/Plyweld.h"

namespace {

constexpr u16 kBorrowedTitle = 20075;  // a text that the plug-in has anyway

constexpr CommandRow kCommands[] = {{Plyweld::kCommandID, 22001, MakeCommand<Plyweld>},
                                    {kBorrowedTitle, 22001, MakeCommand<BookmarkMeasures>}};

}  // namespace

std::span<const CommandRow> Commands() noexcept {
    return kCommands;
}
