#pragma once

#include "core/host/scriptconsole.h"
#include "service/python/pyref.h"

namespace brindle::python {

/// Where the text of the script's streams goes: the one printer of the process, or its own streams without one.
void setPrinter(BAPP_ScriptConsole::Printer printer);

/// A new reference to a function of one argument, which hands a text to the printer; null with a Python error raised.
PyObject* printerFunction(BAPP_ScriptConsole::Stream stream);

} // namespace brindle::python
