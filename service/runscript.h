#pragma once

/// Runs a Python script in an interpreter of its own, with the module `brindle` at hand, and ends the interpreter.
///
/// `arguments` begins with the script's path. `project` is a folder that is opened before the script begins, so that
/// `brindle.application()` gives it; null for none. Gives the script's exit code; a failure to begin is one line on
/// standard error and 1. The process must have loaded Python's library; call it once a process.
extern "C" __attribute__((visibility("default"))) int brindle_run_script(int count, char** arguments, const char* project);
