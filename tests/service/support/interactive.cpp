#include "tests/service/support/interactive.h"

#include "core/frame/baseobject.h"
#include "core/frame/scriptenginegenerator.h"

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void give(int code, const QString& text)
{
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    std::fflush(stderr);
    std::_Exit(code);
}

} // namespace

Interactive::Interactive()
    : m_loop(std::make_unique<brindle::engine::MainLoop>()),
      m_session(brindle::engine::createPythonSession())
{
    QString error;
    SC_Project* project = m_session->projectManager()->createProject(m_folder.filePath("project"), error);
    // The service library is loaded as a batch loads it; an application of windows would have its own way.
    brindle::engine::setBatchMode(brindle::engine::BatchMode::Python);
    OMC::ScriptEngineGeneratorInterface::loadScriptInterface(m_session.get());
    m_scripts = m_application.scriptHost()->scriptEngine();
    if (!project || !m_scripts || !m_scripts->start(error))
        give(100, error);
    OMC::ScriptEngineGeneratorInterface::loadProject(m_session.get(), project);
    mustExecute("import brindle\napp = brindle.application()\n");
}

Interactive::~Interactive() = default;

bool Interactive::execute(const char* statements)
{
    return m_scripts->execute(QString::fromUtf8(statements));
}

void Interactive::mustExecute(const char* statements)
{
    if (!execute(statements))
        give(101, "a statement failed");
}

void Interactive::end(Part part)
{
    switch (part) {
    case Part::Project:
        OMC::ScriptEngineGeneratorInterface::unloadProject(m_session.get());
        if (m_session)
            m_session->projectManager()->closeProject();
        break;
    case Part::Scripting:
        OMC::ScriptEngineGeneratorInterface::unloadScriptInterface(m_session.get());
        OMC::ScriptEngineGeneratorInterface::destroyScriptInterface(m_session.get());
        m_scripts = nullptr;
        break;
    case Part::Session:
        m_session.reset();
        break;
    case Part::EventLoop:
        m_loop.reset();
        break;
    }
}

void Interactive::finish()
{
    for (const Part part : {Part::Project, Part::Scripting, Part::Session, Part::EventLoop})
        end(part);
    give(0, QStringLiteral("%1 objects left").arg(OMC::BaseObject::liveObjects()));
}
