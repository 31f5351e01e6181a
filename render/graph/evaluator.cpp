#include "render/graph/evaluator.h"

#include "core/host/ut_performance.h"
#include "render/graph/stopwatch.h"
#include "render/workers.h"

#include <algorithm>

namespace brindle::render {

/// Computes the picture of one plan.
class Evaluator::Run {
public:
    Run(Evaluator& evaluator, const Plan& plan, int threads)
        : m_evaluator(evaluator),
          m_plan(plan),
          m_threads(threads),
          m_states(plan.steps.size())
    {}

    Picture result()
    {
        const std::vector<std::size_t> leaves = findLeaves();
        shareOut(leaves.size(), m_threads, [&](std::size_t leaf) { compute(leaves[leaf]); });
        for (std::size_t i = 0; i < m_states.size(); ++i)
            if (isToDo(i) && !m_plan.steps[i].inputs.empty() && !m_states[i].isDrawnAlong)
                compute(i);
        return std::move(m_states.back().picture);
    }

private:
    struct State {
        Picture picture{};
        int uses = 0; ///< By steps that have to be computed.
        bool isKnown = false;
        bool isBelowDrawing = false; ///< A drawing is laid over it.
        /// It lays a drawing over a picture, and the one step that needs it lays another one over that: they are drawn
        /// one after the other, without a picture in between.
        bool isDrawnAlong = false;
    };

    static bool isDrawnOver(const Plan::Step& step)
    {
        return step.operation->kind == Operation::Draw && !step.inputs.empty();
    }

    bool isToDo(std::size_t i) const { return m_states[i].uses > 0 && !m_states[i].isKnown; }

    /// Fills in the states: which pictures are remembered, and how often each of the others is used. Gives the steps to
    /// compute that need no others.
    std::vector<std::size_t> findLeaves()
    {
        std::vector<std::size_t> leaves;
        m_states.back().uses = 1;
        for (std::size_t i = m_states.size(); i-- > 0;) {
            const Plan::Step& step = m_plan.steps[i];
            State& state = m_states[i];
            state.isKnown = state.uses > 0 && step.isKept && m_evaluator.find(step.operation, state.picture);
            if (!isToDo(i))
                continue;
            for (const std::size_t input : step.inputs) {
                ++m_states[input].uses;
                m_states[input].isBelowDrawing = step.operation->kind == Operation::Draw;
            }
            if (step.inputs.empty())
                leaves.push_back(i);
            state.isDrawnAlong = isDrawnOver(step) && !step.isKept && state.isBelowDrawing && state.uses == 1;
        }
        return leaves;
    }

    void compute(std::size_t i)
    {
        const Plan::Step& step = m_plan.steps[i];
        Picture& picture = m_states[i].picture;
        Stopwatch watch(step.timer != nullptr);
        if (isDrawnOver(step)) {
            picture = drawn(i);
        } else {
            std::vector<Picture> inputs;
            for (const std::size_t input : step.inputs)
                inputs.push_back(taken(input));
            picture = step.operation->compute(m_plan.size, std::move(inputs));
        }
        if (step.timer)
            step.timer->addRendering(watch.lap());
        if (step.isKept)
            m_evaluator.remember(step.operation, picture);
    }

    /// The picture of a step with a drawing over another one, and of those that are drawn along with it.
    Picture drawn(std::size_t i)
    {
        std::vector<PlacedArt> drawings;
        do {
            const Operation& operation = *m_plan.steps[i].operation;
            drawings.push_back({operation.art.get(), operation.place});
            i = m_plan.steps[i].inputs[0];
        } while (m_states[i].isDrawnAlong);
        std::reverse(drawings.begin(), drawings.end());
        return Art::drawOver(taken(i), drawings, m_threads);
    }

    /// The picture of an input. One that is used for the last time is changed in place.
    Picture taken(std::size_t input)
    {
        State& state = m_states[input];
        return --state.uses == 0 ? std::move(state.picture) : state.picture;
    }

    Evaluator& m_evaluator;
    const Plan& m_plan;
    int m_threads;
    std::vector<State> m_states;
};

Picture Evaluator::picture(const Plan& plan, int threads)
{
    Picture result;
    onWorker([&] { result = Run(*this, plan, threads).result(); });
    return result;
}

bool Evaluator::find(const OperationPtr& operation, Picture& picture)
{
    const auto known = m_memory->find<Remembered>(operation.get());
    if (known)
        picture = known->picture;
    return known != nullptr;
}

void Evaluator::remember(const OperationPtr& operation, const Picture& picture)
{
    m_memory->remember(operation.get(), 0, std::make_shared<const Remembered>(operation, picture),
                       picture.pixels().sizeInBytes());
}

} // namespace brindle::render
