// The probe's one command.
#include "Class Files/CommandTable.h"
#include "probe/ProbeCommand.h"

namespace {

constexpr CommandRow kCommands[] = {{ProbeCommand::kCommandID, 22201, MakeCommand<ProbeCommand>}};

}  // namespace

std::span<const CommandRow> Commands() noexcept {
    return kCommands;
}
