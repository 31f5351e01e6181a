#pragma once

#include "core/columns/beziercolumn.h"
#include "core/columns/beziercontrolpoint.h"
#include "core/columns/drawingtimingcolumn.h"
#include "core/columns/easecolumn.h"
#include "core/columns/easecontrolpoint.h"
#include "core/columns/elementcolumn.h"
#include "core/columns/expressioncolumn.h"
#include "core/columns/path3dcontrolpoint.h"
#include "core/columns/quaternioncolumn.h"
#include "core/columns/velobasedcolumn.h"
#include "core/columns/velobasedcontrolpoint.h"
#include "core/host/at_timedvaluevisitor.h"

namespace OMC {

/// A class of columns of the engine, the class of its wrappers, and that of its control points.
///
/// `Points::at(column, index)` and `Points::at(column, frame)` make a wrapper of a point, or give null where there is
/// none.
template <typename TimedValueT, typename WrapperT, typename PointsT>
struct ColumnClass {
    using TimedValue = TimedValueT;
    using Wrapper = WrapperT;
    using Points = PointsT;
};

struct NoControlPoints {
    static ControlPoint* at(const TUTimedValue&, quint64) { return nullptr; }
    static ControlPoint* at(const TUTimedValue&, double) { return nullptr; }
};

/// A visitor with a `visit` for each class of a list, which calls `Base::found<ColumnClass>(column)`.
template <typename Base, typename... Classes>
class VisitEach : public Base {
public:
    using Base::Base;
};

template <typename Base, typename Class, typename... Rest>
class VisitEach<Base, Class, Rest...> : public VisitEach<Base, Rest...> {
public:
    using VisitEach<Base, Rest...>::VisitEach;
    using VisitEach<Base, Rest...>::visit;
    void visit(typename Class::TimedValue& column) override { this->template found<Class>(column); }
};

/// All classes with a wrapper of their own; a column of another class gets that of the more general one.
template <typename Base>
using VisitColumnClasses = VisitEach<Base,                                                                       //
                                     ColumnClass<TUTimedValue, Column, NoControlPoints>,                         //
                                     ColumnClass<TUExprTimedValue, ExpressionColumn, NoControlPoints>,           //
                                     ColumnClass<TUElementTimedValue, ElementColumn, NoControlPoints>,           //
                                     ColumnClass<TUTimingTimedValue, DrawingTimingColumn, NoControlPoints>,      //
                                     ColumnClass<AT_FncTimedValue, KeyframeableColumn, NoControlPoints>,         //
                                     ColumnClass<TUBezierTimedValue, BezierColumn, BezierControlPoint>,          //
                                     ColumnClass<TUEaseTimedValue, EaseColumn, EaseControlPoint>,                //
                                     ColumnClass<TUVeloBasedTimedValue, VeloBasedColumn, VeloBasedControlPoint>, //
                                     ColumnClass<AT_Fnc3dTimedValue, Path3DColumn, NoControlPoints>,             //
                                     ColumnClass<AT_Path3dTimedValue, Path3DColumn, Path3DControlPoint>,         //
                                     ColumnClass<AT_QuaternionPathTimedValue, QuaternionColumn, Path3DControlPoint>>;

} // namespace OMC
