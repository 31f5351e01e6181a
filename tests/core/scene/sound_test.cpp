#include "core/scene/sound.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

#include <QMetaObject>

namespace {

TEST(SoundTest, ItHasATextAndNothingElse)
{
    const OMC::Sound sound;
    EXPECT_EQ(sound.__str__(), "Sound()");
    EXPECT_EQ(sound.metaObject()->propertyCount(), OMC::BaseObject::staticMetaObject.propertyCount());
    EXPECT_EQ(failureOf([&] { sound.copy(); }), "!! A proper copy constructor is needed. !!\n");
}

} // namespace
