#include "engine/session/scenemarkers.h"

#include "engine/session/scene.h"

#include <algorithm>

namespace brindle::engine {

namespace {

/// The place of a new marker: behind those at the same frame.
int placeFor(const SceneMarkers& markers, const SC_SceneMarker& marker)
{
    const auto behind = std::upper_bound(markers.begin(), markers.end(), marker.frame,
                                         [](int frame, const SC_SceneMarker& other) { return frame < other.frame; });
    return static_cast<int>(behind - markers.begin());
}

bool isPlace(const Scene& scene, int place)
{
    return place >= 0 && place < static_cast<int>(scene.sceneMarkers().size());
}

class AddMarker final : public CO_Command {
public:
    AddMarker(SC_SceneCommon* scene, const SC_SceneMarker& marker) : m_scene(engineScene(scene)), m_marker(marker) {}

    Status execute() override
    {
        if (!m_scene || !isWithinScene(m_marker, m_scene->getNumberOfFrames()))
            return kFail;
        m_place = placeFor(m_scene->sceneMarkers(), m_marker);
        m_scene->insertMarker(m_place, m_marker);
        return kOk;
    }

    Status unexecute() override
    {
        m_scene->takeMarker(m_place);
        return kOk;
    }

private:
    Scene* m_scene;
    SC_SceneMarker m_marker;
    int m_place = 0;
};

class RemoveMarker final : public CO_Command {
public:
    RemoveMarker(SC_SceneCommon* scene, int place) : m_scene(engineScene(scene)), m_place(place) {}

    Status execute() override
    {
        if (!m_scene || !isPlace(*m_scene, m_place))
            return kFail;
        m_marker = m_scene->takeMarker(m_place);
        return kOk;
    }

    Status unexecute() override
    {
        m_scene->insertMarker(m_place, m_marker);
        return kOk;
    }

private:
    Scene* m_scene;
    int m_place;
    SC_SceneMarker m_marker;
};

class SetMarker final : public CO_Command {
public:
    SetMarker(SC_SceneCommon* scene, int place, const SC_SceneMarker& marker)
        : m_scene(engineScene(scene)),
          m_place(place),
          m_after(marker)
    {}

    Status execute() override
    {
        if (!m_scene || !isPlace(*m_scene, m_place) || !isWithinScene(m_after, m_scene->getNumberOfFrames()))
            return kFail;
        m_before = m_scene->takeMarker(m_place);
        m_newPlace = m_after.frame == m_before.frame ? m_place : placeFor(m_scene->sceneMarkers(), m_after);
        m_scene->insertMarker(m_newPlace, m_after);
        return m_after == m_before ? kNoop : kOk;
    }

    Status unexecute() override
    {
        m_scene->takeMarker(m_newPlace);
        m_scene->insertMarker(m_place, m_before);
        return kOk;
    }

private:
    Scene* m_scene;
    int m_place;
    int m_newPlace = 0;
    SC_SceneMarker m_before;
    SC_SceneMarker m_after;
};

} // namespace

bool isWithinScene(const SC_SceneMarker& marker, int frameCount)
{
    return marker.frame >= 1 && marker.length >= 1 && marker.frame <= frameCount &&
           marker.length <= frameCount - marker.frame + 1;
}

bool isMarkerList(const SceneMarkers& markers, int frameCount)
{
    return std::all_of(markers.begin(), markers.end(),
                       [frameCount](const SC_SceneMarker& marker) { return isWithinScene(marker, frameCount); }) &&
           std::is_sorted(markers.begin(), markers.end(),
                          [](const SC_SceneMarker& a, const SC_SceneMarker& b) { return a.frame < b.frame; });
}

SceneMarkers shiftedMarkers(const SceneMarkers& markers, const FrameShift& shift, int frameCount, bool ripple)
{
    SceneMarkers shifted;
    shifted.reserve(markers.size());
    for (const SC_SceneMarker& marker : markers) {
        int first = marker.frame;
        int last = marker.lastFrame();
        if (ripple && !shift.carry(first, last))
            continue;
        last = std::min(last, frameCount);
        if (first > last)
            continue;
        SC_SceneMarker& moved = shifted.emplace_back(marker);
        moved.frame = first;
        moved.length = last - first + 1;
    }
    return shifted;
}

} // namespace brindle::engine

namespace SC_SceneCmds {

AddSceneMarkerCmd::AddSceneMarkerCmd(SC_SceneCommon* scene, const SC_SceneMarker& marker)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddMarker>(scene, marker))
{}

RemoveSceneMarkerCmd::RemoveSceneMarkerCmd(SC_SceneCommon* scene, int place)
    : CO_EngineCommand(std::make_unique<brindle::engine::RemoveMarker>(scene, place))
{}

SetSceneMarkerCmd::SetSceneMarkerCmd(SC_SceneCommon* scene, int place, const SC_SceneMarker& marker)
    : CO_EngineCommand(std::make_unique<brindle::engine::SetMarker>(scene, place, marker))
{}

} // namespace SC_SceneCmds
