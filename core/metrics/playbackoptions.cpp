#include "core/metrics/playbackoptions.h"

#include "core/frame/optionfields.h"
#include "core/host/pr_preference.h"

namespace OMC {

namespace {

constexpr options::Field<PlaybackOptions> playbackFields[] = {
    {"frame_start", &PlaybackOptions::frameStart},
    {"frame_end", &PlaybackOptions::frameEnd},
    {"loop_count", &PlaybackOptions::loopCount},
    {"cache_enabled", &PlaybackOptions::cacheEnabled},
};

} // namespace

PlaybackOptions::PlaybackOptions() : cacheEnabled(PR_CachedPreferences::getOpenGLEnablePlaybackCache()) {}

PlaybackOptions::PlaybackOptions(const QVariant& value) : PlaybackOptions()
{
    options::read<PlaybackOptions>(*this, value, playbackFields, playbackFields);
}

QVariantMap PlaybackOptions::fields() const
{
    return options::values<PlaybackOptions>(*this, playbackFields);
}

std::string PlaybackOptions::__str__() const
{
    return options::text<PlaybackOptions>("PlaybackOptions", *this, playbackFields);
}

} // namespace OMC
