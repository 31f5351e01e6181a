#include "engine/session/projectcommon.h"

#include "engine/session/scene.h"

namespace brindle::engine {

SC_Id newId()
{
    static unsigned int last = 0;
    return SC_Id(++last);
}

UT_FrameRate ProjectCommon::frameRate() const
{
    const Scene* first = m_scenes.at(0);
    return first ? first->frameRate() : UT_FrameRate();
}

void ProjectCommon::setSettings(const ProjectSettings& settings)
{
    m_settings = settings;
    for (int place = 0; Scene* scene = m_scenes.at(place); ++place)
        scene->changes().notify();
}

ProjectCommon* engineProjectCommon(SC_ProjectCommon* project)
{
    return dynamic_cast<ProjectCommon*>(project);
}

} // namespace brindle::engine
