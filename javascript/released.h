#pragma once

#include <functional>
#include <memory>

/// Objects that scripts held and whose end may run any code, as that of a function of Python. The garbage collector
/// lets go of them in the middle of its work; their end comes when no script runs.
namespace brindle::javascript {

void release(std::function<void()> end);
void dropReleased(); ///< Ends what was released.

/// Shares an object whose end comes later.
template <typename T>
std::shared_ptr<T> endingLater(std::unique_ptr<T> object)
{
    return std::shared_ptr<T>(object.release(), [](T* last) { release([last] { delete last; }); });
}

} // namespace brindle::javascript
