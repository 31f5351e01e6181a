#include "core/metrics/metrics.h"

#include "core/metrics/nodevisitoptions.h"
#include "core/metrics/playbackoptions.h"
#include "core/metrics/reportoptions.h"
#include "service/python/enginegate.h"
#include "service/python/options.h"

namespace brindle::python {

namespace {

using OMC::Metrics;
using OMC::NodeVisitOptions;
using OMC::PlaybackOptions;
using OMC::ReportOptions;

/// Measures without Python's lock: script threads, and functions that the event loop calls, go on meanwhile.
template <typename Work>
decltype(auto) measuring(Work&& work)
{
    const EngineGate::WaitForMainThread outside;
    return std::forward<Work>(work)();
}

void report(Metrics& metrics, const OptionsArgument<ReportOptions>& options)
{
    measuring([&] { metrics.generatePerformanceReport(options.handle); });
}

QList<QString> visits(Metrics& metrics, const OptionsArgument<NodeVisitOptions>& options)
{
    return measuring([&] { return metrics.generateNodeVisitData(options.handle); });
}

QList<QString> playback(Metrics& metrics, const OptionsArgument<PlaybackOptions>& options)
{
    return measuring([&] { return metrics.generatePlaybackRenderingTime(options.handle); });
}

const Family family([]() -> std::vector<ClassTable> {
    return {
        Class<Metrics>()
            .method<"generate_performance_report", Form<&report, "options: ReportOptions | OptionsLike | None=None">>()
            .method<"generate_node_visit_data",
                    Form<&visits, "options: NodeVisitOptions | OptionsLike | None=None -> list[str]">>()
            .method<"generate_playback_rendering_time",
                    Form<&playback, "options: PlaybackOptions | OptionsLike | None=None -> list[str]">>()
            .method<"generate_static_info", Form<&Metrics::generateStaticInfo, "-> list[str]">>(),
        optionsClass<NodeVisitOptions>()
            .constructors<Construct<&newOf<NodeVisitOptions>>,
                          Construct<&newOf<NodeVisitOptions, QVariant>, "value: OptionsLike">>()
            .member<&NodeVisitOptions::frame>("frame")
            .member<&NodeVisitOptions::topCount>("top_count")
            .member<&NodeVisitOptions::cacheEnabled>("cache_enabled"),
        optionsClass<PlaybackOptions>()
            .constructors<Construct<&newOf<PlaybackOptions>>,
                          Construct<&newOf<PlaybackOptions, QVariant>, "value: OptionsLike">>()
            .member<&PlaybackOptions::frameStart>("frame_start")
            .member<&PlaybackOptions::frameEnd>("frame_end")
            .member<&PlaybackOptions::loopCount>("loop_count")
            .member<&PlaybackOptions::cacheEnabled>("cache_enabled"),
        optionsClass<ReportOptions>()
            .constructors<Construct<&newOf<ReportOptions>>,
                          Construct<&newOf<ReportOptions, QVariant>, "value: OptionsLike">>()
            .member<&ReportOptions::frameStart>("frame_start")
            .member<&ReportOptions::frameEnd>("frame_end")
            .member<&ReportOptions::splitCount>("split_count")
            .member<&ReportOptions::loopCount>("loop_count")
            .member<&ReportOptions::topCount>("top_count")
            .member<&ReportOptions::cacheEnabled>("cache_enabled")
            .member<&ReportOptions::filePath>("file_path"),
    };
});

} // namespace

} // namespace brindle::python
