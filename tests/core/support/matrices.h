#pragma once

#include "core/geometry/matrix.h"

#include <QList>
#include <QVariant>

#include <initializer_list>

/// Simple matrices to build with and to compare with.
inline Math::Matrix4x4 scaled(double factor)
{
    Math::Matrix4x4 matrix;
    matrix.scale(factor, factor, factor);
    return matrix;
}

inline Math::Matrix4x4 moved(double x, double y, double z)
{
    Math::Matrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

inline Math::Matrix4x4 cells(std::initializer_list<double> values)
{
    return Math::Matrix4x4(std::data(values));
}

inline QList<double> cellsOf(const OMC::Matrix& matrix)
{
    const auto& cells = matrix.getMatrix().cells();
    return QList<double>(cells.begin(), cells.end());
}

/// Values as a script's list; the numbers from 1 to a count.
inline QVariant list(std::initializer_list<QVariant> values)
{
    return QList<QVariant>(values);
}

inline QVariant numbers(int count)
{
    QList<QVariant> list;
    for (int number = 1; number <= count; ++number)
        list.append(number);
    return list;
}
