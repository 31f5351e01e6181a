#include "core/host/dd_deletesequence.h"

#include "engine/curves/column.h"
#include "engine/session/scene.h"

void DD_DeleteSequenceVisitor::visit(TUScene& scene)
{
    m_command.reset();
    const auto* own = dynamic_cast<brindle::engine::Scene*>(&scene);
    if (!own || m_mode.numFramesSrc() < 1)
        return;
    const auto shift = own->timing().fitted(m_mode.startDeleteFrame(), -m_mode.numFramesSrc());
    if (!shift)
        return;
    auto steps = std::make_unique<CO_AndCommand>();
    for (auto column = scene.timedValuesBegin(); column != scene.timedValuesEnd(); ++column) {
        if (brindle::engine::Column* ownColumn = brindle::engine::Column::of(*column))
            steps->add(ownColumn->clearFramesCommand(shift->at, -shift->delta).release());
    }
    if (steps->size() > 0)
        m_command = std::move(steps);
}
