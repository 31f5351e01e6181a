#include "engine/session/preferences.h"

#include <memory>

namespace brindle::engine {

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

std::unique_ptr<Preferences> loadedPreferences; ///< Null until they are asked for.

} // namespace

Preferences::Preferences(const QString& path) : m_file(path)
{
    for (const Default& preference : defaults)
        m_values.insert(preference.name.toString(), preference.value);
    const PreferenceFile::Values read = m_file.read();
    for (auto value = read.begin(); value != read.end(); ++value)
        m_values.insert(value.key(), value.value());
    m_saved = m_values;
    m_constantSegment = getBoolValue(constantSegmentName.toString(), false);
}

bool Preferences::getBoolValue(const QString& name, bool defaultValue) const
{
    const QVariant value = m_values.value(name);
    return value.typeId() == QMetaType::Bool ? value.toBool() : defaultValue;
}

void Preferences::setBoolValue(const QString& name, bool value)
{
    m_values.insert(name, value);
    if (name == constantSegmentName)
        m_constantSegment = value;
}

QString Preferences::getStringValue(const QString& name, const QString& defaultValue) const
{
    const QVariant value = m_values.value(name);
    return value.typeId() == QMetaType::QString ? value.toString() : defaultValue;
}

void Preferences::setStringValue(const QString& name, const QString& value)
{
    m_values.insert(name, value);
}

void Preferences::save()
{
    PreferenceFile::Values changed;
    for (auto value = m_values.begin(); value != m_values.end(); ++value) {
        const auto saved = m_saved.find(value.key());
        if (saved == m_saved.end() || saved.value() != value.value())
            changed.insert(value.key(), value.value());
    }
    if (m_file.update(changed))
        m_saved = m_values;
}

Preferences& preferencesOfUser()
{
    if (!loadedPreferences)
        loadedPreferences = std::make_unique<Preferences>(PreferenceFile::pathOfUser());
    return *loadedPreferences;
}

void savePreferencesOfUser()
{
    if (loadedPreferences)
        loadedPreferences->save();
}

} // namespace brindle::engine

PR_Preference* tuPref()
{
    return &brindle::engine::preferencesOfUser();
}

bool PR_CachedPreferences::getSpConstantSegment()
{
    return brindle::engine::preferencesOfUser().constantSegment();
}
