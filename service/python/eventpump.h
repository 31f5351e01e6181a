#pragma once

namespace brindle::python {

/// Sees to it that the end of the interpreter, ahead of waiting for the script's threads, lets the main thread handle
/// events for as long as such threads work. Called once, when the interpreter has begun; a failure is printed as Python
/// prints an error that nobody gets.
void pumpEventsAtTheEnd();

} // namespace brindle::python
