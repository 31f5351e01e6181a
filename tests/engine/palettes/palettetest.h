#pragma once

#include "core/host/cm_palettemanager.h"
#include "core/host/co_command.h"
#include "core/host/sc_session.h"
#include "tests/engine/folder/foldertest.h"

#include <QImage>

/// An open project in a folder, with short ways to its palettes.
class PaletteProjectTest : public testing::Test {
public:
    using Files = FolderTest::Files;
    using Palette = std::shared_ptr<CM_Palette>;
    using List = std::shared_ptr<CM_PaletteList>;

    PaletteProjectTest();

    QString path(const QString& name = QStringLiteral("project")) const { return m_dir.filePath(name); }
    QString library() const { return path() + QStringLiteral("/palette-library/"); }
    static CM_PaletteManager& manager() { return *CM_PaletteManager::GetInstance(); }
    SC_ProjectManager& projects() { return *m_session->projectManager(); }

    void create(const QString& name = QStringLiteral("project"));
    void open(const QString& name = QStringLiteral("project"));
    void save();
    QString saveError(); ///< The sentence of a save that fails; empty when it works.
    /// Closes the project without a save.
    void close() { projects().closeProject(); }
    void reopen()
    {
        close();
        open();
    }

    List list(); ///< The project's.
    /// A palette on the project's list, whose file is "palette-library/<name>.plt" unless a path is given. It is on
    /// disk.
    Palette add(const QString& name);
    Palette addAt(const QString& file);
    /// Takes a palette off the list and its files to ".deleted", and gives where they are.
    QString remove(const Palette& palette);
    Palette palette(const QString& name); ///< On the project's list, and read.

    static std::shared_ptr<CM_Color> solid(const QString& name, const CM_Rgba& rgba = {1, 2, 3, 255});
    static std::shared_ptr<CM_Texture> texture(const QString& name, int side, const QColor& colour = Qt::red);
    static QStringList names(const CM_Palette& palette);

    Files files() const { return FolderTest::filesOf(path()); } ///< Of the project's folder.
    static QByteArray get(const QString& file) { return FolderTest::get(file); }
    static void put(const QString& file, const QByteArray& content) { FolderTest::put(file, content); }

    /// What the log says meanwhile.
    template <typename Action>
    static QString logged(Action action)
    {
        testing::internal::CaptureStderr();
        action();
        return QString::fromStdString(testing::internal::GetCapturedStderr()).trimmed();
    }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<SC_SessionContext> m_session = SC_SessionContext::create();
};
