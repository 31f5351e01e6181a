#include "core/frame/scriptenginegenerator.h"

#include "core/frame/scriptservices.h"
#include "core/frame/servicelibrary.h"

#include <memory>

namespace OMC {

namespace {

// Neither is destroyed by the end of the process: the library that they come from may have ended before.
std::unique_ptr<ScriptEngineGenerator>& generatorInstance()
{
    static auto* instance = new std::unique_ptr<ScriptEngineGenerator>;
    return *instance;
}

std::unique_ptr<BAPP_ScriptEngine>& scriptEngine()
{
    static auto* engine = new std::unique_ptr<BAPP_ScriptEngine>;
    return *engine;
}

void reportNoEngine()
{
    reportScriptFailure(QStringLiteral("Failed to load Javascript Engine."));
}

} // namespace

ScriptEngineGeneratorInterface::~ScriptEngineGeneratorInterface() = default;
ScriptEngineGenerator::~ScriptEngineGenerator() = default;

ScriptEngineGenerator* ScriptEngineGeneratorInterface::instance()
{
    return generatorInstance().get();
}

void ScriptEngineGeneratorInterface::setInstance(ScriptEngineGenerator* generator)
{
    if (generator != generatorInstance().get())
        generatorInstance().reset(generator);
}

void ScriptEngineGeneratorInterface::loadScriptInterface(SC_SessionContext* session)
{
    if (!ST_BatchParams::isBatchPython() || !session)
        return;
    BAPP_ScriptHost* host = scriptHost();
    if (!host) {
        reportNoEngine();
        return;
    }
    if (scriptEngine()) {
        host->setScriptEngine(scriptEngine().get());
        return;
    }
    loadServiceLibrary();
    ScriptEngineGenerator* generator = instance();
    if (!generator) {
        reportNoEngine();
        return;
    }
    scriptEngine().reset(generator->create(session));
    if (!scriptEngine()) {
        reportNoEngine();
        return;
    }
    host->setScriptEngine(scriptEngine().get());
}

void ScriptEngineGeneratorInterface::unloadScriptInterface(SC_SessionContext*)
{
    if (BAPP_ScriptHost* host = scriptHost())
        host->setScriptEngine(nullptr);
}

void ScriptEngineGeneratorInterface::destroyScriptInterface(SC_SessionContext*)
{
    scriptEngine().reset();
}

void ScriptEngineGeneratorInterface::loadProject(SC_SessionContext* session, SC_Project* project)
{
    if (ScriptEngineGenerator* generator = instance())
        generator->loadProject(session, project);
    else
        reportScriptFailure(QStringLiteral("Failed to register project to Javascript Engine.\n"));
}

void ScriptEngineGeneratorInterface::unloadProject(SC_SessionContext* session)
{
    if (ScriptEngineGenerator* generator = instance())
        generator->unloadProject(session);
}

} // namespace OMC
