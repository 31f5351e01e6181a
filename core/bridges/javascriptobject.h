#pragma once

#include "core/bridges/javascriptbackend.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listqvar.h"

#include <QStringList>

namespace OMC {

/// A value of Javascript, as a list, a map or a function.
///
/// It refers to the script's own object: what is changed here is changed there. Copies refer to the same object. An
/// array is a list with indexes, of which negative ones count from the end; every other object is a map from the names
/// of its properties, those that a script's loop leaves out included. It is empty once the session has ended. What a
/// script throws meanwhile comes as a failure with its place.
class BRINDLE_CORE_EXPORT JavascriptObject : public ListIteration<ListQVar, IterableQVar> {
    Q_OBJECT
    BRINDLE_COPYABLE(JavascriptObject)

    Q_PROPERTY(QString source READ getSource)
    Q_PROPERTY(QString type READ getType)

public:
    JavascriptObject() = default; ///< Refers to nothing.
    /// `self` is the object that acts as `this` and as the global object when the value is called. Defined in
    /// core/bridges/javascriptvalue.h, for those who know Qt Script.
    JavascriptObject(const QScriptValue& value, const QScriptValue& self);
    JavascriptObject(JavascriptValue value, JavascriptValue self);

    std::string __str__() const override;

    std::size_t size() const override; ///< The number of items of an array, or of properties.
    /// The property of a name, None where there is none, or its value is null or undefined.
    QVariant get(const QString& name) const override;
    /// The item of an array; fails for one that isn't there, is null or undefined.
    QVariant get(int index) const override;
    /// Sets a property, of what is no array.
    void set(const QString& name, const QVariant& value) override;
    /// Replaces an item of an array.
    void set(int index, const QVariant& value) override;
    QStringList names() const;             ///< The names of all properties.
    QList<QVariant> list() const override; ///< The items of an array, or the values of all properties.
    /// Whether an array holds the value, compared with all that lies in it; or whether there is a property of that name
    /// that is neither null nor undefined.
    bool contains(const QVariant& value) const override;

    /// Removes the first item that is equal to the value from an array, or the property of that name. Without one,
    /// nothing happens.
    virtual void remove(const QVariant& value);
    /// Takes an item out of an array and gives it; None where there is none, and for what is no array.
    virtual QVariant pop(int index = -1);
    /// Puts a value ahead of an item of an array. Nothing happens to what is no array.
    virtual void insert(int index, const QVariant& value);
    virtual void clear(); ///< Removes all items, or all properties.
    /// Adds a value to the end of an array. Nothing happens to what is no array.
    virtual void append(const QVariant& value);

    virtual QString getSource() const; ///< The path of the file that a script came from, or "memory".
    /// "NULL", "FUNCTION", "ARRAY", "VARIANT" (an object of the application), "STRING", "BOOL", "NUMBER", "OBJECT" or
    /// "UNKNOWN"; of a script, "ROOT".
    virtual QString getType() const;

    /// Calls the function with the items of a list, the values of another Javascript object, or any other value as its
    /// only argument. `self` is its `this`. Fails for what is no function.
    QVariant call(const QVariant& arguments = {}, const QVariant& self = {});
    QVariant operator()(const QVariant& arguments, const QVariant& self) { return call(arguments, self); }

    Obj __iter__() const override;
    bool __atend__() const override { return position() >= m_iterSize; }
    QVariant __iterItem__() const override;
    void operator++() override;
    void operator--() override;

    const JavascriptValue& value() const { return m_value; } ///< For the half of the bridge that knows Qt Script.

protected:
    /// Brings in what the object is to refer to, where it comes late. The first step of every operation.
    virtual void delayedInitialize() const {}
    void setValue(const JavascriptValue& value) const { m_value = m_self = value; }

    JavascriptBackend& backend() const;

private:
    mutable JavascriptValue m_value;
    mutable JavascriptValue m_self; ///< `this` and the global object of a call.
    quint64 m_iterSize = 0;
    bool m_isArray = false;  ///< In a loop.
    QStringList m_iterNames; ///< In a loop over what is no array.
};

} // namespace OMC
