#pragma once

#include "render/graph/plan.h"
#include "render/memory.h"

namespace brindle::render {

/// Carries out plans, and remembers the pictures of steps that plans tell to keep. Any thread may ask it.
class Evaluator {
public:
    explicit Evaluator(std::shared_ptr<Memory> memory) : m_memory(std::move(memory)) {}

    /// The picture of a plan. So many threads (see workers.h) share the steps that need no others, and the rows of
    /// pictures that drawings are laid over; the bytes are the same for any number. Throws std::bad_alloc where memory
    /// doesn't suffice.
    Picture picture(const Plan& plan, int threads = 1);

private:
    /// A picture with its step: the step's address is the key, so the step has to live as long.
    struct Remembered {
        OperationPtr operation;
        Picture picture;
    };
    class Run;

    bool find(const OperationPtr& operation, Picture& picture);
    void remember(const OperationPtr& operation, const Picture& picture);

    std::shared_ptr<Memory> m_memory;
};

} // namespace brindle::render
