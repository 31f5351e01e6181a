#include "core/frame/obj.h"

#include "tests/core/support/countedobject.h"
#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

#include <QVariant>

#include <memory>
#include <utility>
#include <vector>

namespace {

using OMC::Obj;

class ObjTest : public testing::Test {
protected:
    ObjTest() { CountedObject::copies = 0; }
    ~ObjTest() override { EXPECT_EQ(CountedObject::alive, 0) << "an object was never destroyed"; }

    static CountedObject* objectWith(OMC::OwnershipType_e ownership)
    {
        auto* object = new CountedObject;
        object->setOwnership(ownership);
        return object;
    }
};

TEST_F(ObjTest, AHandleOfNothingIsEmptyAndDiesQuietly)
{
    testing::internal::CaptureStdout();
    {
        Obj handle(nullptr);
        EXPECT_EQ(handle.get(), nullptr);
        EXPECT_EQ(static_cast<OMC::BaseObject*>(handle), nullptr);
        EXPECT_FALSE(handle.hasRealOwner());
        handle.set(nullptr);
        EXPECT_EQ(handle.get(), nullptr);
        EXPECT_EQ(Obj(handle).get(), nullptr);
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(ObjTest, AFreshObjectIsTaken)
{
    for (const bool bySet : {false, true}) {
        auto* object = new CountedObject;
        EXPECT_EQ(object->getOwnership(), OMC::Unowned);
        Obj handle(bySet ? nullptr : object);
        if (bySet)
            handle.set(object);
        EXPECT_EQ(handle.get(), object);
        EXPECT_EQ(object->getOwnership(), OMC::OwnedByHandle);
        EXPECT_FALSE(handle.hasRealOwner());
        EXPECT_EQ(CountedObject::copies, 0);
    }
}

TEST_F(ObjTest, AnObjectOfAnotherHandleIsCloned)
{
    for (const bool bySet : {false, true}) {
        CountedObject::copies = 0;
        auto* object = new CountedObject(5);
        Obj first(object);
        {
            Obj second(bySet ? nullptr : object);
            if (bySet)
                second.set(object);
            EXPECT_NE(second.get(), object);
            EXPECT_EQ(OMC::objectIn<CountedObject>(second)->value, 5);
            EXPECT_EQ(second.get()->getOwnership(), OMC::OwnedByHandle);
            EXPECT_EQ(CountedObject::copies, 1);
            EXPECT_EQ(CountedObject::alive, 2);
        }
        EXPECT_EQ(CountedObject::alive, 1);
        EXPECT_EQ(first.get(), object);
        EXPECT_EQ(object->getOwnership(), OMC::OwnedByHandle);
    }
}

TEST_F(ObjTest, AnObjectWithARealOwnerIsBorrowed)
{
    for (const OMC::OwnershipType_e owner : {OMC::OwnedByNative, OMC::OwnedByPython}) {
        for (const bool bySet : {false, true}) {
            const std::unique_ptr<CountedObject> object(objectWith(owner));
            {
                Obj handle(bySet ? nullptr : object.get());
                if (bySet)
                    handle.set(object.get());
                EXPECT_EQ(handle.get(), object.get());
                EXPECT_TRUE(handle.hasRealOwner());
                EXPECT_EQ(object->getOwnership(), owner);
            }
            EXPECT_EQ(CountedObject::copies, 0);
            EXPECT_EQ(CountedObject::alive, 1);
        }
    }
}

TEST_F(ObjTest, TwoHandlesOfOneFreshPointerDestroyTwoObjectsAndNoneTwice)
{
    auto* object = new CountedObject;
    {
        Obj first(object);
        Obj second(object);
        EXPECT_EQ(first.get(), object);
        EXPECT_NE(second.get(), object);
        EXPECT_EQ(CountedObject::alive, 2);
    }
    EXPECT_EQ(CountedObject::alive, 0);
}

TEST_F(ObjTest, CopyingAHandleClonesWhatItOwns)
{
    const Obj source(new CountedObject(3));
    const Obj constructed(source);
    Obj assigned;
    assigned = source;
    EXPECT_EQ(CountedObject::copies, 2);
    for (const Obj* handle : std::vector<const Obj*>{&constructed, &assigned}) {
        ASSERT_NE(handle->get(), nullptr);
        EXPECT_NE(handle->get(), source.get());
        EXPECT_EQ(OMC::objectIn<CountedObject>(*handle)->value, 3);
        EXPECT_EQ(handle->get()->getOwnership(), OMC::OwnedByHandle);
        EXPECT_FALSE(handle->hasRealOwner());
    }
}

TEST_F(ObjTest, CopyingAHandleSharesWhatItBorrows)
{
    const std::unique_ptr<CountedObject> object(objectWith(OMC::OwnedByPython));
    const Obj source(object.get());
    const Obj constructed(source);
    Obj assigned;
    assigned = source;
    EXPECT_EQ(constructed.get(), object.get());
    EXPECT_EQ(assigned.get(), object.get());
    EXPECT_TRUE(constructed.hasRealOwner());
    EXPECT_TRUE(assigned.hasRealOwner());
    EXPECT_EQ(CountedObject::copies, 0);
}

TEST_F(ObjTest, MovingAHandleHandsTheObjectOnWithoutAClone)
{
    auto* object = new CountedObject;
    Obj source(object);
    Obj constructed(std::move(source));
    EXPECT_EQ(constructed.get(), object);
    Obj assigned;
    assigned = std::move(constructed);
    EXPECT_EQ(assigned.get(), object);
    EXPECT_EQ(object->getOwnership(), OMC::OwnedByHandle);
    EXPECT_EQ(CountedObject::copies, 0);

    const std::unique_ptr<CountedObject> owned(objectWith(OMC::OwnedByNative));
    Obj borrowing(owned.get());
    const Obj moved(std::move(borrowing));
    EXPECT_EQ(moved.get(), owned.get());
    EXPECT_TRUE(moved.hasRealOwner());
}

TEST_F(ObjTest, AListOfHandlesGrowsWithoutAClone)
{
    std::vector<Obj> handles;
    for (int i = 0; i < 100; ++i)
        handles.emplace_back(new CountedObject(i));
    EXPECT_EQ(CountedObject::copies, 0);
    EXPECT_EQ(CountedObject::alive, 100);
}

TEST_F(ObjTest, AssigningOverAnOwnedObjectAbandonsIt)
{
    const std::unique_ptr<CountedObject> abandonedByCopy(new CountedObject);
    const std::unique_ptr<CountedObject> abandonedByMove(new CountedObject);
    const std::unique_ptr<CountedObject> abandonedBySet(new CountedObject);
    const Obj source(new CountedObject(9));
    Obj copied(abandonedByCopy.get());
    Obj moved(abandonedByMove.get());
    Obj reset(abandonedBySet.get());
    copied = source;
    moved = Obj(new CountedObject(9));
    reset.set(nullptr);
    EXPECT_EQ(OMC::objectIn<CountedObject>(copied)->value, 9);
    EXPECT_EQ(OMC::objectIn<CountedObject>(moved)->value, 9);
    EXPECT_EQ(reset.get(), nullptr);
    EXPECT_EQ(abandonedByCopy->getOwnership(), OMC::OwnedByHandle);
    EXPECT_EQ(CountedObject::alive, 6);
}

TEST_F(ObjTest, ABorrowedObjectOutlivesAnAssignmentAndHidesTheNewOne)
{
    const std::unique_ptr<CountedObject> borrowed(objectWith(OMC::OwnedByNative));
    const Obj source(new CountedObject);
    Obj handle(borrowed.get());
    handle = source;
    EXPECT_EQ(handle.get(), borrowed.get());
    EXPECT_TRUE(handle.hasRealOwner());
    EXPECT_EQ(CountedObject::copies, 1);
    EXPECT_EQ(handle.releaseToPython(), nullptr);

    Obj other(borrowed.get());
    other = Obj();
    EXPECT_EQ(other.get(), borrowed.get());
    other.set(nullptr);
    EXPECT_EQ(other.get(), borrowed.get());
}

TEST_F(ObjTest, ReleasingHandsTheObjectOverAndLeavesTheHandleEmpty)
{
    auto* object = new CountedObject;
    Obj handle(object);
    EXPECT_EQ(handle.releaseToPython(), object);
    EXPECT_EQ(object->getOwnership(), OMC::OwnedByPython);
    EXPECT_EQ(handle.get(), nullptr);
    EXPECT_FALSE(handle.hasRealOwner());
    delete object;

    object = new CountedObject;
    handle = Obj(object);
    EXPECT_EQ(handle.releaseToCPP(), object);
    EXPECT_EQ(object->getOwnership(), OMC::OwnedByNative);
    EXPECT_EQ(handle.get(), nullptr);
    delete object;
}

TEST_F(ObjTest, WhatPythonOwnsIsOnlyBorrowedByLaterHandles)
{
    Obj first(new CountedObject);
    const std::unique_ptr<OMC::BaseObject> object(first.releaseToPython());
    {
        Obj second(object.get());
        EXPECT_TRUE(second.hasRealOwner());
        EXPECT_EQ(second.releaseToPython(), nullptr);
        EXPECT_EQ(second.releaseToCPP(), nullptr);
        EXPECT_EQ(second.get(), object.get());
        EXPECT_EQ(object->getOwnership(), OMC::OwnedByPython);
    }
    EXPECT_EQ(CountedObject::alive, 1);
}

TEST_F(ObjTest, DestroyingAHandleWhoseObjectHasAnotherOwnerPrintsALineAndKeepsTheObject)
{
    for (const OMC::OwnershipType_e owner : {OMC::Unowned, OMC::OwnedByNative, OMC::OwnedByPython}) {
        const std::unique_ptr<CountedObject> object(new CountedObject);
        testing::internal::CaptureStdout();
        {
            const Obj handle(object.get());
            object->setOwnership(owner);
        }
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "Error -- Object ownership should have been previously resolved.");
        EXPECT_EQ(CountedObject::alive, 1);
    }
}

TEST_F(ObjTest, AClassWithoutACopyFailsInTheMiddleOfAHandleCopy)
{
    const std::string text = "!! A proper copy constructor is needed. !!\n";
    const Obj source(new OMC::BaseObject);
    EXPECT_EQ(failureOf([&] { const Obj copy(source); }), text);
    EXPECT_EQ(failureOf([&] { const Obj second(source.get()); }), text);
    EXPECT_EQ(failureOf([&] {
                  Obj assigned;
                  assigned = source;
              }),
              text);
    EXPECT_EQ(failureOf([&] {
                  Obj handle;
                  handle.set(source.get());
              }),
              text);
    EXPECT_EQ(source.get()->getOwnership(), OMC::OwnedByHandle);
}

TEST_F(ObjTest, AHandleTravelsInAVariantByValue)
{
    const std::unique_ptr<CountedObject> owned(objectWith(OMC::OwnedByPython));
    {
        const QVariant carrying = QVariant::fromValue(Obj(new CountedObject(4)));
        ASSERT_EQ(carrying.metaType(), QMetaType::fromType<Obj>());
        const QVariant shared = carrying;
        const auto taken = carrying.value<Obj>();
        EXPECT_EQ(OMC::objectIn<CountedObject>(taken)->value, 4);
        EXPECT_NE(taken.get(), static_cast<const Obj*>(carrying.constData())->get());

        const QVariant borrowing = QVariant::fromValue(Obj(owned.get()));
        EXPECT_EQ(borrowing.value<Obj>().get(), owned.get());
    }
    EXPECT_EQ(CountedObject::alive, 1);
}

TEST_F(ObjTest, AHandleIsMovedIntoAVariantWithoutAClone)
{
    auto* object = new CountedObject;
    {
        const QVariant carrying = OMC::toVariant(Obj(object));
        ASSERT_EQ(carrying.metaType(), QMetaType::fromType<Obj>());
        EXPECT_EQ(OMC::BaseObject::QVariantToPointer(carrying), object);
        EXPECT_EQ(object->getOwnership(), OMC::OwnedByHandle);
        EXPECT_EQ(CountedObject::copies, 0);
    }
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(OMC::toVariant(Obj())), nullptr);
}

TEST_F(ObjTest, AVariantMadeOfAnObjectTakesItAsAHandleDoes)
{
    auto* object = new CountedObject;
    {
        const QVariant carrying = OMC::toVariant(object);
        ASSERT_EQ(carrying.metaType(), QMetaType::fromType<Obj>());
        EXPECT_EQ(OMC::BaseObject::QVariantToPointer(carrying), object);
        EXPECT_EQ(object->getOwnership(), OMC::OwnedByHandle);
        EXPECT_EQ(CountedObject::copies, 0);

        const QVariant second = OMC::toVariant(object);
        EXPECT_NE(OMC::BaseObject::QVariantToPointer(second), object);
        EXPECT_EQ(CountedObject::copies, 1);
    }
    const std::unique_ptr<CountedObject> owned(objectWith(OMC::OwnedByNative));
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(OMC::toVariant(owned.get())), owned.get());
    OMC::BaseObject* nothing = nullptr;
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(OMC::toVariant(nothing)), nullptr);
}

TEST_F(ObjTest, ObjectInGivesNullForAnotherClassAndForAnEmptyHandle)
{
    EXPECT_EQ(OMC::objectIn<CountedObject>(Obj()), nullptr);
    EXPECT_EQ(OMC::objectIn<CountedObject>(Obj(new OMC::BaseObject)), nullptr);
    EXPECT_NE(OMC::objectIn<OMC::BaseObject>(Obj(new CountedObject)), nullptr);
}

} // namespace
