// The table of subcommands. Each make function is defined in the source file of its subcommand.
#pragma once

#include "apps/cli/Command.h"

#include <memory>
#include <span>
#include <string_view>

namespace corvane::cli {

std::unique_ptr<Command> makeShowCommand();
std::unique_ptr<Command> makeXmlCommand();
std::unique_ptr<Command> makeScanCommand();
std::unique_ptr<Command> makeSetCommand();
std::unique_ptr<Command> makeRemoveCommand();
std::unique_ptr<Command> makeImportCommand();
std::unique_ptr<Command> makeGenresCommand();
std::unique_ptr<Command> makeSelftestCommand();

std::span<const CommandEntry> commands();

// Nothing when there is no such subcommand.
const CommandEntry* findCommand(std::string_view name);

} // namespace corvane::cli
