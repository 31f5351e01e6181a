#include "core/bridges/pythonfunction.h"

#include "core/frame/pythonthread.h"

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

void PythonFunctionHelper::run(_object* function) const
{
    std::vector<QVariant> arguments;
    call(function, arguments);
}

bool PythonFunctionHelper::test(_object* function, std::vector<QVariant>& arguments) const
{
    return call(function, arguments).toBool();
}

PythonFunction::PythonFunction() = default;

PythonFunction::PythonFunction(const PythonFunction& other) : BaseObject(other), m_function(other.get())
{
    if (m_function)
        installedHelper().addReference(m_function);
}

PythonFunction& PythonFunction::operator=(const PythonFunction& other)
{
    set(other.get());
    return *this;
}

PythonFunction::~PythonFunction()
{
    // A function that outlives the helper ends the process here: the failure can't leave a destructor.
    if (m_function)
        installedHelper().dropReference(m_function);
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

template <typename Call>
auto PythonFunction::callInside(const Call& call) const
{
    const PythonFunctionHelper& helper = installedHelper();
    const auto function = [this] {
        if (!m_function)
            throw Exception(tr("No Python object is available."));
        return m_function.load();
    };
    function();
    const PythonGILScope python;
    // Another thread may have set another function, or none, before this one got in.
    return call(helper, function());
}

QVariant PythonFunction::call(std::vector<QVariant>& arguments) const
{
    return callInside(
        [&](const PythonFunctionHelper& helper, _object* function) { return helper.call(function, arguments); });
}

void PythonFunction::run() const
{
    callInside([](const PythonFunctionHelper& helper, _object* function) { helper.run(function); });
}

bool PythonFunction::test(std::vector<QVariant>& arguments) const
{
    return callInside(
        [&](const PythonFunctionHelper& helper, _object* function) { return helper.test(function, arguments); });
}

void PythonFunction::set(_object* function)
{
    if (function == m_function)
        return;
    _object* before = m_function.exchange(function);
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
