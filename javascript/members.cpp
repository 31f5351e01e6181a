#include "javascript/members.h"

#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"
#include "core/geometry/rectangles.h"
#include "core/geometry/vectors.h"

namespace brindle::javascript {

namespace {

template <typename T, auto Field>
Member member(const char* name)
{
    using Value = std::decay_t<decltype(std::declval<T&>().*Field)>;
    return {name, [](OMC::BaseObject& object) { return QVariant(static_cast<T&>(object).*Field); },
            [](OMC::BaseObject& object, const QVariant& value) {
                if (!value.canConvert<Value>())
                    OMC::BaseObject::throwInvalidArgument(0);
                static_cast<T&>(object).*Field = value.value<Value>();
            }};
}

template <typename T>
const Member* pointMembers()
{
    static const Member members[] = {member<T, &T::x>("x"), member<T, &T::y>("y"), {}};
    return members;
}

template <typename T>
const Member* spaceMembers()
{
    static const Member members[] = {member<T, &T::x>("x"), member<T, &T::y>("y"), member<T, &T::z>("z"), {}};
    return members;
}

template <typename T>
const Member* sizeMembers()
{
    static const Member members[] = {member<T, &T::width>("width"), member<T, &T::height>("height"), {}};
    return members;
}

template <typename T>
const Member* rectangleMembers()
{
    static const Member members[] = {member<T, &T::x>("x"),
                                     member<T, &T::y>("y"),
                                     member<T, &T::width>("width"),
                                     member<T, &T::height>("height"),
                                     {}};
    return members;
}

} // namespace

const Member* membersOf(const QMetaObject& metaObject)
{
    using namespace OMC;
    if (metaObject.inherits(&Point2d::staticMetaObject))
        return pointMembers<Point2d>();
    if (metaObject.inherits(&Vector2d::staticMetaObject))
        return pointMembers<Vector2d>();
    if (metaObject.inherits(&Point3d::staticMetaObject))
        return spaceMembers<Point3d>();
    if (metaObject.inherits(&Vector3d::staticMetaObject))
        return spaceMembers<Vector3d>();
    return nullptr;
}

} // namespace brindle::javascript
