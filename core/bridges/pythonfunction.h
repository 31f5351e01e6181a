#pragma once

#include "core/frame/baseobject.h"

#include <QVariantList>

#include <atomic>
#include <memory>
#include <vector>

struct _object;

namespace OMC {

/// The interpreter's side of a function of a script. The library that binds the object model to
/// Python installs an object of its own class (`PythonFunction::helperFunc`).
class BRINDLE_CORE_EXPORT PythonFunctionHelper {
public:
    virtual ~PythonFunctionHelper();

    /// Take and drop a reference. The caller needs not hold Python's lock.
    virtual void addReference(_object* function) const = 0;
    virtual void dropReference(_object* function) const = 0;
    /// Calls the function, with Python's lock held. An exception of the script leaves it as an OMC::Exception.
    virtual QVariant call(_object* function, std::vector<QVariant>& arguments) const;
    /// The interpreter's object that a variant carries in a form of the binding's own, or null.
    virtual _object* objectIn(const QVariant& value) const = 0;
    virtual bool isCallable(_object* object) const = 0;

    /// `call` without arguments where the result is dropped: it may be what has no form here.
    virtual void run(_object* function) const;
    /// `call` where nothing counts but whether the result is true for the interpreter.
    virtual bool test(_object* function, std::vector<QVariant>& arguments) const;
};

/// A function of the script, as native code holds it, or none.
///
/// It holds one reference on the interpreter's object, which it can't look into: the helper does all that touches the
/// interpreter. Without a helper it can be built, and nothing else. Any thread may call it. It never becomes invalid,
/// but must not outlive the helper.
class BRINDLE_CORE_EXPORT PythonFunction : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(PythonFunction)

public:
    PythonFunction();
    PythonFunction(const PythonFunction& other);
    PythonFunction& operator=(const PythonFunction& other);
    ~PythonFunction() override;

    std::string __str__() const override;

    /// Calls it with a list of arguments, or with none, and gives its result. Fails without a function; what it raises
    /// comes back as it is.
    Q_INVOKABLE QVariant call(const QVariantList& arguments = {});
    virtual QVariant call(std::vector<QVariant>& arguments) const;
    /// The same without arguments, for its effect: the result is dropped, whatever it is.
    void run() const;
    /// The same as a predicate: whether the result, whatever it is, is true for the interpreter.
    bool test(std::vector<QVariant>& arguments) const;

    /// Holds another function, or none for null.
    virtual void set(_object* function);
    /// The function as it was given, or null.
    ///
    /// No reference is taken: it is still the wrapper's.
    virtual _object* get() const;

    /// The place of the one helper; null until it is installed. It stays to the end of the process.
    static std::unique_ptr<PythonFunctionHelper>& helperFunc();

private:
    template <typename Call>
    auto callInside(const Call& call) const;

    /// Changed with the interpreter's lock held, looked at without it.
    std::atomic<_object*> m_function = nullptr;
};

} // namespace OMC
