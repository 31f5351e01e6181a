#pragma once

#include "core/host/at_fnc3dtimedvalue.h"
#include "core/host/tu_easetimedvalue.h"
#include "core/host/tu_exprtimedvalue.h"
#include "core/host/tu_seqtimedvalue.h"
#include "core/host/tu_texttimedvalues.h"
#include "core/host/tu_timedvalue.h"
#include "core/host/tu_velobasedtimedvalue.h"

/// Called by TUTimedValue::accept with the column's own class; each kind falls back on the more general one.
class BRINDLE_HOST_EXPORT AT_TimedValueVisitor {
public:
    virtual ~AT_TimedValueVisitor() = default;
    virtual void visit(TUTimedValue&) {}
    virtual void visit(TUSoundTimedValue& column) { visit(static_cast<TUTimedValue&>(column)); }
    virtual void visit(AT_AnnotationTimedValue& column) { visit(static_cast<TUTimedValue&>(column)); }
    virtual void visit(AT_FileLibraryTimedValue& column) { visit(static_cast<TUTimedValue&>(column)); }
    virtual void visit(TUExprTimedValue& column) { visit(static_cast<TUTimedValue&>(column)); }
    virtual void visit(AT_FncTimedValue& column) { visit(static_cast<TUTimedValue&>(column)); }
    virtual void visit(TUFnc2DTimedValue& column) { visit(static_cast<AT_FncTimedValue&>(column)); }
    virtual void visit(TUBezierTimedValue& column) { visit(static_cast<TUFnc2DTimedValue&>(column)); }
    virtual void visit(TUEaseTimedValue& column) { visit(static_cast<TUFnc2DTimedValue&>(column)); }
    virtual void visit(TUVeloBasedTimedValue& column) { visit(static_cast<TUFnc2DTimedValue&>(column)); }
    virtual void visit(TUSeqTimedValue& column) { visit(static_cast<TUTimedValue&>(column)); }
    virtual void visit(TUElementTimedValue& column) { visit(static_cast<TUSeqTimedValue&>(column)); }
    virtual void visit(TUTimingTimedValue& column) { visit(static_cast<TUSeqTimedValue&>(column)); }
    virtual void visit(AT_Fnc3dTimedValue& column) { visit(static_cast<AT_FncTimedValue&>(column)); }
    virtual void visit(AT_Path3dTimedValue& column) { visit(static_cast<AT_Fnc3dTimedValue&>(column)); }
    virtual void visit(AT_QuaternionPathTimedValue& column) { visit(static_cast<AT_Path3dTimedValue&>(column)); }
};
