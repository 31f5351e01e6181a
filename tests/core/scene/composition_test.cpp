#include "core/scene/composition.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

const char* const noCopy = "!! A proper copy constructor is needed. !!\n";

TEST(CompositionTest, WhatAnObjectWouldLeadToIsRefused)
{
    OMC::Composition composition;
    const OMC::AttributeLayer attribute;
    const OMC::NodeLayer node;
    const OMC::SoundLayer sound;
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[&] { composition.getBase(); }, "Invalid Composition Object"},
        {[&] { composition.getLayers(); }, "Invalid Composition Object"},
        {[&] { attribute.getAttribute(); }, "Invalid AttributeLayer Object"},
        {[&] { node.getNode(); }, "Invalid CompositionLayer Object"},
        {[&] { sound.getSound(); }, "Invalid SoundLayer Object"},
    };
    for (const auto& [call, sentence] : rows)
        EXPECT_EQ(failureOf(call), sentence);
    EXPECT_FALSE(composition.render());
}

TEST(CompositionTest, AllOfTheFamilyHaveOneTextAndNoCopy)
{
    const OMC::Composition composition;
    const OMC::CompositionLayer layer;
    const OMC::AttributeLayer attribute;
    const OMC::NodeLayer node;
    const OMC::SoundLayer sound;
    const OMC::DrawingCompLayer drawing;
    const OMC::GroupLayer group;
    const std::vector<const OMC::BaseObject*> family = {&composition, &layer,   &attribute, &node,
                                                        &sound,       &drawing, &group};
    for (const OMC::BaseObject* object : family) {
        EXPECT_EQ(object->__str__(), "TODO") << object->metaObject()->className();
        EXPECT_EQ(failureOf([&] { object->copy(); }), noCopy) << object->metaObject()->className();
    }
}

TEST(CompositionTest, EveryLayerIsACompositionLayer)
{
    for (const QMetaObject* kind :
         {&OMC::AttributeLayer::staticMetaObject, &OMC::NodeLayer::staticMetaObject, &OMC::SoundLayer::staticMetaObject,
          &OMC::DrawingCompLayer::staticMetaObject, &OMC::GroupLayer::staticMetaObject})
        EXPECT_EQ(kind->superClass(), &OMC::CompositionLayer::staticMetaObject) << kind->className();
    EXPECT_EQ(OMC::Composition::staticMetaObject.superClass(), &OMC::BaseObject::staticMetaObject);
    EXPECT_EQ(OMC::CompositionLayer::staticMetaObject.superClass(), &OMC::BaseObject::staticMetaObject);
}

} // namespace
