#include "bench/peers/loop/qtloop.h"
#include "bench/peers/loop/reference.h"

#include <QGuiApplication>
#include <QLibraryInfo>

#include <cstdio>
#include <fstream>
#include <stdexcept>

// Draws a scene for comparison: exactly, and by Qt's painter alone.
//   brindle_peers reference SCENE FILE                  the scene's last frame, as floats, into a file
//   brindle_peers qt SCENE 8|16 THREADS [FOLDER]        all frames; as PNG files where there is a folder
//   brindle_peers --version                             of Qt
int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    try {
        if (arguments.value(1) == "--version") {
            std::puts(qPrintable("Qt " + QLibraryInfo::version().toString()));
        } else if (arguments.value(1) == "reference" && arguments.size() == 4) {
            const peers::Scene scene = peers::Scene::read(arguments[2].toStdString());
            if (scene.frames.empty())
                throw std::runtime_error("there is no frame");
            const peers::Pixels pixels = peers::reference(scene, scene.frames.back());
            std::ofstream file(arguments[3].toStdString(), std::ios::binary);
            file.write(reinterpret_cast<const char*>(pixels.data()), std::streamsize(pixels.size() * sizeof(float)));
            if (!file.flush())
                throw std::runtime_error("can't write " + arguments[3].toStdString());
        } else if (arguments.value(1) == "qt" && (arguments.size() == 5 || arguments.size() == 6)) {
            peers::drawByQt(peers::Scene::read(arguments[2].toStdString()), arguments[3].toInt(), arguments[4].toInt(),
                            arguments.value(5));
        } else {
            std::fputs("usage: brindle_peers reference SCENE FILE | qt SCENE 8|16 THREADS [FOLDER] | --version\n",
                       stderr);
            return 2;
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "brindle_peers: %s\n", error.what());
        return 1;
    }
    return 0;
}
