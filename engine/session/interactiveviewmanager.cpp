#include "core/host/plug_interactiveviewmanager.h"

namespace {

PLUG_InteractiveViewManagerImpl* givenViews = nullptr;

} // namespace

PLUG_InteractiveViewManagerImpl* PLUG_InteractiveViewManagerImpl::instance()
{
    return givenViews;
}

void PLUG_InteractiveViewManagerImpl::setInstance(PLUG_InteractiveViewManagerImpl* views)
{
    givenViews = views;
}
