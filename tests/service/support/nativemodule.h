#pragma once

/// Adds a built-in module "native" to the interpreter that is begun next: what native code does with functions of a
/// script, for scripts of the tests.
///
///     hold(f)                keeps f in native code
///     call(*args)            calls it through the object model and gives its result, or the sentence of its failure
///     call_elsewhere(*args)  the same on a native thread that has never been in Python
///     drop()                 lets go of it
///     drop_elsewhere()       the same on a native thread that isn't in Python
///     post()                 leaves a copy of it to the event queue of the main thread
void addNativeModule();
