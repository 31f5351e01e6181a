#pragma once

#include "core/frame/export.h"

#include <memory>

namespace OMC {

/// How threads enter and leave the Python interpreter. The object model knows nothing of it: the library that binds it
/// to Python installs an object of its own class.
class BRINDLE_CORE_EXPORT PythonThreadHelper {
public:
    /// The calling thread runs Python between construction and `release`, which may be called again without effect.
    class BRINDLE_CORE_EXPORT PythonGILScope_Priv {
    public:
        virtual ~PythonGILScope_Priv();
        virtual void release() = 0;
    };
    /// The calling thread lets other threads run Python between construction and `release` or, without one,
    /// destruction.
    class BRINDLE_CORE_EXPORT PythonThreadScope_Priv {
    public:
        virtual ~PythonThreadScope_Priv();
        virtual void release() = 0;
    };

    virtual ~PythonThreadHelper();
    virtual PythonGILScope_Priv* createGILScope() = 0;       ///< New; the caller's.
    virtual PythonThreadScope_Priv* createThreadScope() = 0; ///< New; the caller's.

    /// The place of the one object; null until it is installed. It stays to the end of the process.
    static std::unique_ptr<PythonThreadHelper>& helper();
};

/// A stack object: while it lives the calling thread may use Python. On the main thread it also counts it as being
/// inside Python. The helper must be installed.
class BRINDLE_CORE_EXPORT PythonGILScope {
public:
    PythonGILScope();
    PythonGILScope(const PythonGILScope&) = delete;
    PythonGILScope& operator=(const PythonGILScope&) = delete;
    ~PythonGILScope();

    void release(); ///< Leaves Python ahead of the end of the scope.

private:
    bool m_counted = false;
    std::unique_ptr<PythonThreadHelper::PythonGILScope_Priv> m_priv;
};

/// A stack object: while it lives the calling thread, which runs Python, lets other threads run Python. The helper must
/// be installed.
class BRINDLE_CORE_EXPORT PythonThreadScope {
public:
    PythonThreadScope();
    PythonThreadScope(const PythonThreadScope&) = delete;
    PythonThreadScope& operator=(const PythonThreadScope&) = delete;
    ~PythonThreadScope();

    void release(); ///< Goes on with Python ahead of the end of the scope.

private:
    std::unique_ptr<PythonThreadHelper::PythonThreadScope_Priv> m_priv;
};

} // namespace OMC
