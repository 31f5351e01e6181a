#pragma once

#include "core/host/at_timedvaluevisitor.h"

/// A function of time of no engine, with a key at every frame and no control points of a known kind.
template <typename Base>
class StandInFunction : public Base {
public:
    explicit StandInFunction(SC_SceneCommon* scene = nullptr) : scene(scene) {}

    TUTimedValue::timedValueType type() const override { return TUTimedValue::kVeloBased; }
    QString getName() const override { return QStringLiteral("Stand-in"); }
    QString getDisplayName() const override { return getName(); }
    bool isAnonymous() const override { return false; }
    SC_SceneCommon* sceneCommon() const override { return scene; }
    void accept(AT_TimedValueVisitor& visitor) override { visitor.visit(static_cast<Base&>(*this)); }
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
    int pointCount() const override { return 0; }
    bool isKey(double) const override { return true; }
    std::vector<int> keyframes() const override { return {}; }
    CO_Command* createKeyframes(const std::vector<double>& frames, std::vector<double>& refused) override
    {
        CO_Command* command = nullptr;
        make(&command);
        if (!command)
            refused = frames;
        return command;
    }
    void removeKeyframes(double, double, CO_Command** command) override { make(command); }
    bool addControlPoint(double) override { return false; }

    enum Commands { None, Failing, Working };
    Commands commands = None;
    SC_SceneCommon* scene;

private:
    class Command : public CO_Command {
    public:
        explicit Command(Status status) : m_status(status) {}
        Status execute() override { return m_status; }
        Status unexecute() override { return kOk; }

    private:
        Status m_status;
    };

    void make(CO_Command** command) const
    {
        if (commands != None)
            *command = new Command(commands == Failing ? CO_Command::kFail : CO_Command::kOk);
    }
};

using StandInCurve = StandInFunction<AT_FncTimedValue>;

/// A path in space without control points and without a velocity.
class StandInPath : public StandInFunction<AT_Path3dTimedValue> {
public:
    using StandInFunction::StandInFunction;

    TUVeloBasedTimedValue* velocity() const override { return nullptr; }
    bool getValue(double, double&, double&, double&) const override { return false; }
    int pathSize() const override { return 0; }
    CatmullCtrlPt path(int) const override { return {}; }
    double computeControlPointTime(int) const override { return 0; }
    bool keyAt(double, CatmullCtrlPt&) const override { return false; }
    bool keyBefore(double, CatmullCtrlPt&) const override { return false; }
    bool keyAfter(double, CatmullCtrlPt&) const override { return false; }
};
