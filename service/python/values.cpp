#include "service/python/values.h"

#include "core/bridges/pythonfunction.h"
#include "service/python/errors.h"

#include <QMetaType>
#include <QRegularExpression>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace brindle::python {

namespace {

/// A new reference, or the Python error that stands in its place.
PyObject* checked(PyObject* object)
{
    if (!object)
        throw PythonError{};
    return object;
}

/// Takes the objects out of a container that can be written, and copies them out of another one.
template <typename Container>
PyObject* listOf(Container&& items)
{
    Ref list(checked(PyList_New(static_cast<Py_ssize_t>(items.size()))));
    Py_ssize_t index = 0;
    for (auto& item : items)
        PyList_SET_ITEM(list.get(), index++, toPython(std::move(item)));
    return list.release();
}

/// The same for a map.
template <typename Map>
PyObject* dictOf(Map&& map)
{
    Ref dict(checked(PyDict_New()));
    for (auto item = map.begin(); item != map.end(); ++item) {
        const Ref key(toPython(item.key()));
        const Ref value(toPython(std::move(item.value())));
        if (PyDict_SetItem(dict.get(), key.get(), value.get()) < 0)
            throw PythonError{};
    }
    return dict.release();
}

QVariant integerFrom(PyObject* number)
{
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(number, &overflow);
    if (value == -1 && PyErr_Occurred())
        throw PythonError{};
    if (overflow) {
        PyErr_SetString(PyExc_OverflowError, "The number is beyond 64 bits.");
        throw PythonError{};
    }
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        return QVariant(static_cast<qlonglong>(value));
    return QVariant(static_cast<int>(value));
}

/// A list, dict or sequence inside others while it is read. A script may raise Python's own limit beyond what the stack
/// has.
class Nesting {
public:
    explicit Nesting(const char* where)
    {
        if (s_depth >= deepest) {
            PyErr_Format(PyExc_RecursionError, "more than %d levels%s", deepest, where);
            throw PythonError{};
        }
        if (Py_EnterRecursiveCall(where))
            throw PythonError{};
        ++s_depth;
    }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting()
    {
        --s_depth;
        Py_LeaveRecursiveCall();
    }

private:
    static constexpr int deepest = 1000;
    static thread_local int s_depth;
};

thread_local int Nesting::s_depth = 0;

QVariant listFrom(PyObject* sequence)
{
    // A list or tuple: PySequence_Fast hands out the object itself.
    const Py_ssize_t size = PySequence_Fast_GET_SIZE(sequence);
    bool allText = size > 0;
    for (Py_ssize_t i = 0; allText && i < size; ++i)
        allText = PyUnicode_Check(PySequence_Fast_GET_ITEM(sequence, i));
    if (allText) {
        QStringList texts;
        texts.reserve(size);
        for (Py_ssize_t i = 0; i < size; ++i)
            texts.append(stringFrom(PySequence_Fast_GET_ITEM(sequence, i)));
        return texts;
    }
    const Nesting level(" while reading a list");
    QVariantList values;
    values.reserve(size);
    // The size is asked anew: reading an item may run a script's own code, which may change the list.
    for (Py_ssize_t i = 0; i < PySequence_Fast_GET_SIZE(sequence); ++i) {
        const Ref item = Ref::borrow(PySequence_Fast_GET_ITEM(sequence, i));
        HeldItems::hold(item.get());
        values.append(variantFrom(item.get()));
    }
    return values;
}

QVariant mapFrom(PyObject* dict)
{
    const Nesting level(" while reading a dict");
    const Ref items(checked(PyDict_Items(dict)));
    QVariantMap map;
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(items.get()); ++i) {
        PyObject* item = PyList_GET_ITEM(items.get(), i);
        PyObject* key = PyTuple_GET_ITEM(item, 0);
        if (!PyUnicode_Check(key))
            throwTypeError("The keys of a dict must be str, not %s", Py_TYPE(key)->tp_name);
        HeldItems::hold(PyTuple_GET_ITEM(item, 1));
        map.insert(stringFrom(key), variantFrom(PyTuple_GET_ITEM(item, 1)));
    }
    return map;
}

bool isInstanceOf(PyObject* value, const char* module, const char* name)
{
    // A module that nobody has loaded has no instances.
    const Ref moduleName(checked(PyUnicode_FromString(module)));
    const Ref owner(PyImport_GetModule(moduleName.get()));
    if (!owner)
        return false;
    const Ref type(PyObject_GetAttrString(owner.get(), name));
    if (!type) {
        // A script has put something else in the module's place.
        PyErr_Clear();
        return false;
    }
    const int is = PyObject_IsInstance(value, type.get());
    if (is < 0)
        throw PythonError{};
    return is;
}

QVariant expressionFrom(PyObject* pattern)
{
    const Ref text(checked(PyObject_GetAttrString(pattern, "pattern")));
    if (!PyUnicode_Check(text.get()))
        throwTypeError("A pattern must be of str, not %s", Py_TYPE(text.get())->tp_name);
    const Ref flags(checked(PyObject_GetAttrString(pattern, "flags")));
    const long bits = PyLong_AsLong(flags.get());
    if (bits == -1 && PyErr_Occurred())
        throw PythonError{};
    // The bits of re.IGNORECASE, re.MULTILINE, re.DOTALL, re.VERBOSE.
    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
    options.setFlag(QRegularExpression::CaseInsensitiveOption, bits & 2);
    options.setFlag(QRegularExpression::MultilineOption, bits & 8);
    options.setFlag(QRegularExpression::DotMatchesEverythingOption, bits & 16);
    options.setFlag(QRegularExpression::ExtendedPatternSyntaxOption, bits & 64);
    return QRegularExpression(stringFrom(text.get()), options);
}

/// Whether the value has a length and items by index. Bytes have, too, but are neither a text nor a list; a mapping has
/// items by key.
bool isSequence(PyObject* value)
{
    const PySequenceMethods* methods = Py_TYPE(value)->tp_as_sequence;
    return methods && methods->sq_length && methods->sq_item && !PyBytes_Check(value) && !PyByteArray_Check(value) &&
           !PyObject_HasAttrString(value, "keys");
}

bool isNumber(PyObject* value)
{
    return PyIndex_Check(value) || hasFloat(value);
}

QVariant numberFrom(PyObject* value)
{
    if (PyIndex_Check(value))
        return integerFrom(Ref(checked(PyNumber_Index(value))).get());
    const double number = PyFloat_AsDouble(value);
    if (number == -1.0 && PyErr_Occurred())
        throw PythonError{};
    return QVariant(number);
}

/// Reads a range, an array or a sequence of the script's own class. Its items may not exist before they are asked for.
QVariant sequenceFrom(PyObject* sequence)
{
    // More would fill the memory, for a range that takes none itself.
    constexpr Py_ssize_t most = Py_ssize_t(1) << 24;
    const Py_ssize_t size = PySequence_Size(sequence);
    if (size < 0) {
        // An array of no dimension is a number.
        if (!isNumber(sequence) || !PyErr_ExceptionMatches(PyExc_TypeError))
            throw PythonError{};
        PyErr_Clear();
        return numberFrom(sequence);
    }
    if (size > most) {
        PyErr_Format(PyExc_OverflowError, "A sequence of %zd items is too long; %zd are the most", size, most);
        throw PythonError{};
    }
    const Nesting level(" while reading a sequence");
    QVariantList values;
    values.reserve(size);
    for (Py_ssize_t i = 0; i < size; ++i) {
        const Ref item(checked(PySequence_GetItem(sequence, i)));
        HeldItems::hold(item.get());
        values.append(variantFrom(item.get()));
    }
    return values;
}

QVariant functionFrom(PyObject* callable)
{
    auto function = std::make_unique<OMC::PythonFunction>();
    function->set(callable);
    return OMC::toVariant(function.release());
}

[[gnu::tls_model("initial-exec")]] constinit thread_local HeldItems* innermost = nullptr;

/// The texts that a script names again and again, as the same object: the text as Qt has it, by the address of
/// Python's. Used under the interpreter's lock.
struct KnownText {
    PyObject* text; ///< Held, so that its address is no other object's.
    QString string;
};
std::array<KnownText, 256> knownTexts;

KnownText& knownTextFor(PyObject* text)
{
    constexpr std::uintptr_t spacing = 16; // of Python's objects
    return knownTexts[reinterpret_cast<std::uintptr_t>(text) / spacing % knownTexts.size()];
}

/// Whether the same object may come again: Python keeps one of each name, and one of each constant of a piece of code,
/// which holds it. A long text isn't kept alive for that, nor an instance of a script's own class.
bool mayComeAgain(PyObject* text)
{
    constexpr Py_ssize_t longest = 256;
    return PyUnicode_CHECK_INTERNED(text) ||
           (Py_REFCNT(text) > 1 && PyUnicode_CheckExact(text) && PyUnicode_GET_LENGTH(text) <= longest);
}

QString decoded(PyObject* text)
{
    // Most texts: a byte a character, which needs no decoding.
    if (PyUnicode_IS_READY(text) && PyUnicode_KIND(text) == PyUnicode_1BYTE_KIND)
        return QString::fromLatin1(reinterpret_cast<const char*>(PyUnicode_1BYTE_DATA(text)),
                                   PyUnicode_GET_LENGTH(text));
    Py_ssize_t size = 0;
    const char* utf8 = PyUnicode_AsUTF8AndSize(text, &size);
    if (!utf8)
        throw PythonError{};
    return QString::fromUtf8(utf8, size);
}

} // namespace

HeldItems::HeldItems() : m_outer(std::exchange(innermost, this)) {}

HeldItems::~HeldItems()
{
    innermost = m_outer;
}

void HeldItems::hold(PyObject* item)
{
    if (innermost && isWrapper(item))
        innermost->m_items.push_back(Ref::borrow(item));
}

QString stringFrom(PyObject* text)
{
    if (!PyUnicode_Check(text))
        throwTypeError("A text must be str, not %s", Py_TYPE(text)->tp_name);
    if (!mayComeAgain(text))
        return decoded(text);
    KnownText& known = knownTextFor(text);
    if (known.text != text) {
        known.string = decoded(text);
        Py_INCREF(text);
        Py_XSETREF(known.text, text);
    }
    return known.string;
}

bool isPath(PyObject* value)
{
    return PyObject_HasAttrString(reinterpret_cast<PyObject*>(Py_TYPE(value)), "__fspath__");
}

QString pathFrom(PyObject* value)
{
    const Ref path(checked(PyOS_FSPath(value)));
    if (!PyUnicode_Check(path.get()))
        throwTypeError("A path must be of str, not %s", Py_TYPE(path.get())->tp_name);
    return stringFrom(path.get());
}

QVariant variantFrom(PyObject* value)
{
    if (value == Py_None)
        return {};
    if (PyBool_Check(value))
        return QVariant(value == Py_True);
    if (PyLong_Check(value))
        return integerFrom(value);
    if (PyFloat_Check(value))
        return QVariant(PyFloat_AS_DOUBLE(value));
    if (PyUnicode_Check(value))
        return QVariant(stringFrom(value));
    if (isWrapper(value))
        return QVariant::fromValue<QObject*>(heldObject(value));
    if (PyList_Check(value) || PyTuple_Check(value))
        return listFrom(value);
    if (PyDict_Check(value))
        return mapFrom(value);
    if (isInstanceOf(value, "re", "Pattern"))
        return expressionFrom(value);
    if (PyCallable_Check(value))
        return functionFrom(value);
    if (isPath(value))
        return QVariant(pathFrom(value));
    // Ahead of the numbers: an array has `__index__` and `__float__` for its only item.
    if (isSequence(value))
        return sequenceFrom(value);
    if (isNumber(value))
        return numberFrom(value);
    throwTypeError("A value of type %s can't be used here", Py_TYPE(value)->tp_name);
}

std::optional<QVariant> comparedValue(PyObject* value)
{
    if (value == Py_None)
        return std::nullopt;
    try {
        return variantFrom(value);
    } catch (const PythonError&) {
        for (PyObject* unreadable : {PyExc_TypeError, PyExc_OverflowError, PyExc_UnicodeError}) {
            if (PyErr_ExceptionMatches(unreadable)) {
                PyErr_Clear();
                return std::nullopt;
            }
        }
        throw;
    }
}

PyObject* toPython(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        Py_RETURN_NONE;
    case QMetaType::Bool:
        return toPython(value.toBool());
    case QMetaType::Int:
        return toPython(value.toInt());
    case QMetaType::UInt:
        return toPython(value.toUInt());
    case QMetaType::Long:
    case QMetaType::LongLong:
        return toPython(value.toLongLong());
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return checked(PyLong_FromUnsignedLongLong(value.toULongLong()));
    case QMetaType::Double:
    case QMetaType::Float:
        return toPython(value.toDouble());
    case QMetaType::QString:
        return toPython(*static_cast<const QString*>(value.constData()));
    case QMetaType::QStringList:
        return toPython(*static_cast<const QStringList*>(value.constData()));
    case QMetaType::QVariantList:
        return toPython(*static_cast<const QVariantList*>(value.constData()));
    case QMetaType::QVariantMap:
        return dictOf(*static_cast<const QVariantMap*>(value.constData()));
    default:
        break;
    }
    if (value.typeId() == QMetaType::fromType<std::vector<OMC::Obj>>().id())
        return toPython(std::vector<OMC::Obj>(*static_cast<const std::vector<OMC::Obj>*>(value.constData())));
    if (value.typeId() == QMetaType::fromType<QMap<QString, OMC::Obj>>().id())
        return toPython(QMap<QString, OMC::Obj>(*static_cast<const QMap<QString, OMC::Obj>*>(value.constData())));
    const QObject* object = OMC::BaseObject::QVariantToPointer(value);
    if (auto* known = dynamic_cast<OMC::BaseObject*>(const_cast<QObject*>(object))) {
        // A fresh object in a plain pointer is the receiver's; everything else is copied out of the variant.
        if (known->getOwnership() == OMC::Unowned && !(value.metaType().flags() & QMetaType::PointerToQObject))
            return toPython(OMC::Obj(known->copy()));
        return toPython(OMC::Obj(known));
    }
    if (object == nullptr && (value.canConvert<QObject*>() || value.typeId() == QMetaType::fromType<OMC::Obj>().id()))
        Py_RETURN_NONE;
    throwTypeError("A value of type %s has no form in Python", value.typeName());
}

PyObject* toPython(QVariant&& value)
{
    if (value.typeId() == QMetaType::fromType<OMC::Obj>().id())
        return toPython(std::move(*static_cast<OMC::Obj*>(value.data())));
    if (value.typeId() == QMetaType::QVariantList)
        return toPython(std::move(*static_cast<QVariantList*>(value.data())));
    return toPython(std::as_const(value));
}

PyObject* toPython(const QString& text)
{
    char16_t all = 0;
    bool surrogates = false;
    const auto* units = reinterpret_cast<const char16_t*>(text.utf16());
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        all |= units[i];
        surrogates |= QChar::isSurrogate(units[i]);
    }
    if (all < 0x100) {
        PyObject* result = checked(PyUnicode_New(size, all < 0x80 ? 0x7f : 0xff));
        auto* bytes = PyUnicode_1BYTE_DATA(result);
        for (qsizetype i = 0; i < size; ++i)
            bytes[i] = static_cast<Py_UCS1>(units[i]);
        return result;
    }
    if (!surrogates)
        return checked(PyUnicode_FromKindAndData(PyUnicode_2BYTE_KIND, units, size));
    int littleEndian = -1;
    return checked(
        PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(units), size * 2, "surrogatepass", &littleEndian));
}

PyObject* toPython(const std::string& text)
{
    return checked(PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace"));
}

PyObject* toPython(std::vector<OMC::Obj>&& objects)
{
    return listOf(objects);
}

PyObject* toPython(QMap<QString, OMC::Obj>&& objects)
{
    return dictOf(objects);
}

PyObject* toPython(const QList<QVariant>& values)
{
    return listOf(values);
}

PyObject* toPython(QList<QVariant>&& values)
{
    return listOf(values);
}

PyObject* toPython(const QStringList& texts)
{
    return listOf(texts);
}

PyObject* toPython(const QList<int>& numbers)
{
    return listOf(numbers);
}

PyObject* toPython(bool value)
{
    return PyBool_FromLong(value);
}

PyObject* toPython(int value)
{
    return checked(PyLong_FromLong(value));
}

PyObject* toPython(unsigned int value)
{
    return checked(PyLong_FromUnsignedLong(value));
}

PyObject* toPython(unsigned long value)
{
    return checked(PyLong_FromUnsignedLong(value));
}

PyObject* toPython(qlonglong value)
{
    return checked(PyLong_FromLongLong(value));
}

PyObject* toPython(double value)
{
    return checked(PyFloat_FromDouble(value));
}

} // namespace brindle::python
