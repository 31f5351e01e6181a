#pragma once

#include "core/bridges/javascriptobject.h"
#include "qtscript/qscriptvalue.h"

/// The part of JavascriptObject that needs to know what a QScriptValue is. Who includes this links to BrindleQtScript.
namespace OMC {

/// An invalid value is held as none.
inline JavascriptValue heldValue(const QScriptValue& value)
{
    return value.isValid() ? std::make_shared<const QScriptValue>(value) : nullptr;
}

inline JavascriptObject::JavascriptObject(const QScriptValue& value, const QScriptValue& self)
    : JavascriptObject(heldValue(value), heldValue(self))
{}

} // namespace OMC
