#include "core/clipboard/copyoptions.h"

#include "core/frame/optionfields.h"

namespace OMC {

namespace {

constexpr options::Field<CopyOptions> copyFields[] = {
    {"add_modelling_dir", &CopyOptions::addModellingDir},
    {"add_scan_files", &CopyOptions::addScanFiles},
    {"include_default_camera_name", &CopyOptions::includeDefaultCameraName},
    {"start_frame_src", &CopyOptions::startFrameSrc},
    {"num_frame_src", &CopyOptions::numFrameSrc},
};

} // namespace

CopyOptions::CopyOptions(const QVariant& value)
{
    options::read<CopyOptions>(*this, value, copyFields, copyFields);
}

QVariantMap CopyOptions::fields() const
{
    return options::values<CopyOptions>(*this, copyFields);
}

std::string CopyOptions::__str__() const
{
    return options::text<CopyOptions>("CopyOptions", *this, copyFields);
}

} // namespace OMC
