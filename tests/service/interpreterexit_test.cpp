#include "core/frame/baseobject.h"
#include "service/python/pyref.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// Runs a script in an interpreter of its own, ends the interpreter, and leaves the process: with 0 when the script
/// succeeded and no object of the object model is left.
[[noreturn]] void runAndExit(const std::string& script, const QString& folder)
{
    PyConfig config;
    PyConfig_InitPythonConfig(&config);
    config.install_signal_handlers = 0;
    PyConfig_SetBytesString(&config, &config.program_name, "/usr/bin/python3");
    if (PyStatus_Exception(Py_InitializeFromConfig(&config)))
        std::_Exit(101);
    PyConfig_Clear(&config);
    const std::string prepared = "import brindle\nfolder = '" + folder.toStdString() + "/project'\n" + script;
    if (PyRun_SimpleString(prepared.c_str()) != 0)
        std::_Exit(102);
    if (Py_FinalizeEx() != 0)
        std::_Exit(103);
    const qint64 left = OMC::BaseObject::liveObjects();
    std::fprintf(stderr, "%lld objects left\n", static_cast<long long>(left));
    std::_Exit(left == 0 ? 0 : 104);
}

struct Ending {
    const char* name;
    const char* script;
};

class InterpreterExit : public testing::TestWithParam<Ending> {};

TEST_P(InterpreterExit, LeavesNoObjectAlive)
{
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(runAndExit(GetParam().script, folder.path()), testing::ExitedWithCode(0), "0 objects left");
}

const Ending endings[] = {
    {"WithNothingMade", ""},
    {"WithAProjectOpen", "app = brindle.create(folder)\n"},
    {"WithAProjectClosed", "app = brindle.create(folder)\nscene = app.scene\napp.close()\n"},
    {"WithObjectsInGlobals", "app = brindle.create(folder)\n"
                             "node = app.scene.nodes.create('PEG', 'Arm')\n"
                             "attributes = [a for a in node.attributes]\n"
                             "nodes = list(app.scene.nodes)\n"
                             "position = node.position\n"},
    {"WithALoopInTheMiddle", "app = brindle.create(folder)\n"
                             "loop = iter(app.scene.nodes)\n"
                             "first = next(loop)\n"},
    {"WithObjectsInACycle", "app = brindle.create(folder)\n"
                            "class Holder: pass\n"
                            "holder = Holder()\n"
                            "holder.me = holder\n"
                            "holder.scene = app.scene\n"
                            "del holder\n"},
    {"WithAMethodBound", "app = brindle.create(folder)\nsave = app.save\ncreate = app.scene.nodes.create\n"},
    {"WithAFunctionInAWrapper", "app = brindle.create(folder)\n"
                                "function = brindle.PythonFunction(lambda: app)\n"
                                "copies = [function.copy(), function.copy()]\n"},
    {"WithTheExceptionOfAFunctionKept", "app = brindle.create(folder)\n"
                                        "try:\n"
                                        "    app.run_function(lambda: app.scene.nodes[0.5])\n"
                                        "except TypeError as e:\n"
                                        "    kept = e\n"},
    {"InsideALockedBlock", "app = brindle.create(folder)\n"
                           "block = app.locked()\n"
                           "block.__enter__()\n"},
    {"WithAnExceptionKept", "app = brindle.create(folder)\n"
                            "try:\n"
                            "    app.scene.frame_count = 0\n"
                            "except brindle.Error as e:\n"
                            "    kept = e\n"},
};

INSTANTIATE_TEST_SUITE_P(Each, InterpreterExit, testing::ValuesIn(endings),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
