#pragma once

#include "core/columns/path3dcolumnvalue.h"

/// Refuse a number beyond -1 and 1, and one that is none, by the sentence of each parameter of a path's control point.
namespace OMC::path3dparameters {

inline void require(double number, const QString& sentence)
{
    if (!(number >= -1 && number <= 1))
        throw Exception(sentence);
}

inline void requireTension(double tension)
{
    require(tension, Path3DColumnValue::tr("Tension must be between -1.0 and 1.0."));
}

inline void requireContinuity(double continuity)
{
    require(continuity, Path3DColumnValue::tr("Continuity must be between -1.0 and 1.0."));
}

inline void requireBias(double bias)
{
    require(bias, Path3DColumnValue::tr("Bias must be between -1.0 and 1.0."));
}

} // namespace OMC::path3dparameters
