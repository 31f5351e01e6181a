#include "engine/folder/holderlock.h"
#include "tests/engine/palettes/palettetest.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using brindle::engine::Folder;
using brindle::engine::HolderLock;

namespace {

/// A process that holds the lock of a file in a folder, until it is killed.
class Holder {
public:
    Holder(const QString& folder, const QString& file)
    {
        int ready[2];
        EXPECT_EQ(::pipe(ready), 0);
        m_process = ::fork();
        if (m_process == 0) {
            HolderLock lock(file + QStringLiteral(".lock"), file);
            lock.require(Folder(folder));
            (void)!::write(ready[1], "x", 1);
            for (;;)
                ::pause();
        }
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~Holder() { end(); }
    void end()
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
        }
        m_process = 0;
    }
    pid_t process() const { return m_process; }

private:
    pid_t m_process = 0;
};

} // namespace

class PaletteLockTest : public PaletteProjectTest {
public:
    PaletteLockTest()
    {
        add("Skin");
        save();
    }
    /// The sentence about a file that a process has.
    QString inUse(const QString& file, qint64 process) const
    {
        const QString program = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).fileName();
        return QStringLiteral("\"%1\" is in use by %2 on %3 (%4, process %5).")
            .arg(file, QFileInfo(path()).owner(), QSysInfo::machineHostName(), program)
            .arg(process);
    }
};

TEST_F(PaletteLockTest, ALockIsAFileBesideThePaletteFromTakingToGivingBack)
{
    const Files before = files();
    const Palette skin = palette("Skin");
    EXPECT_FALSE(skin->IsLocked());
    EXPECT_FALSE(manager().UnlockPalette(skin));
    EXPECT_TRUE(manager().LockPalette(skin, nullptr));
    EXPECT_TRUE(manager().LockPalette(skin, nullptr));
    EXPECT_TRUE(skin->IsLocked());
    EXPECT_TRUE(QFile::exists(library() + "Skin.plt.lock"));
    EXPECT_FALSE(manager().IsHeldByOther(skin, nullptr));
    skin->GetColor(0)->Rename("Locked");
    save();
    EXPECT_TRUE(manager().UnlockPalette(skin));
    EXPECT_FALSE(skin->IsLocked());
    EXPECT_EQ(files().keys(), before.keys());

    EXPECT_TRUE(manager().LockPaletteList(list(), nullptr));
    EXPECT_TRUE(list()->IsLocked());
    EXPECT_TRUE(QFile::exists(library() + "palette-list.json.lock"));
    EXPECT_TRUE(manager().UnlockPaletteList(list()));
    EXPECT_FALSE(manager().UnlockPaletteList(list()));
    EXPECT_EQ(files().keys(), before.keys());
}

TEST_F(PaletteLockTest, ClosingTheProjectGivesItsLocksBack)
{
    const Files before = files();
    manager().LockPalette(palette("Skin"), nullptr);
    manager().LockPaletteList(list(), nullptr);
    const Palette kept = palette("Skin");
    close();
    EXPECT_EQ(files(), before);
    EXPECT_FALSE(kept->IsLocked());
}

TEST_F(PaletteLockTest, ALockGoesAlongWithTheProject)
{
    const Palette skin = palette("Skin");
    manager().LockPalette(skin, nullptr);
    manager().LockPaletteList(list(), nullptr);
    QString error;
    ASSERT_TRUE(projects().saveProjectAs(path("copy"), error)) << error.toStdString();
    EXPECT_TRUE(skin->IsLocked());
    EXPECT_TRUE(QFile::exists(path("copy/palette-library/Skin.plt.lock")));
    EXPECT_FALSE(QFile::exists(library() + "Skin.plt.lock"));
    EXPECT_FALSE(QFile::exists(library() + "palette-list.json.lock"));

    ASSERT_TRUE(QFile::rename(path("copy"), path("moved")));
    ASSERT_TRUE(projects().saveProjectAs(path("moved"), error)) << error.toStdString();
    EXPECT_TRUE(skin->IsLocked());
    EXPECT_TRUE(manager().UnlockPalette(skin));
    EXPECT_TRUE(manager().UnlockPaletteList(list()));
    EXPECT_FALSE(QFile::exists(path("moved/palette-library/Skin.plt.lock")));
    EXPECT_FALSE(QFile::exists(path("moved/palette-library/palette-list.json.lock")));
}

TEST_F(PaletteLockTest, WhatAnotherProcessHoldsIsToldAndNotWritten)
{
    Holder other(path("project/palette-library"), "Skin.plt");
    const Palette skin = palette("Skin");
    const QString sentence = inUse(library() + "Skin.plt", other.process());
    QString holder;
    EXPECT_EQ(logged([&] { EXPECT_FALSE(manager().LockPalette(skin, &holder)); }), "Error: " + sentence);
    EXPECT_EQ(holder, sentence);
    holder.clear();
    EXPECT_TRUE(manager().IsHeldByOther(skin, &holder));
    EXPECT_EQ(holder, sentence);

    save(); // Nothing has changed.
    skin->GetColor(0)->Rename("Changed");
    const Files before = files();
    EXPECT_EQ(saveError() + u'\n', "Cannot save the project: " + sentence + u'\n');
    EXPECT_FALSE(manager().SavePalette(skin, &holder));
    EXPECT_EQ(files(), before);

    other.end();
    EXPECT_FALSE(manager().IsHeldByOther(skin, nullptr));
    save();
    EXPECT_TRUE(manager().LockPalette(skin, nullptr));
}

TEST_F(PaletteLockTest, AListThatAnotherProcessHoldsIsNotWritten)
{
    const Holder other(path("project/palette-library"), "palette-list.json");
    const QString sentence = inUse(library() + "palette-list.json", other.process());
    QString holder;
    EXPECT_FALSE(manager().LockPaletteList(list(), &holder));
    EXPECT_EQ(holder, sentence);
    EXPECT_TRUE(manager().IsHeldByOther(list(), nullptr));
    palette("Skin")->GetColor(0)->Rename("Changed");
    save();
    add("Cloth");
    const Files before = files();
    EXPECT_EQ(saveError(), "Cannot save the project: " + sentence);
    EXPECT_EQ(files(), before);
}

TEST_F(PaletteLockTest, AProcessThatWasForkedOffHoldsNoLock)
{
    const Palette skin = palette("Skin");
    manager().LockPalette(skin, nullptr);
    EXPECT_EQ(inChild([&] { return int(skin->IsLocked()) + 2 * manager().LockPalette(skin, nullptr); }), 0);
    EXPECT_TRUE(skin->IsLocked());
    EXPECT_TRUE(QFile::exists(library() + "Skin.plt.lock"));
}
