#include "engine/clipboard/templatefiles.h"

#include "engine/elements/elementfile.h"
#include "engine/folder/folder.h"
#include "engine/folder/foldertransaction.h"
#include "engine/folder/safenames.h"
#include "engine/palettes/palette.h"
#include "engine/palettes/palettefiles.h"
#include "engine/palettes/palettefolders.h"
#include "engine/palettes/palettelistfile.h"

#include <map>

namespace brindle::engine {

void TemplateFiles::addTo(FolderTransaction& save, const Folder& folder, bool)
{
    addElements(save);
    addPalettes(save, folder);
    for (const DragScene::ExtraFile& file : m_content.files) {
        const Element* element = m_content.elements().find(file.element);
        save.write(element ? element->folder() + u'/' + file.place : file.place, file.bytes);
    }
}

void TemplateFiles::addElements(FolderTransaction& save) const
{
    const ElementManager& elements = m_content.elements();
    if (elements.elements().empty())
        return;
    for (const TUElement* entry : elements.elements()) {
        const auto& element = static_cast<const Element&>(*entry);
        for (std::size_t place = 0; place < element.drawings().size(); ++place) {
            const Drawing& drawing = element.drawings().at(place);
            for (const DrawingFile& file : drawing.files())
                save.write(element.fileName(drawing, file.layer, file.version), file.content->bytes());
        }
    }
    save.write(QLatin1String(elementFileName), elementFileText(elements));
}

void TemplateFiles::addPalettes(FolderTransaction& save, const Folder& folder) const
{
    std::map<QString, PaletteListRecord> lists; // By the folders of their files.
    std::map<QString, QSet<QString>> taken;
    for (const DragScene::DraggedPalette& dragged : m_content.palettes) {
        const Element* element = m_content.elements().find(dragged.element);
        const QString library = (element ? element->folder() + u'/' : QString()) + palette_folders::libraryName;
        const QString name = safe_names::unique(safe_names::made(dragged.palette->GetName()), taken[library]);
        taken[library].insert(safe_names::folded(name));
        const QString file = library + u'/' + name + paletteEnding;
        for (const CM_Palette::Entry& entry : dragged.palette->colors()) {
            const auto texture = CM_CastToTexture(entry);
            if (texture && texture->GetBitmap())
                save.write(palette_files::texturesOf(file) + u'/' + textureFileName(entry->GetID()),
                           texture->GetBitmap()->Png());
        }
        save.write(file, dragged.palette->engine().text());
        PaletteListRecord& list = lists.try_emplace(library, PaletteListRecord{UT_Id::Generate(), {}}).first->second;
        list.palettes.push_back({dragged.palette->GetID(), folder.pathOf(file)});
    }
    for (const auto& [library, list] : lists)
        save.write(library + QLatin1String("/palette-list.json"),
                   paletteListText(list, folder.pathOf(library), folder.path()));
}

} // namespace brindle::engine
