#pragma once

namespace brindle::python {

/// Lets Ctrl+C end the scripts of Javascript that Python runs on its main thread: such a run gives Python no chance to
/// look after its signals. No call of the interpreter or the engine: it is part of loading the library.
void installJavascriptInterrupter();

} // namespace brindle::python
