#pragma once

#include "core/frame/obj.h"

namespace OMC {

class Port;

/// Links a port with the one that a script names, in place of the in-port's present source, as one undo entry. Gives
/// the cable. Messages are those of the port's own class.
Obj linkPort(const Port& port, const QVariant& value);

} // namespace OMC
