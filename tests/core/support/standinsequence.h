#pragma once

#include "core/host/at_timedvaluevisitor.h"
#include "core/host/tu_seqtimedvalue.h"

/// A drawing column of no engine: it shows one sequence at every frame, and makes no commands.
class StandInSequence : public TUElementTimedValue {
public:
    explicit StandInSequence(SC_SceneCommon* scene = nullptr) : scene(scene) {}

    timedValueType type() const override { return kDrawing; }
    QString getName() const override { return QStringLiteral("Stand-in"); }
    QString getDisplayName() const override { return getName(); }
    bool isAnonymous() const override { return false; }
    SC_SceneCommon* sceneCommon() const override { return scene; }
    void accept(AT_TimedValueVisitor& visitor) override { visitor.visit(static_cast<TUElementTimedValue&>(*this)); }
    void getValueForXsheet(double, int, QString*, bool&, bool&, bool&, bool&) const override {}
    int setValuesFromXsheet(double, int, const QString&, int) override { return 1; }
    unsigned int getNumLinks() const override { return 0; }
    AT_Attr* linkedAttr(unsigned int) const override { return nullptr; }
    std::vector<MO_Node*> linkedNodes() const override { return {}; }
    void scale(double, int, CO_Command**) override {}
    void endModif(double) override {}
    bool takesValues() const override { return true; }
    CO_Command* spliceCommand(double, bool) override { return nullptr; }
    std::unique_ptr<TUCellMemo> remember(double) override { return nullptr; }

    SC_ProjectCommon* projectCommon() const override { return project; }
    int nFrames() const override { return 3; }
    QString getTiming(double) const override { return {}; }
    std::unique_ptr<TUSequence> seqAt(double) const override { return std::make_unique<TUSequence>(); }
    void getDrawingTimings(QStringList&) const override {}
    void generateValues(double, bool, QStringList&) const override {}
    void createSetValueCmd(void*, double, const QStringList&, int, CO_AndCommand&) override {}
    void clear(double, int, bool, CO_Command**) override {}

    int elementId() const override { return 1; }
    int nextKeyExposure(double) const override { return 0; }
    int nextKeyExposure(double, const std::set<EM_MarkType>&) const override { return 0; }

    SC_SceneCommon* scene;
    SC_ProjectCommon* project = nullptr;
};
