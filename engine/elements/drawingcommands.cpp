#include "core/host/em_commands.h"

#include "engine/elements/elementmanager.h"
#include "engine/elements/names.h"

#include <cmath>
#include <utility>
#include <vector>

namespace brindle::engine {

namespace {

/// A command on an element's drawings. Without a manager of the engine, or without such an element, it fails.
class DrawingCommand : public CO_Command {
protected:
    DrawingCommand(TUElementMgr* manager, int id)
        : m_elements(engineElements(manager)),
          m_element(m_elements ? m_elements->find(id) : nullptr)
    {}

    Element* element() const { return m_element; }
    DrawingList& drawings() const { return m_element->drawings(); }
    ContentStore& contents() const { return m_elements->contents(); }
    ElementManager& elements() const { return *m_elements; }
    Status changed() const
    {
        m_elements->tellChanged();
        return kOk;
    }

private:
    ElementManager* m_elements;
    Element* m_element;
};

/// A command on one drawing, which was there when the command was made.
class OneDrawingCommand : public DrawingCommand {
public:
    OneDrawingCommand(TUElementMgr* manager, int id, EM_DrawingId drawing)
        : DrawingCommand(manager, id),
          m_drawing(element() ? drawings().find(drawing) : nullptr)
    {}

protected:
    Drawing* drawing() const { return m_drawing; }

private:
    Drawing* m_drawing;
};

/// Makes a drawing, and owns it while it is in no list.
class NewDrawing final : public DrawingCommand {
public:
    NewDrawing(TUElementMgr* manager, int id, const QString& name, bool fileExists, bool checkFile)
        : DrawingCommand(manager, id),
          m_name(name),
          m_fileExists(fileExists),
          m_checkFile(checkFile)
    {}

    Status execute() override
    {
        if (m_drawing) {
            drawings().insert(std::move(m_taken));
            return changed();
        }
        if (!element() || !isElementName(m_name) || drawings().named(m_name))
            return kFail;
        m_drawing = &drawings().insert(std::make_unique<Drawing>(m_name));
        if (m_fileExists && !takeFile()) {
            drawings().take(*m_drawing);
            m_drawing = nullptr;
            return kFail;
        }
        return changed();
    }

    Status unexecute() override
    {
        if (m_drawing->isUnderEdit())
            return kFail;
        m_taken = drawings().take(*m_drawing);
        return changed();
    }

private:
    bool takeFile() const
    {
        const QString place = element()->fileName(*m_drawing, EM_DefaultLayerId, m_drawing->version);
        ContentPointer content = contents().fromForeignFile(place);
        if (m_checkFile && !content->isThere())
            return false;
        m_drawing->setContent(EM_DefaultLayerId, m_drawing->version, std::move(content));
        return true;
    }

    QString m_name;
    bool m_fileExists;
    bool m_checkFile;
    Drawing* m_drawing = nullptr; ///< Null before the first execution.
    std::unique_ptr<Drawing> m_taken;
};

class DeleteDrawing final : public OneDrawingCommand {
public:
    using OneDrawingCommand::OneDrawingCommand;

    Status execute() override
    {
        if (!drawing() || drawings().find(drawing()->id()) != drawing() || drawing()->isUnderEdit())
            return kFail;
        m_taken = drawings().take(*drawing());
        return changed();
    }

    Status unexecute() override
    {
        drawings().insert(std::move(m_taken));
        return changed();
    }

private:
    std::unique_ptr<Drawing> m_taken;
};

/// Renames a drawing, and has the columns follow.
class RenameDrawing final : public OneDrawingCommand {
public:
    RenameDrawing(TUElementMgr* manager, int id, EM_DrawingId drawing, const QString& name)
        : OneDrawingCommand(manager, id, drawing),
          m_name(name)
    {}

    Status execute() override
    {
        if (!m_isPrepared && !prepare())
            return kFail;
        exchange();
        return m_columns.execute() == kFail ? takeBack() : changed();
    }

    Status unexecute() override
    {
        if (m_columns.unexecute() == kFail)
            return kFail;
        exchange();
        return changed();
    }

private:
    bool prepare()
    {
        const Drawing* other = drawing() && isElementName(m_name) ? drawings().named(m_name) : nullptr;
        if (!drawing() || !isElementName(m_name) || (other && other != drawing()))
            return false;
        for (auto& command : elements().renameCommands(*element(), drawing()->name(), m_name))
            m_columns.add(command.release());
        m_isPrepared = true;
        return true;
    }

    void exchange()
    {
        const QString name = drawing()->name();
        const QString stem = drawing()->stem();
        drawings().rename(*drawing(), m_name, m_stem);
        m_name = name;
        m_stem = stem;
    }

    Status takeBack()
    {
        exchange();
        return kFail;
    }

    QString m_name; ///< The next one, with its stem, which is empty at first.
    QString m_stem;
    CO_AndCommand m_columns;
    bool m_isPrepared = false;
};

/// Shows another version of a drawing, and makes it where it isn't there.
class SetVersion final : public OneDrawingCommand {
public:
    SetVersion(TUElementMgr* manager, int id, EM_DrawingId drawing, int version)
        : OneDrawingCommand(manager, id, drawing),
          m_version(version)
    {}

    Status execute() override
    {
        constexpr int highest = 9999;
        if (!drawing() || m_version < 1 || m_version > highest)
            return kFail;
        if (m_version == drawing()->version)
            return kNoop;
        m_isMade = !drawing()->hasVersion(m_version);
        if (m_isMade) {
            // Later, an open session may have taken back what it had changed when the version was made.
            if (m_copied.empty())
                m_copied = drawing()->files();
            for (const DrawingFile& file : m_copied) {
                if (!drawing()->takesContent(file.layer, m_version, file.content))
                    return kFail;
            }
            std::erase_if(m_copied, [this](const DrawingFile& file) { return file.version != drawing()->version; });
            for (const DrawingFile& file : m_copied)
                drawing()->setContent(file.layer, m_version, file.content);
        }
        std::swap(drawing()->version, m_version);
        return changed();
    }

    Status unexecute() override
    {
        if (m_version == drawing()->version)
            return kNoop;
        for (const DrawingFile& file : m_copied) {
            if (m_isMade && drawing()->isUnderEdit(file.layer, drawing()->version))
                return kFail;
        }
        std::swap(drawing()->version, m_version);
        if (m_isMade) {
            for (const DrawingFile& file : m_copied)
                drawing()->setContent(file.layer, m_version, nullptr);
        }
        return changed();
    }

private:
    int m_version;                     ///< The next one.
    bool m_isMade = false;             ///< The version wasn't there before.
    std::vector<DrawingFile> m_copied; ///< What the version is made of.
};

class SetScaleFactor final : public OneDrawingCommand {
public:
    SetScaleFactor(TUElementMgr* manager, int id, EM_DrawingId drawing, double factor)
        : OneDrawingCommand(manager, id, drawing),
          m_factor(factor)
    {}

    Status execute() override
    {
        if (!drawing() || !std::isfinite(m_factor) || m_factor <= 0)
            return kFail;
        return unexecute();
    }

    Status unexecute() override
    {
        std::swap(drawing()->scaleFactor, m_factor);
        return changed();
    }

private:
    double m_factor; ///< The next one.
};

/// Copies a layer of a drawing into a drawing that it makes where it isn't there.
class DuplicateDrawing final : public DrawingCommand {
public:
    DuplicateDrawing(TUElementMgr* manager, const CA_CelKeyElement& source, const CA_CelKeyElement& target,
                     const QString& name)
        : DrawingCommand(manager, target.elementId()),
          m_from(engineElements(manager) ? engineElements(manager)->find(source.elementId()) : nullptr),
          m_source(m_from ? m_from->drawings().find(source.drawingId()) : nullptr),
          m_sourceLayer(source.layerId()),
          m_layer{target.layerId(), {}},
          m_name(name)
    {}

    Status execute() override
    {
        if (!m_drawing && !prepare())
            return kFail;
        if (!m_drawing->takesContent(m_layer.id, m_drawing->version, m_content))
            return kFail;
        if (m_addsLayer)
            element()->addLayer(m_layer);
        if (m_taken)
            drawings().insert(std::move(m_taken));
        m_drawing->setContent(m_layer.id, m_drawing->version, m_content);
        return changed();
    }

    Status unexecute() override
    {
        if (m_drawing->isUnderEdit())
            return kFail;
        m_content = m_drawing->setContent(m_layer.id, m_drawing->version, nullptr);
        if (m_addsDrawing)
            m_taken = drawings().take(*m_drawing);
        if (m_addsLayer)
            element()->removeLayer(m_layer.id);
        return changed();
    }

private:
    bool prepare()
    {
        if (!element() || !m_source || !isElementName(m_name))
            return false;
        Drawing* there = drawings().named(m_name);
        if (there && there->content(m_layer.id))
            return false;
        m_addsLayer = m_layer.id != EM_DefaultLayerId && !element()->findLayer(m_layer.id);
        if (const EM_LayerInfo* layer = m_from->findLayer(m_sourceLayer))
            m_layer.name = layer->name;
        m_addsDrawing = !there;
        if (m_addsDrawing) {
            m_taken = std::make_unique<Drawing>(m_name);
            m_taken->type = m_source->type;
            m_taken->scaleFactor = m_source->scaleFactor;
        }
        m_drawing = there ? there : m_taken.get();
        m_content = m_source->content(m_sourceLayer);
        return true;
    }

    Element* m_from;
    Drawing* m_source;
    EM_LayerId m_sourceLayer;
    EM_LayerInfo m_layer;
    QString m_name;
    Drawing* m_drawing = nullptr; ///< Null before the first execution.
    bool m_addsLayer = false;
    bool m_addsDrawing = false;
    std::unique_ptr<Drawing> m_taken;
    ContentPointer m_content; ///< The copy's content while there is no copy; null where there is nothing to copy.
};

class SetContent final : public OneDrawingCommand {
public:
    SetContent(TUElementMgr* manager, const CA_CelKeyElement& key, const QByteArray& content)
        : OneDrawingCommand(manager, key.elementId(), key.drawingId()),
          m_layer(key.layerId())
    {
        if (drawing())
            m_content = contents().fromBytes(content);
    }

    Status execute() override
    {
        if (!drawing() || (m_layer != EM_DefaultLayerId && !element()->findLayer(m_layer)))
            return kFail;
        return unexecute();
    }

    Status unexecute() override
    {
        const int version = drawing()->version;
        if (drawing()->isUnderEdit(m_layer, version) || !drawing()->takesContent(m_layer, version, m_content))
            return kFail;
        m_content = drawing()->setContent(m_layer, version, m_content);
        return changed();
    }

private:
    EM_LayerId m_layer;
    ContentPointer m_content; ///< The next one.
};

} // namespace

} // namespace brindle::engine

namespace engine = brindle::engine;

namespace EM_Commands {

CO_Command* NewDrawingCmd::Create(TUElementMgr* manager, int id, const QString& name, bool fileExists, bool checkFile)
{
    if (manager && manager->getDrawingId(id, name, true) != EM_InvalidDrawingId)
        return nullptr;
    return new NewDrawingCmd(std::make_unique<engine::NewDrawing>(manager, id, name, fileExists, checkFile));
}

DeleteDrawingCmd::DeleteDrawingCmd(TUElementMgr* manager, int id, EM_DrawingId drawing)
    : CO_EngineCommand(std::make_unique<engine::DeleteDrawing>(manager, id, drawing))
{}

} // namespace EM_Commands

RenameDrawingCmd::RenameDrawingCmd(TUElementMgr* manager, int id, EM_DrawingId drawing, const QString& name)
    : CO_EngineCommand(std::make_unique<engine::RenameDrawing>(manager, id, drawing, name))
{}

SetDrawingVersionCmd::SetDrawingVersionCmd(TUElementMgr* manager, int id, EM_DrawingId drawing, int version)
    : CO_EngineCommand(std::make_unique<engine::SetVersion>(manager, id, drawing, version))
{}

SetDrawingScaleFactorCmd::SetDrawingScaleFactorCmd(TUElementMgr* manager, int id, EM_DrawingId drawing, double factor)
    : CO_EngineCommand(std::make_unique<engine::SetScaleFactor>(manager, id, drawing, factor))
{}

CO_Command* DuplicateDrawingCmd::Create(TUElementMgr* manager, const CA_CelKey& source, const CA_CelKey& target,
                                        const QString& name)
{
    return new DuplicateDrawingCmd(
        std::make_unique<engine::DuplicateDrawing>(manager, source.element(), target.element(), name));
}

SetDrawingContentCmd::SetDrawingContentCmd(TUElementMgr* manager, const CA_CelKey& drawing, const QByteArray& content)
    : CO_EngineCommand(std::make_unique<engine::SetContent>(manager, drawing.element(), content))
{}
