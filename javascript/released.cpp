#include "javascript/released.h"

#include <utility>
#include <vector>

namespace brindle::javascript {

namespace {

std::vector<std::function<void()>>& ends()
{
    static auto* list = new std::vector<std::function<void()>>;
    return *list;
}

} // namespace

void release(std::function<void()> end)
{
    ends().push_back(std::move(end));
}

void dropReleased()
{
    // The end of one may release others.
    while (!ends().empty()) {
        for (const auto& end : std::exchange(ends(), {}))
            end();
    }
}

} // namespace brindle::javascript
