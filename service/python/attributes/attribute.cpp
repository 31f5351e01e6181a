#include "core/attributes/attribute.h"

#include "core/attributes/attributelist.h"
#include "core/attributes/boolattribute.h"
#include "core/attributes/doubleattribute.h"
#include "core/attributes/intattribute.h"
#include "core/attributes/textattribute.h"
#include "service/python/tables.h"

namespace brindle::python {

namespace {

/// The methods of all attribute classes with a value, under one text each.
template <typename T, Text SetValueNames>
Class<T> valueClass(const char* name, const char* documentation)
{
    Class<T> table(name, documentation);
    table.template method<"value", Form<&T::value, "frame">>(
        "The value at a frame: the linked column's, or the local value while there is none.");
    table.template method<"localvalue", Form<&T::localvalue>>("The value while no column is linked.");
    table.template method<"set_value", Form<&T::setValue, SetValueNames>>(
        "Sets the value at a frame: a key of the linked column; an attribute that can have a column and has none gets "
        "one in the same undo step.");
    table.template method<"set_localvalue", Form<&T::setLocalvalue, "value">>(
        "Sets the value that holds while no column is linked.");
    return table;
}

/// The same for a class whose values have a default.
template <typename T, Text SetValueNames>
Class<T> resettableClass(const char* name, const char* documentation)
{
    Class<T> table = valueClass<T, SetValueNames>(name, documentation);
    table.template method<"reset_value", Form<&T::resetValue, "frame">>("Sets the default value at a frame.");
    table.template method<"reset_localvalue", Form<&T::resetLocalvalue>>("Sets the default as the local value.");
    return table;
}

} // namespace

std::vector<ClassTable> attributeTables()
{
    using namespace OMC;
    return {
        Class<Attribute>("Attribute", "A parameter of a node.")
            .property("column", "The linked Column, or None. Takes a column or its name; None, False and \"\" unlink.")
            .property("column_name", "The linked column's name, \"\" without one; writing \"\" unlinks.")
            .property("keyword", "The attribute's own keyword.")
            .property("display_name", "The name as a person reads it.")
            .property("type", "The kind of value: \"DOUBLE\", \"BOOL\", \"POSITION_3D\", ...")
            .property("full_keyword", "The keywords of all its levels: \"position.x\".")
            .property("dynamic", "Whether a script or a person added it to the node.")
            .property("linkable", "Whether a column can drive it.")
            .property("subattributes", "The attributes inside this one, an AttributeList, or None.")
            .method<"link", Form<&Attribute::link, "column">>("Links a column; False where that fails.")
            .method<"unlink", Form<&Attribute::unlink>>("Cuts the link to the column; False where that fails.")
            .method<"node", Form<&Attribute::node>>("The node that the attribute belongs to.")
            .method<"get_text_value", Form<&Attribute::getTextValue, "frame">>("The value at a frame as text.")
            .method<"set_text_value", Form<&Attribute::setTextValue, "frame, text">>(
                "Sets the value at a frame from a text; False where it can't be read or is refused."),
        resettableClass<DoubleAttribute, "frame, value, adjust_column=False">("DoubleAttribute",
                                                                              "An attribute whose value is a number.")
            .property("minimum", "The smallest value.")
            .property("maximum", "The largest value.")
            .property("step", "By how much a person's click changes it.")
            .property("default", "The value of a new node.")
            .method<"offset_value", Form<&DoubleAttribute::offsetValue, "range, delta">>(
                "Adds to the values at a frame, or over the frames of [first, last]; what lies outside stays."),
        resettableClass<BoolAttribute, "frame, value">("BoolAttribute", "An attribute that is on or off."),
        valueClass<IntAttribute, "frame, value, adjust_column=False">("IntAttribute",
                                                                      "An attribute whose value is a whole number.")
            .property("minimum", "The smallest value.")
            .property("maximum", "The largest value.")
            .property("step", "By how much a person's click changes it.")
            .method<"offset_value", Form<&IntAttribute::offsetValue, "range, delta">>(
                "Adds to the values at a frame, or over the frames of [first, last]; what lies outside stays."),
        valueClass<TextAttribute, "frame, value">("TextAttribute", "An attribute whose value is a text."),
        Class<AttributeList>("AttributeList", "The attributes of a node, or those inside one attribute. "
                                              "list[\"position.x\"] finds one by its dotted path.")
            .method<"contains", Form<&AttributeList::contains, "attribute">>(
                "Whether an attribute, or one of that keyword or path, is there."),
    };
}

} // namespace brindle::python
