#include "core/bridges/pythonfunction.h"

#include "core/frame/pythonthread.h"

#include <utility>

namespace OMC {

namespace {

PythonFunctionHelper& installedHelper()
{
    PythonFunctionHelper* helper = PythonFunction::helperFunc().get();
    if (!helper)
        throw Exception(PythonFunction::tr("Wrapper function calling has not been enabled."));
    return *helper;
}

} // namespace

PythonFunctionHelper::~PythonFunctionHelper() = default;

QVariant PythonFunctionHelper::call(_object*, std::vector<QVariant>&) const
{
    throw Exception(std::string("Fail - this should be overridden by target wrappers.\n"));
}

PythonFunction::PythonFunction() = default;

PythonFunction::PythonFunction(const PythonFunction& other) : BaseObject(other), m_function(other.m_function)
{
    if (m_function)
        installedHelper().addReference(m_function);
}

PythonFunction& PythonFunction::operator=(const PythonFunction& other)
{
    set(other.m_function);
    return *this;
}

PythonFunction::~PythonFunction()
{
    // A function that outlives the helper ends the process here: the failure can't leave a destructor.
    if (m_function)
        installedHelper().dropReference(m_function);
}

BaseObject* PythonFunction::copy() const
{
    return new PythonFunction(*this);
}

std::string PythonFunction::__str__() const
{
    return "PythonFunction()";
}

QVariant PythonFunction::call(const QVariantList& arguments)
{
    std::vector<QVariant> values(arguments.begin(), arguments.end());
    return call(values);
}

QVariant PythonFunction::call(std::vector<QVariant>& arguments) const
{
    const PythonFunctionHelper& helper = installedHelper();
    if (!m_function)
        throw Exception(tr("No Python object is available."));
    const PythonGILScope python;
    return helper.call(m_function, arguments);
}

void PythonFunction::set(_object* function)
{
    if (function == m_function)
        return;
    _object* before = std::exchange(m_function, function);
    // The new one stays stored when this fails.
    const PythonFunctionHelper& helper = installedHelper();
    // Taken ahead of dropping the old one: the two may share what keeps them alive.
    if (m_function)
        helper.addReference(m_function);
    if (before)
        helper.dropReference(before);
}

_object* PythonFunction::get() const
{
    return m_function;
}

std::unique_ptr<PythonFunctionHelper>& PythonFunction::helperFunc()
{
    // Never destroyed: functions may be dropped while the process ends.
    static auto* helper = new std::unique_ptr<PythonFunctionHelper>;
    return *helper;
}

} // namespace OMC
