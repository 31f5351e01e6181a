#include "core/elements/element.h"

#include "core/elements/elementdrawing.h"
#include "core/elements/elementdrawinglist.h"
#include "core/elements/elementlist.h"
#include "core/host/em_elementinfo.h"
#include "core/host/tu_pixmapformat.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

QStringList namesOf(const OMC::ElementList& elements)
{
    QStringList names;
    for (const OMC::Obj& item : elements.list()) {
        if (const auto* element = OMC::objectIn<OMC::Element>(item))
            names.append(element->getName());
    }
    return names;
}

QStringList formats()
{
    QStringList names;
    const TUPixmapFormatList& list = OMC::Element::formatList();
    for (auto format = list.pixFmtBegin(); format != list.pixFmtEnd(); ++format)
        names.append(format->name());
    return names;
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Element>()
            .property<&Element::newDrawings>("drawings")
            .method<"duplicate", Form<&Element::duplicate, "new_name -> Element">>()
            .method<"lock", Form<&Element::lock>>()
            .method<"release", Form<&Element::release>>()
            .staticMethod<"format_list", StaticForm<&formats>>(),
        Class<ElementList>()
            .alias("ElementsLike", "Element | int | str | Sequence[object]",
                   "An element or several: objects, numbers, names, or a list of these.")
            .items("Element")
            .numbered()
            .keys<&namesOf>()
            .method<"create",
                    Form<&ElementList::create, "names: str | Sequence[str], scan_type='COLOR', field_chart=12.0, "
                                               "pixmap_format='PNG', vector_type='PNT' -> Element | list[Element]">>()
            .method<"remove", Form<&ElementList::remove, "elements: ElementsLike, remove_files=False">>()
            .method<"contains", Form<&ElementList::contains, "element: Element | int | str">>(),
        Class<ElementDrawing>()
            .property<&ElementDrawing::newElement>("element")
            .property<&ElementDrawing::getDrawing>("drawing", "Drawing | None")
            .method<"initialize", Form<&ElementDrawing::initialize, "-> Drawing | None">>()
            .method<"duplicate", Form<&ElementDrawing::duplicate, "timing='', layer='' -> ElementDrawing">>()
            .method<"import_file", Form<&ElementDrawing::importFile, "path: str | PathLike[str]">>(),
        Class<ElementDrawingList>()
            .alias("DrawingsLike", "ElementDrawing | str | Sequence[object]",
                   "A drawing or several: objects, names, or a list of these.")
            .items("ElementDrawing")
            .keys<&ElementDrawingList::names>()
            .method<"create",
                    Form<&ElementDrawingList::create, "names: str | Sequence[str], file_exists=False, "
                                                      "second=False -> ElementDrawing | list[ElementDrawing]">>()
            .method<"remove", Form<&ElementDrawingList::remove, "drawings: DrawingsLike">>()
            .method<"contains", Form<&ElementDrawingList::contains, "name">>(),
    };
});

} // namespace

} // namespace brindle::python
