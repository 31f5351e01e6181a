#include "core/services/preferences.h"

#include "core/frame/found.h"
#include "core/geometry/colour.h"
#include "core/host/pr_preference.h"

#include <QColor>

#include <algorithm>
#include <optional>

namespace OMC {

namespace {

/// What the table of kinds says of one.
struct KindRow {
    int kind;
    const char* word;
    int valueType; ///< The meta type of values that an argument of the kind has; that of a QColor for a colour.
};

constexpr KindRow kinds[] = {
    {PR_PrefItem::Bool, "BOOL", QMetaType::Bool},       {PR_PrefItem::Int, "INT", QMetaType::Int},
    {PR_PrefItem::Double, "DOUBLE", QMetaType::Double}, {PR_PrefItem::String, "STRING", QMetaType::QString},
    {PR_PrefItem::Rgba, "COLOR", QMetaType::QColor},
};

const KindRow* rowOfKind(int kind)
{
    const auto found =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const KindRow& row) { return row.kind == kind; });
    return found == std::end(kinds) ? nullptr : found;
}

const KindRow* rowOfValue(const QVariant& value)
{
    const int type = objectFrom<Colour>(value) ? int(QMetaType::QColor) : value.typeId();
    const auto found =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const KindRow& row) { return row.valueType == type; });
    return found == std::end(kinds) ? nullptr : found;
}

QColor colourOf(const Colour& colour)
{
    const auto part = [](float value) { return static_cast<int>(value) & 0xff; };
    return QColor(part(colour.getR()), part(colour.getG()), part(colour.getB()), part(colour.getA()));
}

QString translated(const char* text, const QString& key)
{
    return Preferences::tr(text).arg(key);
}

QString unknownArgument(const QString& key)
{
    return translated("Unknown preference type for argument: %1.", key);
}

PR_PrefItem& requireItem(const QString& key)
{
    return found(tuPref()->find(key), [&] { return translated("Unable to find preference with key: %1.", key); });
}

QVariant requireValue(const PR_PrefItem* item, const QString& key)
{
    QVariant value;
    if (!Preferences::prefToQVariant(item, value))
        throw Exception(translated("Unknown preference type for: %1.", key));
    return value;
}

QString textOf(const PR_RgbaItem* item)
{
    if (!item)
        return QStringLiteral("RGBA(0,0,0,0)");
    const PR_Rgba value = item->value();
    return QStringLiteral("RGBA(%1, %2, %3, %4)").arg(value.red).arg(value.green).arg(value.blue).arg(value.alpha);
}

QString textOf(const PR_PrefItem* item)
{
    if (!item)
        return PreferencePair::tr("NONE");
    if (item->type() == PR_PrefItem::Rgba)
        return textOf(dynamic_cast<const PR_RgbaItem*>(item));
    QVariant value;
    if (!Preferences::prefToQVariant(item, value))
        return QStringLiteral("UNKNOWN");
    switch (item->type()) {
    case PR_PrefItem::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case PR_PrefItem::Double:
        return QStringLiteral("%1").arg(value.toDouble(), 0, 'g', -1);
    default:
        return value.toString();
    }
}

template <typename Item>
bool readAs(const PR_PrefItem* item, QVariant& value)
{
    const auto* known = dynamic_cast<const Item*>(item);
    if (known)
        value = QVariant(known->value());
    return known;
}

} // namespace

std::string PreferencePair::__str__() const
{
    throwIfNotMainThread(QStringLiteral("preference_pair.__str__"));
    return (m_key + QStringLiteral(" : ") + textOf(tuPref()->find(m_key))).toStdString();
}

QString PreferencePair::getKey() const
{
    return m_key;
}

QString PreferencePair::getType() const
{
    throwIfNotMainThread(QStringLiteral("preference_pair.type"));
    const PR_PrefItem* item = tuPref()->find(m_key);
    return item ? Preferences::prefToType(item) : QString();
}

QVariant PreferencePair::getValue() const
{
    throwIfNotMainThread(QStringLiteral("preference_pair.value"));
    const PR_PrefItem* item = tuPref()->find(m_key);
    return item ? requireValue(item, m_key) : QVariant();
}

void PreferencePair::setValue(const QVariant& value)
{
    throwIfNotMainThread(QStringLiteral("preference_pair.value"));
    Preferences::setPref(m_key, value);
}

bool PreferencePair::reset()
{
    throwIfNotMainThread(QStringLiteral("preference_pair.reset"));
    requireItem(m_key).restoreDefault();
    return true;
}

Preferences::Preferences(const Preferences& other)
    : BaseObject(other),
      Container(other),
      IterableObj(other),
      m_index(other.m_index),
      m_atEnd(other.m_atEnd)
{}

std::string Preferences::__str__() const
{
    return "Brindle Preferences";
}

Obj Preferences::operator()(const QString& key) const
{
    return get(key);
}

bool Preferences::contains(const QString& key) const
{
    throwIfNotMainThread(QStringLiteral("preferences.contains"));
    return tuPref()->find(key);
}

void Preferences::replace(const QString& key, const QVariant& value)
{
    throwIfNotMainThread(QStringLiteral("preferences.replace"));
    const PR_PrefItem& item = requireItem(key);
    const KindRow* row = rowOfValue(value);
    if (!row)
        throw Exception(unknownArgument(key));
    if (row->kind != item.type())
        throw Exception(tr("Preference value does not match existing preference type."));
    setPref(key, value);
}

bool Preferences::reset(const QString& key)
{
    throwIfNotMainThread(QStringLiteral("preferences.reset"));
    requireItem(key).restoreDefault();
    return true;
}

QString Preferences::type(const QString& key) const
{
    throwIfNotMainThread(QStringLiteral("preferences.type"));
    const PR_PrefItem* item = tuPref()->find(key);
    return item ? prefToType(item) : QString();
}

QVariant Preferences::value(const QString& key, const QVariant& defaultValue)
{
    throwIfNotMainThread(QStringLiteral("preferences.value"));
    if (const PR_PrefItem* item = tuPref()->find(key))
        return requireValue(item, key);
    // Required: reading an unknown preference with a default makes it.
    set(key, defaultValue);
    return defaultValue;
}

std::size_t Preferences::size() const
{
    throwIfNotMainThread(QStringLiteral("preferences.__len__"));
    return static_cast<std::size_t>(std::distance(tuPref()->constBegin(), tuPref()->constEnd()));
}

Obj Preferences::get(const QString& key) const
{
    throwIfNotMainThread(QStringLiteral("preferences.get"));
    return tuPref()->find(key) ? Obj(new PreferencePair(key)) : Obj();
}

void Preferences::set(const QString& key, const QVariant& value)
{
    setPref(key, value);
}

QVariantMap Preferences::list() const
{
    throwIfNotMainThread(QStringLiteral("preferences.list"));
    QVariantMap values;
    std::for_each(tuPref()->constBegin(), tuPref()->constEnd(), [&values](const PR_PrefItem* item) {
        QVariant value;
        if (prefToQVariant(item, value))
            values.insert(item->name(), value);
    });
    return values;
}

Obj Preferences::__iter__() const
{
    auto* iterator = copy();
    iterator->m_index = 0;
    iterator->m_atEnd = tuPref()->constBegin() == tuPref()->constEnd();
    return iterator;
}

Obj Preferences::__iterItem__() const
{
    throwIfNotMainThread(QStringLiteral("preferences.__iterItem__"));
    const auto count = static_cast<quint64>(std::distance(tuPref()->constBegin(), tuPref()->constEnd()));
    if (m_index >= count)
        throw Exception(std::string("Iteration item is out of range."));
    if (m_index + 1 == count)
        m_atEnd = true;
    return new PreferencePair((*(tuPref()->constBegin() + m_index))->name());
}

void Preferences::operator--()
{
    if (m_index == 0)
        return;
    m_atEnd = false;
    --m_index;
}

bool Preferences::setPref(const QString& key, const QVariant& value)
{
    if (const auto* colour = objectFrom<Colour>(value)) {
        tuPref()->setRgbaValue(key, colourOf(*colour));
        return true;
    }
    if (const auto* pair = objectFrom<PreferencePair>(value))
        return setPref(key, pair->getValue());
    switch (value.typeId()) {
    case QMetaType::Bool:
        tuPref()->setBoolValue(key, value.toBool());
        return true;
    case QMetaType::Int:
        tuPref()->setIntValue(key, value.toInt());
        return true;
    case QMetaType::Double:
        tuPref()->setDoubleValue(key, value.toDouble());
        return true;
    case QMetaType::QString:
        tuPref()->setStringValue(key, value.toString());
        return true;
    case QMetaType::QColor:
        tuPref()->setRgbaValue(key, value.value<QColor>());
        return true;
    default:
        throw Exception(unknownArgument(key));
    }
}

bool Preferences::prefToQVariant(const PR_PrefItem* item, QVariant& value)
{
    switch (item->type()) {
    case PR_PrefItem::Bool:
        return readAs<PR_BoolItem>(item, value);
    case PR_PrefItem::Int:
        return readAs<PR_IntItem>(item, value);
    case PR_PrefItem::Double:
        return readAs<PR_DoubleItem>(item, value);
    case PR_PrefItem::String:
        return readAs<PR_StringItem>(item, value);
    case PR_PrefItem::Rgba:
        if (const auto* known = dynamic_cast<const PR_RgbaItem*>(item)) {
            const PR_Rgba rgba = known->value();
            value = toVariant(new Colour(rgba.red, rgba.green, rgba.blue, rgba.alpha));
            return true;
        }
        return false;
    default:
        return false;
    }
}

QString Preferences::prefToType(const PR_PrefItem* item)
{
    const KindRow* row = rowOfKind(item->type());
    return row ? QString::fromLatin1(row->word) : QStringLiteral("UNKNOWN");
}

} // namespace OMC
