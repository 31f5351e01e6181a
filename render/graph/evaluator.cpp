#include "render/graph/evaluator.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>

namespace brindle::render {

namespace {

/// Calls a function for each number from 0, on so many threads, the calling one with them. The first exception leaves
/// this call, once all threads are done.
template <typename Function>
void shareOut(std::size_t count, int threads, const Function& function)
{
    std::atomic<std::size_t> next = 0;
    std::exception_ptr failure;
    std::mutex failureLock;
    const auto work = [&] {
        try {
            for (std::size_t i = next++; i < count; i = next++)
                function(i);
        } catch (...) {
            next = count;
            const std::lock_guard lock(failureLock);
            if (!failure)
                failure = std::current_exception();
        }
    };
    {
        std::vector<std::jthread> helpers;
        const std::size_t most = std::min(count, std::size_t(std::max(threads, 1)));
        for (std::size_t i = 1; i < most; ++i)
            helpers.emplace_back(work);
        work();
    }
    if (failure)
        std::rethrow_exception(failure);
}

qint64 bytesOf(const Picture& picture)
{
    return picture.pixels().sizeInBytes();
}

} // namespace

Picture Evaluator::picture(const Plan& plan, int threads)
{
    const std::size_t count = plan.steps.size();
    std::vector<Picture> pictures(count);
    std::vector<int> uses(count, 0); ///< By steps that have to be computed.
    std::vector<bool> isKnown(count, false);
    uses.back() = 1;
    std::vector<std::size_t> leaves;
    for (std::size_t i = count; i-- > 0;) {
        if (uses[i] == 0)
            continue;
        const Plan::Step& step = plan.steps[i];
        isKnown[i] = step.isKept && find(step.operation, pictures[i]);
        if (isKnown[i])
            continue;
        for (const std::size_t input : step.inputs)
            ++uses[input];
        if (step.inputs.empty())
            leaves.push_back(i);
    }

    const auto compute = [&](std::size_t i, std::vector<Picture> inputs) {
        const Plan::Step& step = plan.steps[i];
        pictures[i] = step.operation->compute(plan.size, std::move(inputs));
        if (step.isKept)
            remember(step.operation, pictures[i]);
    };
    shareOut(leaves.size(), threads, [&](std::size_t leaf) { compute(leaves[leaf], {}); });
    for (std::size_t i = 0; i < count; ++i) {
        const Plan::Step& step = plan.steps[i];
        if (uses[i] == 0 || isKnown[i] || step.inputs.empty())
            continue;
        std::vector<Picture> inputs;
        for (const std::size_t input : step.inputs)
            // What is used for the last time is changed in place.
            inputs.push_back(--uses[input] == 0 ? std::move(pictures[input]) : pictures[input]);
        compute(i, std::move(inputs));
    }
    return std::move(pictures.back());
}

qint64 Evaluator::bytes() const
{
    const QMutexLocker lock(&m_mutex);
    return m_bytes;
}

bool Evaluator::find(const OperationPtr& operation, Picture& picture)
{
    const QMutexLocker lock(&m_mutex);
    const auto known = m_pictures.find(operation);
    if (known == m_pictures.end())
        return false;
    known->second.lastUse = ++m_uses;
    picture = known->second.picture;
    return true;
}

void Evaluator::remember(const OperationPtr& operation, const Picture& picture)
{
    const QMutexLocker lock(&m_mutex);
    const auto [place, isNew] = m_pictures.try_emplace(operation, Remembered{picture, ++m_uses});
    if (!isNew)
        return;
    m_bytes += bytesOf(picture);
    while (m_bytes > m_limit) {
        const auto oldest =
            std::min_element(m_pictures.begin(), m_pictures.end(), [](const auto& left, const auto& right) {
                return left.second.lastUse < right.second.lastUse;
            });
        m_bytes -= bytesOf(oldest->second.picture);
        m_pictures.erase(oldest);
    }
}

} // namespace brindle::render
