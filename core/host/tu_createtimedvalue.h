#pragma once

#include "core/host/export.h"
#include "core/host/tu_timedvalue.h"

class TUScene;

/// The request for a new column of a scene.
class BRINDLE_HOST_EXPORT TUSceneCreateTimedValueParams {
public:
    TUSceneCreateTimedValueParams(TUScene* scene, const QString& name, TUTimedValue::timedValueType type)
        : m_scene(scene),
          m_name(name),
          m_type(type)
    {}

    TUScene* scene() const { return m_scene; }
    const QString& name() const { return m_name; }
    TUTimedValue::timedValueType type() const { return m_type; }

    bool isAnonymous() const { return m_anonymous; } ///< Named by the engine, and shown by what it drives.
    void setAnonymous(bool anonymous) { m_anonymous = anonymous; }

    /// What a new element of a drawing column is like. The flag of `setElementData` is always true.
    struct Element {
        QString name;
        int scanType = 0;
        double fieldChart = 0;
        int pixmapFormat = 0;
    };
    bool createElement() const { return m_createElement; } ///< A new element for a drawing column.
    void setCreateElement(bool create) { m_createElement = create; }
    const Element& element() const { return m_element; }
    void setElementData(const QString& name, bool, int scanType, double fieldChart, int pixmapFormat)
    {
        m_element = {name, scanType, fieldChart, pixmapFormat};
    }
    bool createReadModule() const { return m_createReadModule; } ///< A new node that shows the drawings.
    void setCreateReadModule(bool create) { m_createReadModule = create; }

private:
    TUScene* m_scene;
    QString m_name;
    TUTimedValue::timedValueType m_type;
    bool m_anonymous = false;
    bool m_createElement = false;
    bool m_createReadModule = false;
    Element m_element;
};
