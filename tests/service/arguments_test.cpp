#include "service/python/arguments.h"

#include <gtest/gtest.h>

using brindle::python::From;

// The methods' tables are read while they are compiled, and a default that isn't one of its type stops that.

TEST(ArgumentDefaults, ANumberHasItsFraction)
{
    static_assert(From<double>::fallback("0.5") == 0.5);
    static_assert(From<double>::fallback("-0.1") == -0.1);
    static_assert(From<double>::fallback("12.375") == 12.375);
    static_assert(From<double>::fallback("255") == 255.0);
    static_assert(From<int>::fallback("-1") == -1);
    static_assert(From<unsigned int>::fallback("4294967295") == 4294967295U);
    static_assert(From<bool>::fallback("True") && !From<bool>::fallback("False"));
}

TEST(ArgumentDefaults, WhatTheTypeCanNotReadIsNoDefault)
{
    for (const char* text : {"0.5", "x", "", "-", "1e3", "4294967296", "None", "1 "})
        EXPECT_FALSE(From<int>::isDefault(text)) << text;
    EXPECT_FALSE(From<unsigned int>::isDefault("-1"));
    for (const char* text : {"", ".", "-.", "1.2.3", "1e3", "nan", "None", "'1'", "0.1234567890123456"})
        EXPECT_FALSE(From<double>::isDefault(text)) << text;
    for (const char* text : {"true", "0", "None", ""})
        EXPECT_FALSE(From<bool>::isDefault(text)) << text;
    for (const char* text : {"x", "'", "'x", "0", ""})
        EXPECT_FALSE(From<QString>::isDefault(text)) << text;
    EXPECT_TRUE(From<QString>::isDefault("''") && From<QString>::isDefault("None"));
    EXPECT_FALSE(From<QVariant>::isDefault("0"));
    EXPECT_FALSE(From<OMC::Obj>::isDefault("''"));
}
