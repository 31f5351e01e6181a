#include "render/imageio/imageio.h"

#include <OpenImageIO/imageio.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr int channels = 4;

void say(const std::string& text, char* error, std::size_t size)
{
    std::string line = text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    const std::size_t length = std::min(line.find_last_not_of(' ') + 1, size - 1);
    std::memcpy(error, line.data(), length);
    error[length] = 0;
}

OIIO::TypeDesc typeOf(BrindleImageDepth depth)
{
    return depth == BrindleImageBytes   ? OIIO::TypeDesc::UINT8
           : depth == BrindleImageWords ? OIIO::TypeDesc::UINT16
                                        : OIIO::TypeDesc::FLOAT;
}

BrindleImageDepth depthOf(const OIIO::ImageSpec& spec)
{
    return spec.format == OIIO::TypeDesc::UINT8    ? BrindleImageBytes
           : spec.format == OIIO::TypeDesc::UINT16 ? BrindleImageWords
                                                   : BrindleImageFloats;
}

/// Spreads what a file has of channels over four: grey is in all colours, and a picture without alpha is opaque.
template <typename Channel>
void spread(Channel* pixels, std::size_t count, int found, Channel full)
{
    for (std::size_t i = 0; i < count; ++i, pixels += channels) {
        if (found == 2)
            pixels[3] = pixels[1];
        if (found <= 2)
            pixels[1] = pixels[2] = pixels[0];
        if (found == 1 || found == 3)
            pixels[3] = full;
    }
}

int read(const char* path, void* caller, void* (*begin)(void* caller, const BrindleImage* image),
         void (*profile)(void* caller, const void* bytes, std::size_t size), char* error, std::size_t errorSize)
try {
    OIIO::ImageSpec wish;
    wish.attribute("oiio:UnassociatedAlpha", 1);
    const auto input = OIIO::ImageInput::open(path, &wish);
    if (!input) {
        say(OIIO::geterror(), error, errorSize);
        return 0;
    }
    const OIIO::ImageSpec spec = input->spec();
    const int found = std::min(spec.nchannels, channels);
    BrindleImage image{spec.width, spec.height, depthOf(spec), 0, nullptr};
    image.isMultiplied = spec.alpha_channel >= 0 && spec.get_int_attribute("oiio:UnassociatedAlpha") == 0;
    image.pixels = begin(caller, &image);
    if (!image.pixels)
        return 0;
    if (!input->read_image(0, 0, 0, found, typeOf(image.depth), image.pixels, image.depth * channels)) {
        say(input->geterror(), error, errorSize);
        return 0;
    }
    const std::size_t count = std::size_t(spec.width) * std::size_t(spec.height);
    if (image.depth == BrindleImageBytes)
        spread<std::uint8_t>(static_cast<std::uint8_t*>(image.pixels), count, found, 255);
    else if (image.depth == BrindleImageWords)
        spread<std::uint16_t>(static_cast<std::uint16_t*>(image.pixels), count, found, 65535);
    else
        spread<float>(static_cast<float*>(image.pixels), count, found, 1.0f);
    if (const OIIO::ParamValue* icc = spec.find_attribute("ICCProfile"))
        profile(caller, icc->data(), std::size_t(icc->datasize()));
    return 1;
} catch (const std::exception& failure) {
    say(failure.what(), error, errorSize);
    return 0;
}

int write(const char* path, const BrindleImage* image, const char* compression, int quality, const void* profile,
          std::size_t profileSize, const BrindleImageText* texts, std::size_t textCount, char* error,
          std::size_t errorSize)
try {
    const auto output = OIIO::ImageOutput::create(path);
    if (!output) {
        say(OIIO::geterror(), error, errorSize);
        return 0;
    }
    const bool hasAlpha = output->supports("alpha");
    OIIO::ImageSpec spec(image->width, image->height, hasAlpha ? channels : 3, typeOf(image->depth));
    if (hasAlpha && !image->isMultiplied)
        spec.attribute("oiio:UnassociatedAlpha", 1);
    if (*compression)
        spec.attribute("compression", quality ? compression + (":" + std::to_string(quality)) : compression);
    else if (quality)
        spec.attribute("CompressionQuality", quality);
    if (profileSize)
        spec.attribute("ICCProfile", OIIO::TypeDesc(OIIO::TypeDesc::UINT8, int(profileSize)), profile);
    for (std::size_t i = 0; i < textCount; ++i)
        spec.attribute(texts[i].key, texts[i].value);
    if (output->open(path, spec) && output->write_image(typeOf(image->depth), image->pixels, image->depth * channels) &&
        output->close())
        return 1;
    say(output->geterror(), error, errorSize);
    return 0;
} catch (const std::exception& failure) {
    say(failure.what(), error, errorSize);
    return 0;
}

const BrindleImageIO functions = {read, write};

} // namespace

extern "C" __attribute__((visibility("default"))) const BrindleImageIO* brindleImageIO(int version)
{
    return version == BrindleImageIOVersion ? &functions : nullptr;
}
