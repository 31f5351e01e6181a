#pragma once

#include "core/frame/baseobject.h"

/// An object that counts itself: how many were copied, and how many are alive.
class CountedObject : public OMC::BaseObject {
public:
    explicit CountedObject(int value = 0) : value(value) { ++alive; }
    CountedObject(const CountedObject& other) : BaseObject(other), value(other.value)
    {
        ++alive;
        ++copies;
    }
    ~CountedObject() override { --alive; }

    OMC::BaseObject* copy() const override { return new CountedObject(*this); }

    int value;
    static inline int alive = 0;
    static inline int copies = 0;
};
