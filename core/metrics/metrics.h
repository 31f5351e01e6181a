#pragma once

#include "core/frame/baseobject.h"
#include "core/frame/obj.h"

#include <QList>
#include <QString>

#include <memory>

namespace OMC {

/// Measures how fast the open scene is traversed, computed, rendered and played, and writes a report about it.
///
/// It drives the application: it moves the current frame and plays the scene. Each operation waits in an event loop, so
/// the application stays alive meanwhile; its user had better leave it alone. On the main thread of an application.
/// Times are in milliseconds.
class BRINDLE_CORE_EXPORT Metrics : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Metrics)

public:
    Metrics();
    Metrics(const Metrics& other); ///< Shares nothing with the other one.
    ~Metrics() override;

    std::string __str__() const override;

    /// Tests frames one by one, plays the scene, and writes the ratings and all figures to a CSV file: a rating of 100
    /// means that the scene keeps up with the project's frame rate. Without options, 5 loops over all frames and every
    /// tenth frame, into the scene's folder. Needs a visible camera view.
    void generatePerformanceReport(const Obj& options);
    /// How often each node is visited for a frame, and what it takes: lines of lists, those with the most first.
    /// Without options, 10 nodes at the current frame.
    QList<QString> generateNodeVisitData(const Obj& options);
    /// Plays the scene, and gives the averages over its frames. Without options, once over all frames. Needs a visible
    /// camera view.
    QList<QString> generatePlaybackRenderingTime(const Obj& options);
    QList<QString> generateStaticInfo(); ///< Facts about the machine, the project and the views, a line each.

public Q_SLOTS:
    void calculateNodeVisit();    ///< Shows the frame of a visit, and reads what the nodes took.
    void onCurrentFrameChanged(); ///< Takes a sample of the playback.

Q_SIGNALS:
    void resultAvailable(); ///< A measurement has come to its end.

private:
    void reset();
    void resetTotals();
    void endPlayback();

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC
