#include "engine/graph/names.h"

#include "core/host/mo_node.h"

#include <gtest/gtest.h>

TEST(NodeNameTest, AValidNameIsMadeFromAnyText)
{
    const std::pair<QString, QString> names[] = {
        {"Arm", "Arm"},
        {"  Left arm\t", "Left arm"},
        {"a/b", "a_b"},
        {"/", "_"},
        {"", "_"},
        {QString(), "_"},
        {"   ", "_"},
        {"a\nb", "a_b"},
        {QString(QChar(0)), "_"},
        {QString("a") + QChar(0x9f), "a_"},
        {QString::fromUtf8("日本 ü"), QString::fromUtf8("日本 ü")},
        {QString::fromUcs4(U"\U0001F600"), QString::fromUcs4(U"\U0001F600")},
        {QString(QChar(0xd800)), "_"},
        {QString(QChar(0xdc00)) + "a", "_a"},
        {QString(QChar(0xd800)) + QChar(0xd83d) + QChar(0xde00), QString("_") + QChar(0xd83d) + QChar(0xde00)},
    };
    for (const auto& [name, valid] : names) {
        EXPECT_EQ(TUModuleNameValidator::getValidName(name), valid);
        EXPECT_TRUE(brindle::engine::isValidNodeName(valid));
        EXPECT_EQ(brindle::engine::isValidNodeName(name), name == valid);
    }
}
