#include "engine/session/preferences.h"

#include <algorithm>
#include <optional>

namespace brindle::engine {

namespace {

struct Default {
    QStringView name;
    bool value;
};

constexpr QStringView constantSegmentName = u"SP_CONSTANT_SEGMENT";

constexpr Default defaults[] = {
    {u"ADVANCED_ENABLE_PERFORMANCE_REPORT", false},
    {u"EXTEND_DRAWING_EXPOSURE", false},
    {u"LIBRARY_PASTE_CREATE_NEW_DRAWING", false},
    {u"OPENGL_ENABLE_PLAYBACK_CACHE", false},
    {u"RIPPLE_SCENE_MARKERS", true},
    {constantSegmentName, false},
};

/// The default of a name; invalid for one that has none.
QVariant defaultOf(const QString& name)
{
    const auto found = std::find_if(std::begin(defaults), std::end(defaults),
                                    [&](const Default& preference) { return preference.name == name; });
    return found == std::end(defaults) ? QVariant() : QVariant(found->value);
}

/// As preferences keep colours: in whole numbers, whatever form they came in.
QVariant kept(const QVariant& value)
{
    return value.typeId() == QMetaType::QColor ? QVariant(QColor::fromRgba(value.value<QColor>().rgba())) : value;
}

std::unique_ptr<Preferences> loadedPreferences; ///< Null until they are asked for.

} // namespace

/// A preference with its value, and the host's view of it.
struct Preferences::Entry {
    Preferences& owner;
    QString name;
    QVariant value;
    std::unique_ptr<PR_PrefItem> item{};

    void restoreDefault()
    {
        // The entry is replaced where the kind is another.
        const QVariant known = defaultOf(name);
        owner.set(QString(name), known.isValid() ? known : QVariant(value.metaType()));
    }
};

template <typename Interface, typename Value>
class Preferences::Item final : public Interface {
public:
    Item(Entry& entry, int type) : m_entry(entry), m_type(type) {}

    int type() const override { return m_type; }
    QString name() const override { return m_entry.name; }
    Value value() const override
    {
        if constexpr (std::is_same_v<Value, PR_Rgba>) {
            const QRgb rgba = m_entry.value.value<QColor>().rgba();
            const auto part = [](int number) { return static_cast<unsigned char>(number); };
            return {part(qBlue(rgba)), part(qGreen(rgba)), part(qRed(rgba)), part(qAlpha(rgba))};
        } else {
            return m_entry.value.value<Value>();
        }
    }
    void restoreDefault() override { m_entry.restoreDefault(); }

private:
    Entry& m_entry;
    int m_type;
};

Preferences::Preferences(const QString& path) : m_file(path)
{
    for (const Default& preference : defaults)
        set(preference.name.toString(), preference.value);
    learn(m_file.read());
}

Preferences::~Preferences() = default;

PR_PrefItem* Preferences::find(const QString& name) const
{
    const auto found = m_entries.find(name);
    return found == m_entries.end() ? nullptr : found->second->item.get();
}

QVariant Preferences::valueOf(const QString& name) const
{
    const auto found = m_entries.find(name);
    return found == m_entries.end() ? QVariant() : found->second->value;
}

const std::vector<PR_PrefItem*>& Preferences::ordered() const
{
    if (m_order.empty()) {
        for (const auto& [name, entry] : m_entries)
            m_order.push_back(entry->item.get());
    }
    return m_order;
}

bool Preferences::getBoolValue(const QString& name, bool defaultValue) const
{
    const QVariant value = valueOf(name);
    return value.typeId() == QMetaType::Bool ? value.toBool() : defaultValue;
}

QString Preferences::getStringValue(const QString& name, const QString& defaultValue) const
{
    const QVariant value = valueOf(name);
    return value.typeId() == QMetaType::QString ? value.toString() : defaultValue;
}

void Preferences::set(const QString& name, const QVariant& value)
{
    std::unique_ptr<Entry>& entry = m_entries[name];
    if (entry && entry->value.typeId() == value.typeId()) {
        entry->value = kept(value);
        noteChange(name);
        return;
    }
    entry = std::make_unique<Entry>(Entry{*this, name, kept(value)});
    Entry& made = *entry;
    switch (value.typeId()) {
    case QMetaType::Bool:
        made.item = std::make_unique<Item<PR_BoolItem, bool>>(made, PR_PrefItem::Bool);
        break;
    case QMetaType::Int:
        made.item = std::make_unique<Item<PR_IntItem, int>>(made, PR_PrefItem::Int);
        break;
    case QMetaType::Double:
        made.item = std::make_unique<Item<PR_DoubleItem, double>>(made, PR_PrefItem::Double);
        break;
    case QMetaType::QColor:
        made.item = std::make_unique<Item<PR_RgbaItem, PR_Rgba>>(made, PR_PrefItem::Rgba);
        break;
    default:
        made.item = std::make_unique<Item<PR_StringItem, QString>>(made, PR_PrefItem::String);
    }
    m_order.clear();
    noteChange(name);
}

void Preferences::noteChange(const QString& name)
{
    if (name == constantSegmentName)
        m_constantSegment = getBoolValue(name, false);
}

/// Takes what the file holds. Other processes may have set a preference meanwhile, or put it back.
void Preferences::learn(const PreferenceFile::Values& inFile)
{
    for (auto value = inFile.begin(); value != inFile.end(); ++value)
        set(value.key(), value.value());
    for (auto saved = m_saved.begin(); saved != m_saved.end(); ++saved) {
        const QVariant known = defaultOf(saved.key());
        if (!inFile.contains(saved.key()) && known.isValid())
            set(saved.key(), known);
    }
    m_saved = inFile;
}

bool Preferences::save()
{
    PreferenceFile::Values changed;
    QStringList removed;
    for (const auto& [name, entry] : m_entries) {
        const auto saved = m_saved.constFind(name);
        const bool isDefault = defaultOf(name) == entry->value;
        if (isDefault && saved != m_saved.constEnd())
            removed.append(name);
        else if (!isDefault && (saved == m_saved.constEnd() || saved.value() != entry->value))
            changed.insert(name, entry->value);
    }
    if (changed.isEmpty() && removed.isEmpty())
        return true;
    const std::optional<PreferenceFile::Values> inFile = m_file.update(changed, removed);
    if (inFile)
        learn(*inFile);
    return bool(inFile);
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

bool PR_CachedPreferences::getOpenGLEnablePlaybackCache()
{
    return tuPref()->getBoolValue(QStringLiteral("OPENGL_ENABLE_PLAYBACK_CACHE"), false);
}

bool PR_CachedPreferences::getAdvancedEnablePerformanceReport()
{
    return tuPref()->getBoolValue(QStringLiteral("ADVANCED_ENABLE_PERFORMANCE_REPORT"), false);
}

/// Nobody listens to the preferences of the open engine: they are asked where they count.
PR_Preference::DisableEventsScope::DisableEventsScope() = default;
PR_Preference::DisableEventsScope::~DisableEventsScope() = default;

bool PR_CachedPreferences::getLibraryPasteCreateNewDrawing()
{
    return tuPref()->getBoolValue(QStringLiteral("LIBRARY_PASTE_CREATE_NEW_DRAWING"), false);
}
