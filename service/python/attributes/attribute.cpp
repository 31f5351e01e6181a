#include "core/attributes/attribute.h"

#include "core/attributes/attributelist.h"
#include "core/attributes/boolattribute.h"
#include "core/attributes/colourattribute.h"
#include "core/attributes/doubleattribute.h"
#include "core/attributes/drawingattribute.h"
#include "core/attributes/elementattribute.h"
#include "core/attributes/enumattribute.h"
#include "core/attributes/enumattributeoption.h"
#include "core/attributes/intattribute.h"
#include "core/attributes/position2dattribute.h"
#include "core/attributes/position3dattribute.h"
#include "core/attributes/textattribute.h"
#include "core/attributes/timingattribute.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

/// The methods that all attribute classes with a value have.
template <typename T, Text SetValueNames>
Class<T> valueClass()
{
    Class<T> table;
    table.template method<"value", Form<&T::value, "frame">>();
    table.template method<"localvalue", Form<&T::localvalue>>();
    table.template method<"set_value", Form<&T::setValue, SetValueNames>>();
    table.template method<"set_localvalue", Form<&T::setLocalvalue, "value">>();
    return table;
}

/// The same for a class whose values have a default.
template <typename T, Text SetValueNames>
Class<T> resettableClass()
{
    Class<T> table = valueClass<T, SetValueNames>();
    table.template method<"reset_value", Form<&T::resetValue, "frame">>();
    table.template method<"reset_localvalue", Form<&T::resetLocalvalue>>();
    return table;
}

/// The methods of a class with a number along each axis.
template <typename T, Text ValueNames, Text LocalNames>
Class<T> axesClass()
{
    Class<T> table;
    table.template method<"value", Form<&T::value, ValueNames>>();
    table.template method<"localvalue", Form<&T::localvalue, LocalNames>>();
    table.template method<"set_value", Form<&T::setValue, "frame, value: PointLike, adjust_column=False">>();
    table.template method<"set_localvalue", Form<&T::setLocalvalue, "value: PointLike">>();
    table.template method<"offset_value",
                          Form<&T::offsetValue, "range: float | str | Sequence[float], delta: PointLike">>();
    table.template method<"reset_value", Form<&T::resetValue, "frame">>();
    table.template method<"reset_localvalue", Form<&T::resetLocalvalue>>();
    return table;
}

/// The keywords of a list's attributes, each with those of the attributes inside it: "position", "position.x", ...
QStringList keywordsOf(const OMC::AttributeList& attributes)
{
    QStringList keywords;
    for (const OMC::Obj& item : attributes.list()) {
        const auto* attribute = OMC::objectIn<OMC::Attribute>(item);
        if (!attribute)
            continue;
        keywords.append(attribute->getKeyword());
        const OMC::Obj inside = attribute->getSubattributes();
        if (const auto* parts = OMC::objectIn<OMC::AttributeList>(inside)) {
            for (const QString& part : keywordsOf(*parts))
                keywords.append(attribute->getKeyword() + u'.' + part);
        }
    }
    return keywords;
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Attribute>()
            .alias("AnyAttribute", "Attribute", "An attribute of the class that the node's type decides.")
            .property("column", "Column | None", "Column | str | bool | None")
            .property("subattributes", "AttributeList | None")
            .method<"link", Form<&Attribute::link, "column: Column | str | bool | None">>()
            .method<"unlink", Form<&Attribute::unlink>>()
            .method<"node", Form<&Attribute::node, "-> Node">>()
            .method<"get_text_value", Form<&Attribute::getTextValue, "frame">>()
            .method<"set_text_value", Form<&Attribute::setTextValue, "frame, text">>(),
        resettableClass<DoubleAttribute, "frame, value, adjust_column=False">()
            .method<"offset_value",
                    Form<&DoubleAttribute::offsetValue, "range: float | str | Sequence[float], delta">>(),
        resettableClass<BoolAttribute, "frame, value">(),
        valueClass<IntAttribute, "frame, value, adjust_column=False">()
            .method<"offset_value", Form<&IntAttribute::offsetValue, "range: float | str | Sequence[float], delta">>(),
        valueClass<TextAttribute, "frame, value">(),
        Class<EnumAttribute>()
            .property("options", "list[EnumAttributeOption]")
            .method<"value", Form<&EnumAttribute::value, "frame -> EnumAttributeOption">>()
            .method<"localvalue", Form<&EnumAttribute::localvalue, "-> EnumAttributeOption">>()
            .method<"set_value", Form<&EnumAttribute::setValue, "frame, value: EnumAttributeOption | str | int">>()
            .method<"set_localvalue", Form<&EnumAttribute::setLocalvalue, "value: EnumAttributeOption | str | int">>(),
        Class<EnumAttributeOption>(),
        Class<ColourAttribute>()
            .method<"value", Form<&ColourAttribute::value, "frame -> Colour">>()
            .method<"localvalue", Form<&ColourAttribute::localvalue, "-> Colour">>()
            .method<"set_value", Form<&ColourAttribute::setValue, "frame, value: ColourLike, adjust_column=False">>()
            .method<"set_localvalue", Form<&ColourAttribute::setLocalvalue, "value: ColourLike">>()
            .method<"offset_value",
                    Form<&ColourAttribute::offsetValue, "range: float | str | Sequence[float], delta: ColourLike">>(),
        axesClass<Position2DAttribute, "frame -> Point2d", "-> Point2d">().property("default", "Point2d"),
        axesClass<Position3DAttribute, "frame -> Point3d", "-> Point3d">().property("default", "Point3d"),
        Class<DrawingAttribute>()
            .property<&DrawingAttribute::getElement>("element", "Element | None")
            .property("drawing", "ElementAttribute | TimingAttribute")
            .property("timing", "Column | None")
            .method<"value", Form<&DrawingAttribute::value, "frame">>()
            .method<"localvalue", Form<&DrawingAttribute::localvalue>>()
            .method<"set_value", Form<&DrawingAttribute::setValue, "frame, drawings: DrawingsLike">>()
            .method<"set_localvalue", Form<&DrawingAttribute::setLocalvalue, "drawings: DrawingsLike">>()
            .method<"set_element", Form<&DrawingAttribute::setElement, "element: Element | int">>()
            .method<"scale_factor", Form<&DrawingAttribute::scaleFactor, "frame">>(),
        Class<ElementAttribute>()
            .property<&ElementAttribute::getElement>("element", "Element | None", "Element | int")
            .method<"value", Form<&ElementAttribute::value, "frame">>()
            .method<"set_value", Form<&ElementAttribute::setValue, "frame, drawings: DrawingsLike">>(),
        Class<TimingAttribute>()
            .method<"value", Form<&TimingAttribute::value, "frame">>()
            .method<"localvalue", Form<&TimingAttribute::localvalue>>()
            .method<"set_value", Form<&TimingAttribute::setValue, "frame, drawings: DrawingsLike">>()
            .method<"set_localvalue", Form<&TimingAttribute::setLocalvalue, "drawings: DrawingsLike">>(),
        Class<AttributeList>()
            .items("AnyAttribute")
            .keys<&keywordsOf>()
            .method<"contains", Form<&AttributeList::contains, "attribute: Attribute | str">>()
            .method<"create_dynamic_attr",
                    Form<&AttributeList::createDynamicAttr, "name, type, parent='', linkable=False -> AnyAttribute">>()
            .method<"remove_dynamic_attr", Form<&AttributeList::removeDynamicAttr, "attribute: Attribute | str">>(),
    };
});

} // namespace

} // namespace brindle::python
