#pragma once

namespace brindle::python {

/// Installs what the object model asks of the binding when a thread enters and leaves Python. No call of the
/// interpreter or the engine: it is part of loading the library.
void installThreadHelper();

/// Lets the engine give up Python's lock where it waits. Called when the module is made.
void installThreadStates();

} // namespace brindle::python
