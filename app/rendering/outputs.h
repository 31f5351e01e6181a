#pragma once

#include "core/host/sc_session.h"

#include <QString>

#include <vector>

class MO_Node;
class TUScene;

namespace app {

/// A node, and where the pictures of its frames go.
struct Output {
    MO_Node* node;
    QString pattern; ///< Of their paths; empty: nowhere but to the movie.
};

/// Where frames go that nothing tells a place for.
inline constexpr char defaultPattern[] = "frames/%04d.png";

/// What of a scene is to be drawn. Empty texts stand for what isn't told.
struct Wish {
    /// By its path; else each WRITE node that has a path, where neither `out` nor a movie is told; else the display.
    QString node;
    QString out;
    bool isForMovie = false;
};

/// Empty, with one sentence in `error`, where nothing can be drawn as it is told.
std::vector<Output> outputsOf(const Wish& wish, const SC_Project& project, TUScene& scene, QString& error);

} // namespace app
