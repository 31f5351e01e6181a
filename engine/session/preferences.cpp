#include "engine/session/preferences.h"

namespace engine {

namespace {

struct Default {
    QStringView name;
    bool value;
};

constexpr QStringView constantSegmentName = u"SP_CONSTANT_SEGMENT";

constexpr Default defaults[] = {
    {u"RIPPLE_SCENE_MARKERS", true},
    {u"EXTEND_DRAWING_EXPOSURE", false},
    {constantSegmentName, false},
};

Preferences& preferences()
{
    static Preferences ofTheProcess;
    return ofTheProcess;
}

} // namespace

Preferences::Preferences()
{
    for (const Default& preference : defaults)
        m_values.insert(preference.name.toString(), preference.value);
}

bool Preferences::getBoolValue(const QString& name, bool defaultValue) const
{
    return m_values.value(name, defaultValue);
}

void Preferences::setBoolValue(const QString& name, bool value)
{
    m_values.insert(name, value);
    if (name == constantSegmentName)
        m_constantSegment = value;
}

} // namespace engine

PR_Preference* tuPref()
{
    return &engine::preferences();
}

bool PR_CachedPreferences::getSpConstantSegment()
{
    return engine::preferences().constantSegment();
}
