#pragma once

#include "core/bridges/javascriptvalue.h"
#include "qtscript/qscriptengine.h"

#include <QVariant>

/// Values on their way between the object model and scripts.
namespace brindle::javascript {

/// The script's form of a value: maps and lists as objects and arrays, objects of the object model as themselves,
/// functions of Python as functions.
QScriptValue toScript(QScriptEngine& engine, const QVariant& value);
/// The arguments of a call: the items of a list, the values of a JavascriptObject, or the value itself.
QScriptValueList argumentsFrom(QScriptEngine& engine, const QVariant& value);

/// A result: an object as a JavascriptObject, whose global object is `self`, anything else as a plain value.
QVariant resultFrom(const QScriptValue& value, const OMC::JavascriptValue& self);
/// What the object model gets from a script: arrays and objects with all that they hold as lists and maps, objects of
/// the object model as themselves, functions as JavascriptObjects. Throws for what lies too deep, or in itself.
QVariant plainFrom(const QScriptValue& value);
/// The content of an opaque value of C++; invalid for anything else.
QVariant variantIn(const QScriptValue& value);

} // namespace brindle::javascript
