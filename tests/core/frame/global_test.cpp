#include "core/frame/global.h"

#include "core/host/tu_dbaccess.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/standins.h"

namespace {

TEST(GlobalTest, TheSessionIsTheHosts)
{
    EXPECT_EQ(OMC::Global::sessionContext(), nullptr);
    const StandInSession session;
    EXPECT_EQ(OMC::Global::sessionContext(), &session);
}

TEST(GlobalTest, TheDatabaseIsTheOneThatTheProjectLiesIn)
{
    class StudioProject : public StandInProjectCommon {
    public:
        TUDbAccess* dbAccessPriv() const override { return const_cast<TUDbAccess*>(&database); }
        TUDbAccess database;
    };
    StudioProject project;
    StandInSession session;
    session.common = &project;
    EXPECT_EQ(OMC::Global::dbAccess(), &project.database);
}

TEST(GlobalTest, AProjectInAFolderHasItsTablesAndNoDatabase)
{
    const OpenProject project;
    EXPECT_EQ(OMC::Global::dbAccess(), nullptr);
    EXPECT_NE(OMC::Global::dbSceneData(), nullptr);
    EXPECT_EQ(OMC::Global::dbSceneData(), project.projectCommon()->dbSceneData());
}

} // namespace
