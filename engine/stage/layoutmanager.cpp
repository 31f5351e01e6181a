#include "core/host/tu_layoutmanager.h"

#include "core/host/tu_message.h"

TULayoutManager* TULayoutManager::instance()
{
    static TULayoutManager only;
    return &only;
}

const TULayoutArea* TULayoutManager::findArea(const QString& name) const
{
    for (const TULayoutFrame* frame : m_frames) {
        for (const TULayoutArea& area : frame->areas) {
            if (area.name == name)
                return &area;
        }
    }
    return nullptr;
}

void TULayoutManager::addFrame(const TULayoutFrame& frame)
{
    m_frames.push_back(&frame);
}

void TULayoutManager::removeFrame(const TULayoutFrame& frame)
{
    std::erase(m_frames, &frame);
}

TUMessage* TUMessage::instance()
{
    static TUMessage only;
    return &only;
}
