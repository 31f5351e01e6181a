#pragma once

#include "core/host/em_elementinfo.h"
#include "render/graph/operation.h"
#include "render/memory.h"

#include <QStringList>

#include <unordered_map>
#include <unordered_set>

class GR_CompositeVectorDrawingObj;
class MO_Node;
class SC_Resolution;
class TIR_PerformanceTimer;

namespace brindle::render {

/// All that it takes to compute a picture, without the project: the steps in an order in which each stands behind its
/// inputs. Any thread may carry it out, while the project is changed.
struct Plan {
    struct Step {
        OperationPtr operation;
        std::vector<std::size_t> inputs; ///< By their places among the steps.
        bool isKept;                     ///< It was in the plan before as well, and its picture is worth remembering.
        /// Of the node that the step is for; null where nothing is measured.
        std::shared_ptr<TIR_PerformanceTimer> timer{};
    };

    QSize size;
    std::vector<Step> steps; ///< The last one gives the picture.
    QStringList remarks;     ///< A line for each thing that can't be shown, as a texture that is gone.
};

/// Makes plans for the nodes of a project, on the thread that may read it.
///
/// A picture shows the field chart through the scene's camera (see SC_SceneMetrics): its height, or where the
/// resolution fits the width its width, spans the chart. In a perspective projection what lies nearer to the camera by
/// z is larger (Math::Matrix4x4::truckFactor); pictures come over each other in the order of ports alone.
class Planner {
public:
    /// Drawings and their outlines are remembered in `memory`.
    explicit Planner(std::shared_ptr<Memory> memory) : m_memory(std::move(memory)) {}

    /// The plan for what a node of a scene shows at a frame, in a picture of this size. The resolution is the
    /// project's, which says how the camera sees. Throws std::runtime_error with one sentence for nodes that feed
    /// themselves.
    ///
    /// With `isMeasured`, the nodes on the way have added to their timers what they take, and so will the steps.
    Plan plan(MO_Node& node, double frame, const QSize& size, const SC_Resolution& resolution, bool isMeasured = false);

private:
    class Walk;

    std::shared_ptr<const Art> artOf(EM_DrawingId id, const GR_CompositeVectorDrawingObj& drawing,
                                     PalettePaints& palettes, QStringList& remarks);
    using Timers = std::unordered_map<const Operation*, std::shared_ptr<TIR_PerformanceTimer>>;
    void order(const OperationPtr& last, const Timers& timers, Plan& plan);
    void forgetUnused();

    struct KnownArt {
        const GR_CompositeVectorDrawingObj* drawing = nullptr; ///< Only to be compared.
        int revision = -1;
        std::weak_ptr<const Art> art; ///< Held by the memory and by plans.
        QStringList remarks;
        quint64 lastPlan = 0; ///< The last plan that it was in.
    };
    std::shared_ptr<Memory> m_memory;
    Operations m_operations;
    std::unordered_map<EM_DrawingId, KnownArt> m_art;
    std::unordered_set<OperationPtr> m_last; ///< The steps of the plan before.
    quint64 m_plans = 0;
};

} // namespace brindle::render
