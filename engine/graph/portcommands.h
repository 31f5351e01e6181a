#pragma once

#include "core/host/co_command.h"

#include <memory>

namespace brindle::engine {

class Node;

/// The command that gives a node an in-port at a place: of the kind of its last one, or an image port. With an index
/// beyond the count it fails.
std::unique_ptr<CO_Command> newInPortCommand(Node& node, unsigned int index);

} // namespace brindle::engine
