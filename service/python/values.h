#pragma once

#include "service/python/wrapper.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <string>
#include <vector>

/// Values both ways, by the table in the Python contract. `toPython` gives a new reference, or throws PythonError.
namespace brindle::python {

/// Keeps the objects in the lists and dicts of a call's arguments alive until the call is over. Reading the next
/// argument may run a script's code, and other threads meanwhile, which may empty the list.
class HeldItems {
public:
    HeldItems();
    HeldItems(const HeldItems&) = delete;
    HeldItems& operator=(const HeldItems&) = delete;
    ~HeldItems();

    /// Adds an object to those of the innermost call of this thread.
    static void hold(PyObject* item);

private:
    std::vector<Ref> m_items;
    HeldItems* m_outer;
};

/// Whether a float can be made of the value.
inline bool hasFloat(PyObject* value)
{
    const PyNumberMethods* number = Py_TYPE(value)->tp_as_number;
    return number && number->nb_float;
}
/// Whether the value's class has `__fspath__`.
bool isPath(PyObject* value);

/// Reads any value. `HeldItems` must live as long as a result that holds objects. Touches nothing of the engine.
QVariant variantFrom(PyObject* value);
/// The same for a comparison: nothing for None, and for what can't be an argument.
std::optional<QVariant> comparedValue(PyObject* value);
QString stringFrom(PyObject* text); ///< Reads a str; throws on one that is no Unicode text (lone surrogates).
QString pathFrom(PyObject* value);  ///< Reads an object with `__fspath__`, which has to give a str.

PyObject* toPython(const QVariant& value);
PyObject* toPython(QVariant&& value); ///< Takes an object out of the variant, where the other one copies it.
PyObject* toPython(const QString& text);
PyObject* toPython(const std::string& text);
PyObject* toPython(std::vector<OMC::Obj>&& objects);
PyObject* toPython(QMap<QString, OMC::Obj>&& objects);
PyObject* toPython(const QList<QVariant>& values);
PyObject* toPython(QList<QVariant>&& values); ///< Takes the objects out, as above.
PyObject* toPython(const QStringList& texts);
PyObject* toPython(const QList<int>& numbers);
PyObject* toPython(bool value);
PyObject* toPython(int value);
PyObject* toPython(unsigned int value);
PyObject* toPython(unsigned long value);
PyObject* toPython(qlonglong value);
PyObject* toPython(double value);
/// A reference that is one already.
inline PyObject* toPython(PyObject* object)
{
    return object;
}

} // namespace brindle::python
