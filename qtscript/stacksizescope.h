#pragma once

/// While it lives, a new QJSEngine gets a larger stack for the values of scripts, which costs memory where it is used
/// alone. Qt 6.4 doesn't look for the end of that stack where a call spreads an array (`f(...array)`); its own 4 MB end
/// the process at half a million items.
///
/// Qt reads the size from the environment, which nobody else may change meanwhile.
class StackSizeScope {
public:
    StackSizeScope();
    StackSizeScope(const StackSizeScope&) = delete;
    StackSizeScope& operator=(const StackSizeScope&) = delete;
    ~StackSizeScope() { end(); }

    void end(); ///< Ahead of the destructor.

private:
    bool m_isSet; ///< False where the person has set a size.
};
