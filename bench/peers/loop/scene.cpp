#include "bench/peers/loop/scene.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace peers {

namespace {

Path pathOf(const char* text)
{
    Path path;
    const auto coordinate = [&text] {
        char* end = nullptr;
        const double number = std::strtod(text, &end);
        if (end == text)
            throw std::runtime_error(std::string("a number is missing at ") + text);
        text = end;
        return number;
    };
    const auto point = [&coordinate] {
        const double x = coordinate();
        return Point{x, coordinate()};
    };
    while (*text) {
        switch (*text++) {
        case 'M':
            path.push_back({Segment::Move, {point()}});
            break;
        case 'L':
            path.push_back({Segment::Line, {point()}});
            break;
        case 'C': {
            const Point first = point();
            const Point second = point();
            path.push_back({Segment::Cubic, {first, second, point()}});
            break;
        }
        case 'Z':
            path.push_back({Segment::Close, {}});
            break;
        default:
            throw std::runtime_error(std::string("an unknown step of a path at ") + text);
        }
    }
    return path;
}

} // namespace

Scene Scene::read(const std::string& file)
{
    std::ifstream lines(file);
    if (!lines)
        throw std::runtime_error("can't read " + file);
    Scene scene;
    std::string line;
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "path") {
            scene.paths.push_back(pathOf(line.c_str() + 5));
            continue;
        }
        if (word == "size")
            words >> scene.width >> scene.height;
        else if (word == "frame")
            scene.frames.emplace_back();
        else if (scene.frames.empty())
            throw std::runtime_error("ahead of the first frame stands " + line);
        else if (word == "draw")
            scene.frames.back().push_back({});
        else if (word == "over")
            scene.frames.back().push_back({Step::Over, {}, 0});
        else if (word == "cut")
            scene.frames.back().push_back({Step::Cut, {}, 0});
        else if (word == "blur") {
            scene.frames.back().push_back({Step::Blur, {}, 0});
            words >> scene.frames.back().back().deviation;
        } else if (word == "fill" && !scene.frames.back().empty()) {
            Fill fill;
            words >> fill.path;
            for (double& number : fill.matrix)
                words >> number;
            for (int& channel : fill.colour)
                words >> channel;
            if (fill.path >= scene.paths.size())
                throw std::runtime_error("there is no such path: " + line);
            scene.frames.back().back().fills.push_back(fill);
        } else
            throw std::runtime_error("can't read " + line);
        if (words.fail())
            throw std::runtime_error("can't read " + line);
    }
    return scene;
}

} // namespace peers
