#include "core/host/cm_palettemanager.h"
#include "core/host/gr_linestyle.h"

bool GR_LineStyle::IsType(int type)
{
    switch (type) {
    case kNone:
    case kCutter:
    case kStroke:
    case kHair:
    case kThick:
    case kThicknessCutter:
        return true;
    default:
        return false;
    }
}

bool GR_LineStyle::IsLine() const
{
    return m_type == kStroke || IsVisible();
}

bool GR_LineStyle::IsVisible() const
{
    return m_type == kHair || m_type == kThick;
}

bool GR_LineStyle::isTextured() const
{
    return CM_CastToTexture(CM_PaletteManager::GetInstance()->GetColor(m_colorId)) != nullptr;
}
