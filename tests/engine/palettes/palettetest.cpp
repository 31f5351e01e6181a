#include "tests/engine/palettes/palettetest.h"

#include <QBuffer>
#include <QColor>
#include <QDir>

PaletteProjectTest::PaletteProjectTest()
{
    create();
}

void PaletteProjectTest::create(const QString& name)
{
    QString error;
    ASSERT_TRUE(projects().createProject(path(name), error)) << error.toStdString();
}

void PaletteProjectTest::open(const QString& name)
{
    QString error;
    ASSERT_TRUE(projects().openProject(path(name), error)) << error.toStdString();
}

void PaletteProjectTest::save()
{
    EXPECT_EQ(saveError(), "");
}

QString PaletteProjectTest::saveError()
{
    QString error;
    return projects().saveProject(error) ? QString() : error;
}

PaletteProjectTest::List PaletteProjectTest::list()
{
    return manager().GetPaletteListFromPath(projects().project()->path(), true);
}

PaletteProjectTest::Palette PaletteProjectTest::add(const QString& name)
{
    return addAt(list()->GetPath() + QStringLiteral("/palette-library/") + name);
}

PaletteProjectTest::Palette PaletteProjectTest::addAt(const QString& file)
{
    auto palette = std::make_shared<CM_Palette>(CM_PalettePathFile(file));
    palette->AddDefaultColor();
    EXPECT_TRUE(list()->InsertPalette(palette, -1));
    EXPECT_TRUE(manager().SavePalette(palette));
    return palette;
}

QString PaletteProjectTest::remove(const Palette& palette)
{
    const QString file = palette->GetPath().filename(true);
    const QString base = palette->GetPath().path().ToString() + QStringLiteral("/.deleted/") + palette->GetDiskName();
    QString to = base;
    for (int number = 1; tufile::fileExists(to + QStringLiteral(".plt")); ++number)
        to = base + u'_' + QString::number(number);
    EXPECT_TRUE(tufile::MoveDir(file, to + QStringLiteral(".plt")));
    const QString textures = palette->GetPath().filename(false) + QStringLiteral("_textures");
    if (tufile::fileExists(textures)) {
        EXPECT_TRUE(tufile::MoveDir(textures, to + QStringLiteral("_textures")));
    }
    EXPECT_TRUE(list()->RemovePalette(palette->GetID()));
    manager().claimPalette(palette->GetID());
    return to + QStringLiteral(".plt");
}

PaletteProjectTest::Palette PaletteProjectTest::palette(const QString& name)
{
    for (const Palette& palette : list()->palettes()) {
        if (palette->GetDiskName() == name) {
            palette->Load();
            return palette;
        }
    }
    return nullptr;
}

std::shared_ptr<CM_Color> PaletteProjectTest::solid(const QString& name, const CM_Rgba& rgba)
{
    auto colour = std::make_shared<CM_Color>(CM_Color::kSolid, name);
    colour->AddColorMarker({0, rgba});
    return colour;
}

std::shared_ptr<CM_Texture> PaletteProjectTest::texture(const QString& name, int side, const QColor& colour)
{
    QImage image(side, side, QImage::Format_RGBA8888);
    image.fill(colour);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return std::make_shared<CM_Texture>(name, UT_Id::Generate(), BM_Bitmap::FromPng(buffer.data()), true);
}

QStringList PaletteProjectTest::names(const CM_Palette& palette)
{
    QStringList names;
    for (const CM_Palette::Entry& entry : palette.colors())
        names.append(entry->GetColorName());
    return names;
}
