#include "core/scene/sceneunitconverter.h"

#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> sceneUnitConverterTables()
{
    using namespace OMC;
    using Converter = SceneUnitConverter;
    return {
        Class<Converter>("SceneUnitConverter", "Converts between a scene's fields and OpenGL units.")
            .method<"to_field", Form<pick<double, const QString&>(&Converter::toField), "value, axis">,
                    Form<pick<const QVariant&>(&Converter::toField), "point">>(
                "A point, or the coordinate of an axis \"x\", \"y\" or \"z\", from OpenGL units to fields.")
            .method<"to_ogl", Form<pick<double, const QString&>(&Converter::toOgl), "value, axis">,
                    Form<pick<const QVariant&>(&Converter::toOgl), "point">>(
                "A point, or the coordinate of an axis \"x\", \"y\" or \"z\", from fields to OpenGL units."),
    };
}

} // namespace brindle::python
