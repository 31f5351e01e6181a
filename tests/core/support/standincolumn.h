#pragma once

#include "core/host/at_columnmarker.h"
#include "core/host/sc_scene.h"
#include "core/host/at_timedvaluevisitor.h"
#include "tests/core/support/standinnode.h"

#include <map>
#include <memory>
#include <vector>

// Columns of no engine: with markers, of other kinds, and ones that refuse.

class StandInMarker : public AT_ColumnMarker {
public:
    StandInMarker(const QString& type, int start, int length) : type(type), start(start), length(length) {}
    bool getValue(const QString& key, QVariant& value) const override
    {
        if (key != QLatin1String("type"))
            return false;
        value = type;
        return true;
    }
    int getStart() const override { return start; }
    int getLength() const override { return length; }

    QString type;
    int start;
    int length;
};

class StandInMarkers : public AT_ColumnMarkerManager {
public:
    void overlappingMarkers(int frame, std::vector<int>& ids) const override
    {
        asked.push_back(frame);
        for (std::size_t id = 0; id < markers.size(); ++id) {
            if (frame >= markers[id].start && frame < markers[id].start + markers[id].length)
                ids.push_back(static_cast<int>(id));
        }
    }
    AT_ColumnMarker* marker(unsigned int id) const override
    {
        return id < markers.size() ? const_cast<StandInMarker*>(&markers[id]) : nullptr;
    }

    std::vector<StandInMarker> markers;
    mutable std::vector<int> asked; ///< The frames that markers were sought for.
};

/// Cells with text, written undoably through the scene's command manager.
class StandInColumn : public TUTimedValue {
public:
    explicit StandInColumn(SC_SceneCommon* scene = nullptr) : scene(scene) {}

    timedValueType type() const override { return kind; }
    QString getName() const override { return QStringLiteral("Cells"); }
    QString getDisplayName() const override { return QStringLiteral("Shown Cells"); }
    bool isAnonymous() const override { return anonymous; }
    SC_SceneCommon* sceneCommon() const override { return scene; }
    void accept(AT_TimedValueVisitor& visitor) override { visitor.visit(static_cast<TUTimedValue&>(*this)); }
    void getValueForXsheet(double frame, int subColumn, QString* text, bool&, bool&, bool&, bool&) const override
    {
        subColumnsRead.push_back(subColumn);
        const auto cell = cells.find(frame);
        *text = cell == cells.end() ? QString() : cell->second;
    }
    int setValuesFromXsheet(double frame, int count, const QString& text, int subColumn) override;
    unsigned int getNumLinks() const override { return static_cast<unsigned int>(links.size()); }
    AT_Attr* linkedAttr(unsigned int index) const override { return links[index]; }
    std::vector<MO_Node*> linkedNodes() const override { return nodes; }
    void scale(double factor, int second, CO_Command** command) override;
    bool takesValues() const override { return kind != kExpression; }
    CO_Command* spliceCommand(double, bool) override { return nullptr; }
    std::unique_ptr<TUCellMemo> remember(double) override { return nullptr; }
    void endModif(double) override {}
    AT_ColumnMarkerManager* createOrGetColumnMarkerManager() override { return markers; }

    struct Write {
        double frame;
        QString text;
        int subColumn;
        bool operator==(const Write&) const = default;
    };
    SC_SceneCommon* scene;
    AT_ColumnMarkerManager* markers = nullptr;
    timedValueType kind = kDrawing;
    bool anonymous = false;
    bool scales = false;
    std::map<double, QString> cells;
    std::vector<double> refused; ///< Frames of cells that refuse.
    std::vector<Write> writes;
    std::vector<AT_Attr*> links;
    std::vector<MO_Node*> nodes;
    std::vector<std::pair<double, int>> scaled;
    mutable std::vector<int> subColumnsRead;
};

/// Changes a stand-in column, and back.
class StandInCellCmd : public CO_Command {
public:
    StandInCellCmd(StandInColumn& column, double frame, const QString& text)
        : m_column(column),
          m_frame(frame),
          m_text(text)
    {}
    Status execute() override
    {
        std::swap(m_column.cells[m_frame], m_text);
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    StandInColumn& m_column;
    double m_frame;
    QString m_text;
};

class StandInScaleCmd : public CO_Command {
public:
    StandInScaleCmd(StandInColumn& column, double factor, int second) : m_column(column), m_scaled(factor, second) {}
    Status execute() override
    {
        m_column.scaled.push_back(m_scaled);
        return kOk;
    }
    Status unexecute() override
    {
        m_column.scaled.pop_back();
        return kOk;
    }

private:
    StandInColumn& m_column;
    std::pair<double, int> m_scaled;
};

inline int StandInColumn::setValuesFromXsheet(double frame, int count, const QString& text, int subColumn)
{
    EXPECT_EQ(count, 1);
    writes.push_back({frame, text, subColumn});
    if (std::find(refused.begin(), refused.end(), frame) != refused.end())
        return 7;
    return scene->commandManager()->execute(new StandInCellCmd(*this, frame, text), QString()) ? 0 : 1;
}

inline void StandInColumn::scale(double factor, int second, CO_Command** command)
{
    if (scales)
        *command = new StandInScaleCmd(*this, factor, second);
}
