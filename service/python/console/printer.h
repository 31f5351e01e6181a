#pragma once

#include "core/host/scriptconsole.h"
#include "service/python/pyref.h"

namespace brindle::python {

/// Sets the printer of the text that scripts write; without one it goes to the process's own streams.
void setPrinter(BAPP_ScriptConsole::Printer printer);

/// A new reference to a function of one argument, which hands a text to the printer; null with a Python error raised.
PyObject* printerFunction(BAPP_ScriptConsole::Stream stream);

} // namespace brindle::python
