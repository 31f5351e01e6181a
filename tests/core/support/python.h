#pragma once

#include "core/bridges/pythonfunction.h"
#include "core/frame/pythonthread.h"
#include "core/host/scp_pythonengine.h"

#include <QStringList>

#include <functional>
#include <memory>

struct _object {
    int references = 0;
    std::function<QVariant(std::vector<QVariant>&)> body;
};

/// Stands in for a service library's side of functions and threads: it counts references on stand-in functions, and
/// writes down who enters and leaves Python. Installed while it lives.
class StandInPython {
public:
    StandInPython();
    StandInPython(const StandInPython&) = delete;
    StandInPython& operator=(const StandInPython&) = delete;
    ~StandInPython();

    QStringList threadCalls; ///< The scopes by which native code entered and left Python.
    int gilScopes = 0;       ///< Those that are open, on whatever thread.
};

/// A helper that leaves calls as they are for one that has none.
class HelperWithoutCalls final : public OMC::PythonFunctionHelper {
public:
    void addReference(_object*) const override {}
    void dropReference(_object*) const override {}
    _object* objectIn(const QVariant&) const override { return nullptr; }
    bool isCallable(_object*) const override { return true; }
};

class PythonEngine : public SCP_PythonEngine {};

/// A function for StandInPython.
inline _object standInFunction(std::function<void()> body)
{
    return {0, [body](std::vector<QVariant>&) {
                body();
                return QVariant();
            }};
}

/// A wrapper of a function, in a form that a script's argument has.
QVariant argument(OMC::PythonFunction& function);
