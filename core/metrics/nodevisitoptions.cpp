#include "core/metrics/nodevisitoptions.h"

#include "core/frame/optionfields.h"

namespace OMC {

namespace {

constexpr options::Field<NodeVisitOptions> visitFields[] = {
    {"frame", &NodeVisitOptions::frame},
    {"top_count", &NodeVisitOptions::topCount},
    {"cache_enabled", &NodeVisitOptions::cacheEnabled},
};

} // namespace

NodeVisitOptions::NodeVisitOptions(const QVariant& value)
{
    options::read<NodeVisitOptions>(*this, value, visitFields, visitFields);
}

QVariantMap NodeVisitOptions::fields() const
{
    return options::values<NodeVisitOptions>(*this, visitFields);
}

std::string NodeVisitOptions::__str__() const
{
    return options::text<NodeVisitOptions>("NodeVisitOptions", *this, visitFields);
}

} // namespace OMC
