#include "core/metrics/reportoptions.h"

#include "core/frame/optionfields.h"
#include "core/host/pr_preference.h"

#include <span>

namespace OMC {

namespace {

constexpr options::Field<ReportOptions> reportFields[] = {
    {"frame_start", &ReportOptions::frameStart}, {"frame_end", &ReportOptions::frameEnd},
    {"split_count", &ReportOptions::splitCount}, {"loop_count", &ReportOptions::loopCount},
    {"top_count", &ReportOptions::topCount},     {"cache_enabled", &ReportOptions::cacheEnabled},
    {"file_path", &ReportOptions::filePath},
};

/// Required: a dictionary alone tells the file.
constexpr std::span positions = std::span(reportFields).first<6>();

} // namespace

ReportOptions::ReportOptions() : cacheEnabled(PR_CachedPreferences::getOpenGLEnablePlaybackCache()) {}

ReportOptions::ReportOptions(const QVariant& value) : ReportOptions()
{
    options::read<ReportOptions>(*this, value, reportFields, positions);
}

QVariantMap ReportOptions::fields() const
{
    return options::values<ReportOptions>(*this, reportFields);
}

std::string ReportOptions::__str__() const
{
    return options::text<ReportOptions>("ReportOptions", *this, reportFields);
}

} // namespace OMC
