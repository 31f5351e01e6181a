#include "engine/graph/backdrops.h"

#include "engine/graph/scenegraph.h"

#include <algorithm>
#include <cmath>
#include <utility>

bool TURect::containInvertedY(const TURect& other) const
{
    return other.left >= left && other.right <= right && other.top >= top && other.bottom <= bottom;
}

namespace brindle::engine {

namespace {

bool isFontSize(double size)
{
    return std::isfinite(size) && size > 0;
}

/// A group whose scene lists it, and its place in the graph; null otherwise.
SceneGraph* graphOf(const Group* group)
{
    return group ? group->graph() : nullptr;
}

std::ptrdiff_t placeOf(Group& group, const MO_Backdrop* backdrop)
{
    const Group::Backdrops& list = group.backdrops();
    return std::find_if(list.begin(), list.end(), [&](const auto& entry) { return entry.get() == backdrop; }) -
           list.begin();
}

/// Puts a backdrop into its group's list, or takes it out. A backdrop that was taken out is gone for everybody who held
/// it, also after it comes back.
class BackdropListCommand : public CO_Command {
protected:
    explicit BackdropListCommand(TUGroup* group) : m_group(engineGroup(group)) {}

    void insert()
    {
        m_group->backdropList().insert(m_group->backdropList().begin() + m_place, m_backdrop);
        m_group->announceChange();
    }

    void take()
    {
        m_group->backdropList().erase(m_group->backdropList().begin() + m_place);
        m_backdrop->expireWeakPointers();
        m_group->announceChange();
    }

    Group* m_group;
    std::shared_ptr<MO_Backdrop> m_backdrop;
    std::ptrdiff_t m_place = 0;
};

class AddBackdrop final : public BackdropListCommand {
public:
    AddBackdrop(TUGroup* group, const std::shared_ptr<MO_Backdrop>& backdrop) : BackdropListCommand(group)
    {
        m_backdrop = backdrop;
    }

    Status execute() override
    {
        const SceneGraph* graph = graphOf(m_group);
        if (!graph || !m_backdrop || m_backdrop->group() != m_group || m_backdrop->sceneCommon() != &graph->scene() ||
            !isBackdrop(m_backdrop->properties()))
            return kFail;
        m_place = std::ssize(m_group->backdrops());
        if (placeOf(*m_group, m_backdrop.get()) != m_place)
            return kFail;
        insert();
        return kOk;
    }

    Status unexecute() override
    {
        take();
        return kOk;
    }
};

class RemoveBackdrop final : public BackdropListCommand {
public:
    RemoveBackdrop(TUGroup* group, MO_Backdrop* backdrop) : BackdropListCommand(group), m_listed(backdrop) {}

    Status execute() override
    {
        if (!graphOf(m_group))
            return kFail;
        m_place = placeOf(*m_group, m_listed);
        if (m_place == std::ssize(m_group->backdrops()))
            return kFail;
        m_backdrop = m_group->backdrops()[static_cast<std::size_t>(m_place)];
        take();
        return kOk;
    }

    Status unexecute() override
    {
        insert();
        return kOk;
    }

private:
    MO_Backdrop* m_listed;
};

class BackdropPropertiesCommand final : public CO_Command {
public:
    BackdropPropertiesCommand(MO_Backdrop* backdrop, const MO_BackdropProperties& properties)
        : m_backdrop(backdrop),
          m_properties(properties)
    {}

    Status execute() override
    {
        Group* group = m_backdrop ? engineGroup(m_backdrop->group()) : nullptr;
        if (!graphOf(group) || placeOf(*group, m_backdrop) == std::ssize(group->backdrops()) ||
            !isBackdrop(m_properties))
            return kFail;
        if (m_properties == m_backdrop->properties())
            return kNoop;
        exchange();
        return kOk;
    }

    Status unexecute() override
    {
        if (!(m_properties == m_backdrop->properties()))
            exchange();
        return kOk;
    }

private:
    void exchange()
    {
        const MO_BackdropProperties before = m_backdrop->properties();
        m_backdrop->setProperties(std::exchange(m_properties, before));
        engineGroup(m_backdrop->group())->announceChange();
    }

    MO_Backdrop* m_backdrop;
    MO_BackdropProperties m_properties; ///< The properties that the next step sets.
};

} // namespace

bool isBackdrop(const MO_BackdropProperties& properties)
{
    const TURect& rect = properties.rect;
    return std::isfinite(rect.left) && std::isfinite(rect.top) && std::isfinite(rect.right) &&
           std::isfinite(rect.bottom) && isFontSize(properties.title.size) && isFontSize(properties.description.size);
}

} // namespace brindle::engine

namespace tu_backdrop {

AddBackdropCmd::AddBackdropCmd(TUGroup* group, const std::shared_ptr<MO_Backdrop>& backdrop)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddBackdrop>(group, backdrop))
{}

RemoveBackdropCmd::RemoveBackdropCmd(TUGroup* group, MO_Backdrop* backdrop)
    : CO_EngineCommand(std::make_unique<brindle::engine::RemoveBackdrop>(group, backdrop))
{}

SetPropertiesCmd::SetPropertiesCmd(MO_Backdrop* backdrop, const MO_BackdropProperties& properties)
    : CO_EngineCommand(std::make_unique<brindle::engine::BackdropPropertiesCommand>(backdrop, properties))
{}

} // namespace tu_backdrop
