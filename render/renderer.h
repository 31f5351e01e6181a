#pragma once

#include "core/host/cel_renderer.h"
#include "render/graph/evaluator.h"
#include "render/graph/plan.h"

namespace brindle::render {

/// Plans the picture of a node where the project can be read, and computes it where that suits.
class Renderer final : public CEL_Renderer {
public:
    void setMeasuring(bool measuring) override { m_isMeasuring = measuring; }
    std::unique_ptr<CEL_RenderJob> prepare(MO_Node* node, double frame, const QSize& size, QString& error) override;

private:
    std::shared_ptr<Memory> m_memory = std::make_shared<Memory>(memoryLimit);
    Planner m_planner{m_memory};
    std::shared_ptr<Evaluator> m_evaluator = std::make_shared<Evaluator>(m_memory);
    bool m_isMeasuring = false;
};

} // namespace brindle::render
