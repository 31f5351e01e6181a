#pragma once

namespace brindle::engine {

/// Lets the Javascript of a session go that ends, where it was used.
void endScripting();

} // namespace brindle::engine
