#pragma once

#include "core/frame/container.h"
#include "core/frame/iterable.h"

#include <QVariant>
#include <QVariantMap>

class PR_PrefItem;

namespace OMC {

/// A preference of the person, by its name: it holds no value itself. On the main thread alone. Changes aren't
/// undoable.
class BRINDLE_CORE_EXPORT PreferencePair : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(PreferencePair)

    Q_PROPERTY(QString key READ getKey)
    Q_PROPERTY(QString type READ getType)
    Q_PROPERTY(QVariant value READ getValue WRITE setValue)

public:
    explicit PreferencePair(QString key) : m_key(std::move(key)) {}
    PreferencePair(const PreferencePair& other) : BaseObject(other), m_key(other.m_key) {}

    std::string __str__() const override;

    QString getKey() const;  ///< The name of the preference.
    QString getType() const; ///< "BOOL", "INT", "DOUBLE", "STRING", "COLOR" or "UNKNOWN"; empty for an unknown name.
    QVariant
    getValue() const; ///< The value. Setting it makes the preference where there is none, and may change its type.
    void setValue(const QVariant& value);
    bool reset(); ///< Goes back to the default. Fails for a preference that isn't there.

private:
    QString m_key;
};

/// The preferences of the person who runs the application, as a map from names to them. On the main thread alone.
/// Changes aren't undoable; they are kept when a project is saved and when the application ends.
class BRINDLE_CORE_EXPORT Preferences : public BaseObject,
                                        public Container<Obj, QVariant, QVariantMap, QString>,
                                        public IterableObj {
    Q_OBJECT
    BRINDLE_COPYABLE(Preferences)

public:
    Preferences() = default;
    Preferences(const Preferences& other);

    std::string __str__() const override;

    virtual Obj operator()(const QString& key) const;
    virtual bool contains(const QString& key) const; ///< Whether there is a preference of that name.
    /// Sets a preference that is there, to a value of its type; fails for any other.
    virtual void replace(const QString& key, const QVariant& value);
    virtual bool reset(const QString& key); ///< Goes back to the default. Fails for a preference that isn't there.
    /// "BOOL", "INT", "DOUBLE", "STRING", "COLOR" or "UNKNOWN"; empty for an unknown name.
    virtual QString type(const QString& key) const;
    /// The value of a preference. Where there is none, it is made with the default, which is the result.
    virtual QVariant value(const QString& key, const QVariant& defaultValue);

    std::size_t size() const override;          ///< The number of preferences.
    Obj get(const QString& key) const override; ///< A preference, or None for an unknown name.
    /// Sets a preference: to a truth value, an int, a float, a text, a Colour, or the value of another preference. It
    /// is made where there is none, and may change its type.
    void set(const QString& key, const QVariant& value) override;
    QVariantMap list() const override; ///< All values by name.

    Obj __iter__() const override;
    Obj __iterItem__() const override;
    bool __atend__() const override { return m_atEnd; }
    void operator++() override { ++m_index; }
    void operator--() override;

    /// Sets a preference, as `set` does.
    static bool setPref(const QString& key, const QVariant& value);
    /// The value of an item; false for one of an unknown kind.
    static bool prefToQVariant(const PR_PrefItem* item, QVariant& value);
    static QString prefToType(const PR_PrefItem* item); ///< The type word of an item.

private:
    quint64 m_index = 0;
    mutable bool m_atEnd = false;
};

} // namespace OMC
