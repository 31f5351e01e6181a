#include "core/scene/composition.h"

namespace OMC {

// The text of the whole family, layers included: required as it is.
static const char* const familyText = "TODO";

std::string Composition::__str__() const
{
    return familyText;
}

Obj Composition::getBase() const
{
    throw Exception(tr("Invalid Composition Object"));
}

std::vector<Obj> Composition::getLayers() const
{
    throw Exception(tr("Invalid Composition Object"));
}

bool Composition::render()
{
    return false;
}

std::string CompositionLayer::__str__() const
{
    return familyText;
}

Obj AttributeLayer::getAttribute() const
{
    throw Exception(tr("Invalid AttributeLayer Object"));
}

// It names the base class: required as it is.
Obj NodeLayer::getNode() const
{
    throw Exception(tr("Invalid CompositionLayer Object"));
}

Obj SoundLayer::getSound() const
{
    throw Exception(tr("Invalid SoundLayer Object"));
}

} // namespace OMC
