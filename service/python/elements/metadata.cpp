#include "core/elements/metadatahandler.h"
#include "core/elements/metadatapair.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

QStringList namesOf(const OMC::MetaDataHandler& metadata)
{
    return metadata.map().keys();
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<MetaDataHandler>()
            .alias("MetaDataValue", "str | float | bool | None",
                   "A value that metadata hold; None where there is none.")
            .items("MetaDataPair")
            .keys<&namesOf>()
            .method<"remove", Form<&MetaDataHandler::remove, "key">>()
            .method<"map", Form<&MetaDataHandler::map, "-> dict[str, MetaDataValue | list[MetaDataValue]]">>()
            .method<"create_metadata_pair_at_idx", Form<&MetaDataHandler::createMetadataPairAtIdx, "index">>(),
        Class<MetaDataPair>().property<&MetaDataPair::getValue>("value", "MetaDataValue | list[MetaDataValue]",
                                                                "MetaDataValue"),
    };
});

} // namespace

} // namespace brindle::python
