#include "core/frame/obj.h"

#include <cstdio>
#include <utility>

namespace OMC {

Obj::Obj(BaseObject* object)
{
    take(object);
}

Obj::Obj(const Obj& other) : QObject()
{
    copyFrom(other);
}

Obj::Obj(Obj&& other) noexcept
{
    moveFrom(other);
}

Obj::~Obj()
{
    if (!m_owned)
        return;
    if (m_owned->getOwnership() == OwnedByHandle)
        delete m_owned;
    else
        std::printf("Error -- Object ownership should have been previously resolved.");
}

Obj& Obj::operator=(const Obj& other)
{
    m_owned = nullptr;
    copyFrom(other);
    return *this;
}

Obj& Obj::operator=(Obj&& other) noexcept
{
    m_owned = nullptr;
    moveFrom(other);
    return *this;
}

void Obj::set(BaseObject* object)
{
    m_owned = nullptr;
    take(object);
}

BaseObject* Obj::releaseToCPP()
{
    return release(OwnedByNative);
}

BaseObject* Obj::releaseToPython()
{
    return release(OwnedByPython);
}

void Obj::take(BaseObject* object)
{
    if (!object)
        return;
    switch (object->getOwnership()) {
    case Unowned:
        m_owned = object;
        break;
    case OwnedByHandle:
        m_owned = object->copy();
        break;
    case OwnedByNative:
    case OwnedByPython:
        m_borrowed = object;
        return;
    }
    m_owned->setOwnership(OwnedByHandle);
}

void Obj::copyFrom(const Obj& other)
{
    if (other.m_borrowed) {
        m_borrowed = other.m_borrowed;
    } else if (other.m_owned) {
        m_owned = other.m_owned->copy();
        m_owned->setOwnership(OwnedByHandle);
    }
}

void Obj::moveFrom(Obj& other) noexcept
{
    if (other.m_borrowed)
        m_borrowed = other.m_borrowed;
    else
        m_owned = std::exchange(other.m_owned, nullptr);
}

BaseObject* Obj::release(OwnershipType_e owner)
{
    if (m_borrowed)
        return nullptr;
    m_owned->setOwnership(owner);
    return std::exchange(m_owned, nullptr);
}

QVariant toVariant(Obj&& handle)
{
    QVariant value(QMetaType::fromType<Obj>());
    *static_cast<Obj*>(value.data()) = std::move(handle);
    return value;
}

QVariant toVariant(BaseObject* object)
{
    QVariant value(QMetaType::fromType<Obj>());
    static_cast<Obj*>(value.data())->set(object);
    return value;
}

} // namespace OMC
