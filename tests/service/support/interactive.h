#pragma once

#include "core/host/application.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "engine/engine.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <memory>

/// An application that runs Python inside: event loop, session with a new project, interpreter. For a process of its
/// own, which it is the whole of; an interpreter can't be begun twice.
class Interactive {
public:
    /// Ends the process with 100 where something is missing.
    Interactive();
    Interactive(const Interactive&) = delete;
    Interactive& operator=(const Interactive&) = delete;
    ~Interactive();

    /// Runs statements in the main module; false when they raise, which is printed.
    bool execute(const char* statements);
    /// The same, but a failure ends the process with 101.
    void mustExecute(const char* statements);

    SC_SessionContext& session() { return *m_session; }
    TUScene& scene() { return dynamic_cast<TUScene&>(*m_session->projectManager()->project()->sceneAt(0)); }

    /// The parts of an application, which may end in any order.
    enum class Part { Project, Scripting, Session, EventLoop };
    void end(Part part);

    /// Ends what has not ended yet, and the process: with 0, and a line that says how many objects of the object model
    /// are left.
    [[noreturn]] void finish();

private:
    int m_count = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_qt{m_count, m_arguments};
    brindle::engine::Application m_application{QStringLiteral("test"), QStringLiteral("1"), true};
    QTemporaryDir m_folder;
    std::unique_ptr<brindle::engine::MainLoop> m_loop;
    std::unique_ptr<SC_SessionContext> m_session;
    BAPP_ScriptEngine* m_scripts = nullptr;
};

/// Runs `body(Interactive&)` in a process of its own, which must end well with this on standard error.
#define EXPECT_INTERACTIVE(body, text)                                                                                 \
    do {                                                                                                               \
        GTEST_FLAG_SET(death_test_style, "threadsafe");                                                                \
        EXPECT_EXIT(                                                                                                   \
            {                                                                                                          \
                Interactive application;                                                                               \
                body(application);                                                                                     \
                application.finish();                                                                                  \
            },                                                                                                         \
            testing::ExitedWithCode(0), text);                                                                         \
    } while (false)
