#pragma once

#include "core/frame/scriptenginegenerator.h"
#include "core/frame/vectorizationinterface.h"
#include "engine/engine.h"

#include <cstdio>
#include <memory>
#include <string>

using Scripts = OMC::ScriptEngineGeneratorInterface;
namespace Vectorization = OMC::VectorizationInterface;

inline const std::string noEngine = "Failed to load Javascript Engine.";
inline const std::string noProject = "Failed to register project to Javascript Engine.\n";
inline const std::string noVectorization = "Failed to load Vectorization Interface.\n";

/// The host's side of a case: a batch of Python with a session and an application.
struct LoadingHost {
    std::unique_ptr<brindle::engine::Application> application =
        std::make_unique<brindle::engine::Application>(QStringLiteral("test"), QStringLiteral("1"), false);
    std::unique_ptr<SC_SessionContext> session = brindle::engine::createPythonSession();

    void tell(const char* what) const { std::fprintf(stderr, "(%s)", what); }
    /// Tells what is registered with the application.
    void look() const
    {
        tell(application->scriptHost()->scriptEngine() ? "engine" : "no engine");
        tell(application->scriptHost()->vectorizationInterface() ? "vectorization" : "no vectorization");
    }
    void load() const { Scripts::loadScriptInterface(session.get()); }
    void unload() const { Scripts::unloadScriptInterface(session.get()); }
    void destroy() const { Scripts::destroyScriptInterface(session.get()); }
    void loadProject() const { Scripts::loadProject(session.get(), nullptr); }
    void unloadProject() const { Scripts::unloadProject(session.get()); }
    void loadVectorization() const { Vectorization::loadInterface(session.get()); }
};
