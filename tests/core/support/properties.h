#pragma once

#include <gtest/gtest.h>

#include <QMetaObject>
#include <QMetaProperty>

#include <vector>

/// A property as a class declares it.
struct PropertyRow {
    const char* name;
    const char* type;
    bool writable;
};

/// Checks the properties that a class has beyond those of its base, in their order.
inline void expectProperties(const QMetaObject& meta, const QMetaObject& base, const std::vector<PropertyRow>& rows)
{
    int index = base.propertyCount();
    EXPECT_EQ(meta.propertyCount(), index + static_cast<int>(rows.size()));
    for (const PropertyRow& row : rows) {
        SCOPED_TRACE(row.name);
        const QMetaProperty property = meta.property(index++);
        EXPECT_STREQ(property.name(), row.name);
        EXPECT_STREQ(property.typeName(), row.type);
        EXPECT_EQ(property.isWritable(), row.writable);
    }
}
