#pragma once

#include "core/frame/export.h"
#include "core/host/tu_timedvalue.h"

namespace OMC {

/// A kind of column as scripts see it.
struct ColumnKind {
    TUTimedValue::timedValueType type;
    const char* text;
    bool drivesAttributes; ///< It can have links; the others have none to show.
};

inline constexpr ColumnKind columnKinds[] = {
    {TUTimedValue::kDrawing, "DRAWING", true},
    {TUTimedValue::kSound, "SOUND", false},
    {TUTimedValue::k3dPath, "3D_PATH", true},
    {TUTimedValue::kBezier, "BEZIER", true},
    {TUTimedValue::kEase, "EASE", true},
    {TUTimedValue::kExpression, "EXPR", false},
    {TUTimedValue::kTiming, "TIMING", false},
    {TUTimedValue::kVeloBased, "VELOBASED", true},
    {TUTimedValue::kQuaternionPath, "QUATERNION_PATH", true},
    {TUTimedValue::kAnnotation, "ANNOTATION", false},
    {TUTimedValue::kFileLibrary, "FILE_LIBRARY", false},
};

/// The row of a kind, or null for a number that the table doesn't have.
constexpr const ColumnKind* columnKind(TUTimedValue::timedValueType type)
{
    for (const ColumnKind& kind : columnKinds) {
        if (kind.type == type)
            return &kind;
    }
    return nullptr;
}

} // namespace OMC
