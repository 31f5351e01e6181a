#include "core/nodes/nodedatahandler.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

QStringList keysOf(const OMC::NodeDataHandler& data)
{
    return data.list();
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<NodeDataHandler>()
            .constructor<&newOf<NodeDataHandler, QString>, "node_type">()
            .items("BaseObject")
            .keys<&keysOf>(),
    };
});

} // namespace

} // namespace brindle::python
