#pragma once

#include <cstddef>
#include <cstdint>

/// The door of libBrindleImageIO, a module of its own because OpenImageIO brings some 260 libraries along. Nothing of
/// OpenImageIO's crosses it, nor any memory that the other side would have to free.
extern "C" {

enum BrindleImageDepth { BrindleImageBytes = 1, BrindleImageWords = 2, BrindleImageFloats = 4 };

/// Pixels of red, green, blue and alpha, row by row from the top without gaps, in the byte order of the machine.
struct BrindleImage {
    int width;
    int height;
    BrindleImageDepth depth; ///< Bytes a channel.
    int isMultiplied;        ///< Whether colours are multiplied by alpha.
    void* pixels;
};

struct BrindleImageText {
    const char* key; ///< UTF-8, as all texts here.
    const char* value;
};

struct BrindleImageIO {
    /// Reads a file. `begin` is called with its size and depth, and gives memory for the pixels, or null to end it;
    /// `profile` is called with its ICC profile, where it has one. 0 on failure, with one line in `error`.
    int (*read)(const char* path, void* caller, void* (*begin)(void* caller, const BrindleImage* image),
                void (*profile)(void* caller, const void* bytes, std::size_t size), char* error, std::size_t errorSize);
    /// Writes a file in the format that its ending stands for, without alpha where that has none. `compression` and
    /// `quality` (0 for the format's own) are the format's. 0 on failure.
    int (*write)(const char* path, const BrindleImage* image, const char* compression, int quality, const void* profile,
                 std::size_t profileSize, const BrindleImageText* texts, std::size_t textCount, char* error,
                 std::size_t errorSize);
};

constexpr int BrindleImageIOVersion = 1;

/// The functions; null for a version of this header that the module doesn't have.
using BrindleImageIOEntry = const BrindleImageIO* (*)(int version);
}
