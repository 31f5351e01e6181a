#pragma once

#include <array>

/// While it lives, a new QJSEngine gets larger stacks, which cost memory only where they are used:
///
/// - that of the values of scripts. Qt 6.4 doesn't look for the end of that stack where a call spreads an array
///   (`f(...array)`); its own 4 MB end the process at half a million items.
/// - that of the garbage collector, whose own 2 MB end the process at a chain of some hundred thousand closures.
///
/// Qt reads the sizes from the environment, which nobody else may change meanwhile.
class StackSizeScope {
public:
    StackSizeScope();
    StackSizeScope(const StackSizeScope&) = delete;
    StackSizeScope& operator=(const StackSizeScope&) = delete;
    ~StackSizeScope() { end(); }

    void end(); ///< Ahead of the destructor.

private:
    std::array<bool, 2> m_isSet; ///< False where the person has set a size.
};
