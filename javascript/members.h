#pragma once

#include <QVariant>

struct QMetaObject;

namespace OMC {
class BaseObject;
}

namespace brindle::javascript {

/// A public member of a value class, which is no Qt property, as a property in scripts.
struct Member {
    const char* name;
    QVariant (*read)(OMC::BaseObject& object);
    void (*write)(OMC::BaseObject& object, const QVariant& value);
};

/// Those of a class, up to one without a name; null for a class without such members.
const Member* membersOf(const QMetaObject& metaObject);

} // namespace brindle::javascript
