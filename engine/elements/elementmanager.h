#pragma once

#include "core/host/tu_elementmgr.h"
#include "engine/elements/contentstore.h"
#include "engine/elements/element.h"
#include "engine/elements/elementlocks.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <map>
#include <memory>
#include <vector>

class CO_Command;

namespace brindle::engine {

class Column;
class CommandManager;
class ProjectCommon;

/// The elements of a project, which it owns, and which it belongs to. Their files follow when the project is saved
/// (`ElementFiles`).
class ElementManager final : public TUElementMgr {
public:
    explicit ElementManager(ProjectCommon& project);
    ~ElementManager() override;

    Element* find(int id) const; ///< Null where there is none.
    /// A file in the project's folder that is saved with the drawings' and belongs to none of them. Commands share it.
    struct ExtraFile {
        QString place; ///< "elements/Arm/scan/1.tif".
        ContentPointer content;
    };
    using ExtraFiles = std::vector<std::shared_ptr<ExtraFile>>;
    ExtraFiles& extraFiles() { return m_extraFiles; }

    ContentStore& contents() { return m_contents; }
    CommandManager& history() const; ///< Of the project.
    const ContentStore& contents() const { return m_contents; }
    const std::vector<const TUElement*>& elements() const { return m_order; }
    /// A number that changes when elements come, go or get other fields.
    quint64 revision() const { return m_revision; }

    /// Adds an element whose id no other has. It gets its folder's name when it has none yet.
    Element& insert(std::unique_ptr<Element> element);
    std::unique_ptr<Element> take(Element& element);
    /// Sets all fields, whose name is free; gives those before.
    ElementFields exchangeFields(Element& element, const ElementFields& fields);
    /// Whether an element may have the name: no other one that isn't deleted has it.
    bool isFreeName(const QString& name, const Element* own) const;
    /// Whether no element has a folder of the name, also where capital letters are not told apart.
    bool isFreeFolder(const QString& physicalName) const;
    /// Gives the caller the element that `createElement` made under this id; null where it made none.
    std::unique_ptr<Element> takeMade(int id);

    bool isShown(const Element& element, const QString& drawing) const; ///< By a column of the project.
    /// The commands by which the columns follow a drawing that gets another name.
    std::vector<std::unique_ptr<CO_Command>> renameCommands(const Element& element, const QString& from,
                                                            const QString& to) const;
    void tellChanged() const; ///< Tells the scenes that pictures may have changed.

    Iterator elementBegin() const override { return m_order.data(); }
    Iterator elementEnd() const override { return m_order.data() + m_order.size(); }
    const TUElement& elementById(int id) const override;
    const TUElement& elementByName(const QString& name, int) const override;

    const TUElement& createElement(const QString& name, int scanType, double fieldChart, int pixmapFormat,
                                   int vectorType, bool useTemporaryFolder) override;
    bool isInTempDirectory(int) const override { return false; }
    bool getLock(const TUElement& element) override;
    bool hasLock(int id) const override { return m_locks.isHeld(id); }
    bool releaseLock(const TUElement& element) override;
    bool isElementDeleted(int id) const override;
    bool elementIsLinkedToTimedValue(int id) const override;
    bool canDeleteElements(const std::set<int>& ids, std::set<int>& deletable, MSG_Text& reasons) const override;

    EM_ElementInfo* getElementDrawingInfoById(int id) const override { return find(id); }
    VFS_Path elementFolder(int id, int) const override;
    int getDrawingOpacity(int id) const override;
    QString fileExt(int id) const override;
    EM_DrawingId getDrawingId(int id, const QString& timing, bool isNew) const override;
    QString getDrawingTiming(int id, EM_DrawingId drawing) const override;
    int getDrawingType(int id, EM_DrawingId drawing) const override;
    int getDrawingVersion(int id, EM_DrawingId drawing) const override;
    double getDrawingScaleFactor(int id, EM_DrawingId drawing) const override;
    QString nextUnusedNumericTiming(int id) const override;
    VFS_Path drawingFilenamePart(int id, EM_DrawingId drawing, EM_LayerId layer, bool, int) const override;

private:
    /// Calls a function with each scene and column of the project that shows drawings of the element.
    template <typename Function>
    void forColumnsOf(const Element& element, Function function) const;
    const Drawing* drawing(int id, EM_DrawingId drawing) const;

    ProjectCommon& m_project;
    ContentStore m_contents; ///< Outlives the elements.
    ExtraFiles m_extraFiles;
    std::map<int, std::unique_ptr<Element>> m_elements;
    std::vector<const TUElement*> m_order; ///< By their ids.
    QMultiHash<QString, Element*> m_byName;
    QSet<QString> m_folders; ///< Physical names, folded.
    std::map<int, std::unique_ptr<Element>> m_made;
    ElementLocks m_locks;
    quint64 m_revision = 0;
    int m_lastId = 0; ///< The highest id that an element has had.
};

/// The engine's elements behind what the host shows of them; null for null and for those of another engine.
ElementManager* engineElements(TUElementMgr* manager);

} // namespace brindle::engine
