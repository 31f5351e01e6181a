#pragma once

#include <QString>
#include <QVariant>

class MO_Port;

namespace OMC {

class Port;

/// The port, on the in-port or the out-port side, that a script names as the other end of a link of `port`. Null with
/// the reason in `error`; only a node without a scene throws.
MO_Port* portFromArgument(const Port& port, const QVariant& value, bool isInPort, QString& error, bool createIfNeeded);

} // namespace OMC
