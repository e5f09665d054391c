// The plug-in's commands.
#include "Class Files/CommandTable.h"
#include "merge/Plyweld.h"

namespace {

constexpr CommandRow kCommands[] = {{Plyweld::kCommandID, 22001, MakeCommand<Plyweld>}};

}  // namespace

std::span<const CommandRow> Commands() noexcept {
    return kCommands;
}
