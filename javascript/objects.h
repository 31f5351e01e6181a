#pragma once

#include "core/frame/obj.h"
#include "qtscript/qscriptengine.h"

namespace brindle::javascript {

/// An object of the object model as itself in a script: a copy of its own, with the properties and invokable operations
/// of its class, `toString`, and where it is a list, `get`, `list`, `length` and the loop over its items.
/// An operation that fails throws the object's sentence in the script. Null gives null.
QScriptValue shownObject(QScriptEngine& engine, const OMC::BaseObject* object);

/// What an opaque value of a script is for the object model: an object that is shown there as that object.
QVariant plainVariant(const QVariant& opaque);

} // namespace brindle::javascript
