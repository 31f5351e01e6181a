#include "core/host/em_commands.h"

#include "engine/elements/elementmanager.h"
#include "engine/elements/picturecheck.h"
#include "engine/elements/pixmapformats.h"
#include "engine/folder/folderio.h"

namespace brindle::engine {

namespace {

/// The content of a file that a drawing of the element can have. Throws `FolderFailure`.
QByteArray pictureFor(const Element& element, const QString& path)
{
    if (element.vectorType() != TUElement::kNoVector)
        throw FolderFailure{quoted(element.name()) + " is an element of vector drawings"};
    if (path.isEmpty() || path.contains(QChar(0)) || folder_io::kindOf(path) == FileKind::Folder)
        throw FolderFailure{quoted(path) + " is no file"};
    bool isMissing = false;
    QByteArray bytes = folder_io::read(path, &isMissing);
    if (isMissing)
        throw FolderFailure{quoted(path) + " does not exist"};
    const int format = element.fields().pixmapFormat;
    switch (checkPicture(bytes, format)) {
    case PictureState::Whole:
        return bytes;
    case PictureState::OtherFormat:
        throw FolderFailure{quoted(path) + " is no " + pixmapFormatOf(format)->name() + " file"};
    case PictureState::CutOff:
        break;
    }
    throw FolderFailure{quoted(path) + " is cut off"};
}

} // namespace

} // namespace brindle::engine

CO_Command* ImportDrawingCmd::Create(TUElementMgr* manager, const CA_CelKey& drawing, const QString& path,
                                     QString& error)
{
    namespace engine = brindle::engine;
    const engine::ElementManager* elements = engine::engineElements(manager);
    const engine::Element* element = elements ? elements->find(drawing.element().elementId()) : nullptr;
    try {
        if (!element)
            throw engine::FolderFailure{QStringLiteral("there is no such element")};
        return new SetDrawingContentCmd(manager, drawing, engine::pictureFor(*element, path));
    } catch (const engine::FolderFailure& failure) {
        error = QLatin1String("Cannot import the drawing: ") + failure.reason + u'.';
        return nullptr;
    }
}
