#include "core/frame/baseobject.h"

#include "core/frame/obj.h"
#include "tests/core/support/countedobject.h"
#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

#include <QList>
#include <QMetaProperty>
#include <QVariant>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace {

/// An object with a property of each kind.
class Sample : public OMC::BaseObject {
    Q_OBJECT
    Q_PROPERTY(int number READ getNumber WRITE setNumber)
    Q_PROPERTY(QString text READ getText)
    Q_PROPERTY(OMC::Obj child READ getChild)
    Q_PROPERTY(QVariant nothing READ getNothing)
    Q_PROPERTY(int secret WRITE setSecret)
    Q_PROPERTY(int guarded READ getGuarded WRITE setGuarded)

public:
    OMC::BaseObject* copy() const override { return new Sample(*this); }

    int getNumber() const { return number; }
    void setNumber(int value) { number = value; }
    QString getText() const { return QStringLiteral("text"); }
    OMC::Obj getChild() const { return OMC::Obj(new CountedObject(6)); }
    QVariant getNothing() const { return {}; }
    void setSecret(int value) { secret = value; }
    int getGuarded() const { throw OMC::Exception(QStringLiteral("Unreadable today.")); }
    void setGuarded(int) { throw OMC::Exception(QStringLiteral("Unwritable today.")); }

    int number = 1;
    int secret = 0;
};

class DerivedSample : public Sample {
    Q_OBJECT
    Q_PROPERTY(int extra READ getExtra)

public:
    int getExtra() const { return 8; }
};

/// A value class of the test, as the library's own are.
class TestValue : public OMC::BaseObject {
public:
    OMC::BaseObject* copy() const override { return new TestValue(*this); }
    int content = 3;
};

/// The same, but nobody registers it.
class UnknownValue : public OMC::BaseObject {};

using Names = std::vector<std::string>;

TEST(BaseObjectTest, ACopyIsAnObjectOfItsOwnThatNobodyOwns)
{
    OMC::BaseObject original;
    original.setObjectName(QStringLiteral("named"));
    original.setOwnership(OMC::OwnedByPython);
    OMC::BaseObject copy(original);
    EXPECT_EQ(copy.getOwnership(), OMC::Unowned);
    EXPECT_EQ(copy.objectName(), QString());
    EXPECT_EQ(original.getOwnership(), OMC::OwnedByPython);
    copy.setOwnership(OMC::OwnedByNative);
    original = copy;
    EXPECT_EQ(original.getOwnership(), OMC::OwnedByPython);
    EXPECT_EQ(original.parent(), nullptr);
}

TEST(BaseObjectTest, OwnershipHasItsNumbers)
{
    EXPECT_EQ(static_cast<int>(OMC::Unowned), 0);
    EXPECT_EQ(static_cast<int>(OMC::OwnedByHandle), 1);
    EXPECT_EQ(static_cast<int>(OMC::OwnedByNative), 2);
    EXPECT_EQ(static_cast<int>(OMC::OwnedByPython), 3);
}

TEST(BaseObjectTest, TheDefaultsOfAnObject)
{
    const OMC::BaseObject object;
    EXPECT_FALSE(object.__bool__());
    EXPECT_EQ(object.__str__(), "Base Object");
    EXPECT_EQ(failureOf([&] { object.copy(); }), "!! A proper copy constructor is needed. !!\n");
}

TEST(BaseObjectTest, TheSharedFailuresHaveTheirSentences)
{
    EXPECT_EQ(failureOf([] { OMC::BaseObject::throwInvalid(); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([] { OMC::BaseObject::throwUnexpected(); }), "An unexpected error has occurred.");
    EXPECT_EQ(failureOf([] { OMC::BaseObject::throwInvalidArgument(0); }), "Invalid argument at index 0.");
    EXPECT_EQ(failureOf([] { OMC::BaseObject::throwInvalidArgument(4294967295U); }),
              "Invalid argument at index 4294967295.");
}

TEST(BaseObjectTest, LiveObjectsCountsEveryObjectOfTheModel)
{
    const qint64 before = OMC::BaseObject::liveObjects();
    {
        const OMC::Obj handle(new CountedObject);
        const OMC::Obj copy(handle);
        EXPECT_EQ(OMC::BaseObject::liveObjects(), before + 2);
    }
    EXPECT_EQ(OMC::BaseObject::liveObjects(), before);
}

TEST(BaseObjectTest, ReadingAPropertyGivesItsValue)
{
    Sample sample;
    bool found = false;
    EXPECT_EQ(sample.getAttr("number", found), QVariant(1));
    EXPECT_TRUE(found);
    EXPECT_EQ(sample.getAttr("text", found), QVariant(QStringLiteral("text")));
    EXPECT_TRUE(found);
}

TEST(BaseObjectTest, ReadingAnObjectPropertyMovesItAllTheWayOut)
{
    Sample sample;
    bool found = false;
    CountedObject::copies = 0;
    {
        const QVariant value = sample.getAttr("child", found);
        EXPECT_TRUE(found);
        const auto* handle = static_cast<const OMC::Obj*>(value.constData());
        EXPECT_EQ(OMC::objectIn<CountedObject>(*handle)->value, 6);
        EXPECT_EQ(handle->get()->getOwnership(), OMC::OwnedByHandle);
        EXPECT_EQ(CountedObject::copies, 0);
    }
    EXPECT_EQ(CountedObject::alive, 0);
}

TEST(BaseObjectTest, ReadingAnUnknownNameFindsNothingAndDoesNotFail)
{
    Sample sample;
    for (const char* name : {"numbers", "", "getNumber", "Number"}) {
        bool found = true;
        EXPECT_FALSE(sample.getAttr(name, found).isValid()) << name;
        EXPECT_FALSE(found) << name;
    }
}

TEST(BaseObjectTest, AWriteOnlyPropertyReadsAsAnUnknownOne)
{
    Sample sample;
    bool found = true;
    EXPECT_FALSE(sample.getAttr("secret", found).isValid());
    EXPECT_FALSE(found);
    found = true;
    sample.setAttr("secret", 5, found);
    EXPECT_FALSE(found);
    EXPECT_EQ(sample.secret, 0);
}

TEST(BaseObjectTest, ReadingAPropertyWithoutAValueFails)
{
    Sample sample;
    bool found = true;
    EXPECT_EQ(failureOf([&] { sample.getAttr("nothing", found); }), "Failed to read the property.");
    EXPECT_FALSE(found);
}

TEST(BaseObjectTest, AFailingGetterOrSetterPassesThrough)
{
    Sample sample;
    bool found = true;
    EXPECT_EQ(failureOf([&] { sample.getAttr("guarded", found); }), "Unreadable today.");
    EXPECT_FALSE(found);
    found = true;
    EXPECT_EQ(failureOf([&] { sample.setAttr("guarded", 1, found); }), "Unwritable today.");
    EXPECT_FALSE(found);
}

TEST(BaseObjectTest, WritingAPropertyConvertsTheValue)
{
    const std::tuple<const char*, QVariant, int> rows[] = {
        {"an integer", QVariant(5), 5},
        {"a double", QVariant(2.0), 2},
        {"a boolean", QVariant(true), 1},
        {"text that reads as a number", QVariant(QStringLiteral("7")), 7},
    };
    for (const auto& [name, value, expected] : rows) {
        Sample sample;
        bool found = false;
        sample.setAttr("number", value, found);
        EXPECT_TRUE(found) << name;
        EXPECT_EQ(sample.number, expected) << name;
    }
}

TEST(BaseObjectTest, WritingWhatCannotBeConvertedFailsAndNamesTheType)
{
    const std::tuple<QVariant, const char*> rows[] = {
        {QVariant(QStringLiteral("seven")), "Failed to write the property (Argument Type QString)"},
        {QVariant(QVariantList{1, 2}), "Failed to write the property (Argument Type QVariantList)"},
        {QVariant(QVariantMap()), "Failed to write the property (Argument Type QVariantMap)"},
    };
    for (const auto& [value, text] : rows) {
        Sample sample;
        bool found = true;
        EXPECT_EQ(failureOf([&, &argument = value] { sample.setAttr("number", argument, found); }), text);
        EXPECT_FALSE(found);
        EXPECT_EQ(sample.number, 1);
    }
}

TEST(BaseObjectTest, WritingAnUnknownNameFindsNothingAndDoesNotFail)
{
    Sample sample;
    bool found = true;
    sample.setAttr("numbers", 5, found);
    EXPECT_FALSE(found);
    EXPECT_EQ(sample.number, 1);
}

TEST(BaseObjectTest, WritingAReadOnlyPropertyFails)
{
    Sample sample;
    bool found = true;
    EXPECT_EQ(failureOf([&] { sample.setAttr("text", QStringLiteral("x"), found); }), "Property is read-only.");
    EXPECT_FALSE(found);
}

TEST(BaseObjectTest, APropertyThatWasFoundBeforeIsReadAndWrittenTheSameWay)
{
    Sample sample;
    const auto property = [](const char* name) {
        const QMetaObject& meta = Sample::staticMetaObject;
        return meta.property(meta.indexOfProperty(name));
    };
    sample.writeProperty(property("number"), QStringLiteral("7"));
    EXPECT_EQ(sample.readProperty(property("number")), QVariant(7));
    EXPECT_EQ(failureOf([&] { sample.readProperty(property("secret")); }), "Property is write-only.");
    EXPECT_EQ(failureOf([&] { sample.readProperty(property("nothing")); }), "Failed to read the property.");
    EXPECT_EQ(failureOf([&] { sample.writeProperty(property("text"), 1); }), "Property is read-only.");
    EXPECT_EQ(failureOf([&] { sample.writeProperty(property("number"), QStringLiteral("seven")); }),
              "Failed to write the property (Argument Type QString)");
}

TEST(BaseObjectTest, AListingHasTheNamesFromTheBaseClassDown)
{
    bool extendNative = false;
    bool filter = false;
    EXPECT_EQ(OMC::BaseObject().getDir(extendNative, filter), Names{"objectName"});
    EXPECT_TRUE(extendNative);
    EXPECT_TRUE(filter);
    EXPECT_EQ(DerivedSample().getDir(extendNative, filter),
              (Names{"objectName", "number", "text", "child", "nothing", "secret", "guarded", "extra"}));
}

TEST(BaseObjectTest, AccessorNamesAreFilteredByTheirBeginning)
{
    const std::tuple<std::string, bool> rows[] = {
        {"get_", false},        {"set_", false},     {"get_value", false}, {"set_value", false},
        {"get_inverse", false}, {"value", true},     {"forget_it", true},  {"reset_all", true},
        {"get", true},          {"Get_value", true}, {"", true},           {"_get_", true},
    };
    const OMC::BaseObject object;
    for (auto [name, shown] : rows)
        EXPECT_EQ(object.filterDir(name), shown) << name;
}

TEST(BaseObjectTest, APointerInAVariantComesOutAsItWentIn)
{
    CountedObject object;
    QObject plain;
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(QVariant::fromValue<QObject*>(&object)), &object);
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(QVariant::fromValue<QObject*>(&plain)), &plain);
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(QVariant::fromValue<QObject*>(nullptr)), nullptr);
    EXPECT_EQ(OMC::objectFrom<CountedObject>(QVariant::fromValue<QObject*>(&object)), &object);
    EXPECT_EQ(OMC::objectFrom<CountedObject>(QVariant::fromValue<QObject*>(&plain)), nullptr);
}

TEST(BaseObjectTest, APointerOfADerivedClassComesOutToo)
{
    Sample sample;
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(QVariant::fromValue<Sample*>(&sample)), &sample);
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(QVariant::fromValue<Sample*>(nullptr)), nullptr);
}

TEST(BaseObjectTest, AHandleGivesTheObjectThatItBorrowsOrOwns)
{
    const std::unique_ptr<CountedObject> object(new CountedObject);
    object->setOwnership(OMC::OwnedByPython);
    const QVariant borrowing = QVariant::fromValue(OMC::Obj(object.get()));
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(borrowing), object.get());
    const QVariant owning = QVariant::fromValue(OMC::Obj(new CountedObject(2)));
    EXPECT_EQ(OMC::objectFrom<CountedObject>(owning)->value, 2);
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(QVariant::fromValue(OMC::Obj())), nullptr);
}

TEST(BaseObjectTest, AValueClassIsFoundInsideTheVariantOnceItIsRegistered)
{
    const int id = QMetaType::fromType<TestValue>().id();
    OMC::BaseObject::registerValueType(id);
    OMC::BaseObject::registerValueType(id);
    const QVariant value = QVariant::fromValue(TestValue());
    const auto* inside = OMC::objectFrom<TestValue>(value);
    EXPECT_EQ(inside, value.constData());
    EXPECT_EQ(inside->content, 3);
    EXPECT_EQ(OMC::BaseObject::QVariantToPointer(QVariant::fromValue(UnknownValue())), nullptr);
}

TEST(BaseObjectTest, WhatIsNoObjectGivesNull)
{
    const QVariant rows[] = {
        QVariant(),
        QVariant(5),
        QVariant(1.5),
        QVariant(QStringLiteral("Top")),
        QVariant(true),
        QVariant(QVariantList{1}),
        QVariant(QVariantMap()),
        QVariant::fromValue(nullptr),
    };
    for (const QVariant& value : rows)
        EXPECT_EQ(OMC::BaseObject::QVariantToPointer(value), nullptr) << value.typeId();
}

} // namespace

#include "baseobject_test.moc"
