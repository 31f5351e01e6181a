#include "core/scene/sound.h"

namespace OMC {

std::string Sound::__str__() const
{
    return "Sound()";
}

} // namespace OMC
