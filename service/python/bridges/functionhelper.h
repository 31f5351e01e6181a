#pragma once

namespace brindle::python {

/// Installs what OMC::PythonFunction needs of the interpreter. No call of the interpreter or the engine: it is part of
/// loading the library.
void installFunctionHelper();

} // namespace brindle::python
