#include "core/frame/found.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

namespace {

using namespace OMC;

TEST(FoundTest, WhatIsThereComesBack)
{
    int number = 3;
    EXPECT_EQ(&found(&number), &number);
    EXPECT_EQ(&found(&number, QStringLiteral("None.")), &number);
    BaseObject object;
    QObject* base = &object;
    EXPECT_EQ(&foundAs<BaseObject>(base), &object);
}

TEST(FoundTest, WhatIsMissingFailsWithTheSentence)
{
    int* const none = nullptr;
    QObject other;
    EXPECT_EQ(failureOf([&] { found(none); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([&] { found(none, QStringLiteral("None.")); }), "None.");
    EXPECT_EQ(failureOf([&] { found(none, unexpected::ErrorOccurred); }), "An unexpected error occurred.");
    EXPECT_EQ(failureOf([&] { found(none, [] { return QStringLiteral("Made now."); }); }), "Made now.");
    EXPECT_EQ(failureOf([&] { found(none, &BaseObject::throwUnexpected); }), "An unexpected error has occurred.");
    EXPECT_EQ(failureOf([&] { foundAs<BaseObject>(&other); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([&] { foundAs<BaseObject>(&other, unexpected::Error); }), "Unexpected error");
}

TEST(FoundTest, ASentenceThatIsNotNeededIsNotMade)
{
    int number = 3;
    found(&number, []() -> QString { throw Exception(std::string("made")); });
}

} // namespace
