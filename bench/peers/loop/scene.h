#pragma once

#include <array>
#include <string>
#include <vector>

/// Pictures that programs with nothing but a rasteriser draw; bench/peers/flat.py describes the text.
namespace peers {

struct Point {
    double x = 0;
    double y = 0;
};

/// A step along a path: a point that a new contour starts at, a line's end, or a cubic's two handles and end.
struct Segment {
    enum Kind { Move, Line, Cubic, Close };
    Kind kind = Move;
    std::array<Point, 3> points{};
};

using Path = std::vector<Segment>;

struct Fill {
    std::size_t path = 0;
    std::array<double, 6> matrix{}; ///< a b c d e f: x' = a x + c y + e, y' = b x + d y + f
    std::array<int, 4> colour{};    ///< red, green, blue, alpha; 0 to 255, not premultiplied
};

struct Step {
    enum Kind { Draw, Over, Cut, Blur };
    Kind kind = Draw;
    std::vector<Fill> fills; ///< of Draw
    double deviation = 0;    ///< of Blur, in pixels
};

struct Scene {
    int width = 0;
    int height = 0;
    std::vector<Path> paths;
    std::vector<std::vector<Step>> frames;

    /// Throws std::runtime_error for a file that can't be read.
    static Scene read(const std::string& file);
};

} // namespace peers
