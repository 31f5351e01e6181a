#pragma once

#include "core/host/sc_session.h"

#include <QString>

#include <vector>

class MO_Node;
class TUScene;

namespace app {

/// A node that is drawn, and the files of its frames.
struct Output {
    MO_Node* node;
    QString pattern; ///< Of the files' paths; empty where frames only go into a movie.
};

/// The files of frames where neither --out nor a WRITE node gives a path.
inline constexpr char defaultPattern[] = "frames/%04d.png";

/// What the command line asks for; empty texts where it doesn't.
struct OutputRequest {
    /// The path of a node. Where it is empty, the WRITE nodes that have a path are drawn, if there are such and neither
    /// `out` nor a movie is asked for; else the display.
    QString node;
    QString out; ///< The pattern of the files' paths.
    bool isForMovie = false;
};

/// The nodes of a scene that a request asks for. Empty, with one sentence in `error`, where one of them can't be drawn.
std::vector<Output> outputsOf(const OutputRequest& request, const SC_Project& project, TUScene& scene, QString& error);

} // namespace app
