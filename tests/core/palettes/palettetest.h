#pragma once

#include "core/host/cm_palettemanager.h"
#include "core/palettes/palette.h"
#include "core/palettes/palettelist.h"
#include "core/palettes/palettelistlist.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"

#include <QImage>

/// A project with a palette "Hero" of the colours Skin and Sky, a gradient.
class PaletteTest : public ProjectTest {
protected:
    PaletteTest()
    {
        hero->GetColor(0)->Rename(QStringLiteral("Skin"));
        const auto sky = std::make_shared<CM_Color>(CM_Color::kLinearGradient, QStringLiteral("Sky"));
        sky->AddColorMarker({0, CM_Rgba(0, 0, 255, 255)});
        sky->AddColorMarker({1, CM_Rgba(255, 255, 255, 0)});
        hero->AddColor(sky);
        manager().clearHistory();
    }

    std::shared_ptr<CM_Palette> create(const QString& name)
    {
        const OMC::Obj made = palettes.create(QStringLiteral("Colour"), name, false, ~0U, {});
        return OMC::objectIn<OMC::Palette>(made)->palette();
    }
    OMC::PaletteList projectPalettes()
    {
        const OMC::Obj list = OMC::PaletteListList(projectCommon()).projectPalettes();
        return *OMC::objectIn<OMC::PaletteList>(list);
    }
    QString pictureFile(int width, int height)
    {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(Qt::red);
        const QString path = projectPath() + QStringLiteral("/picture.png");
        EXPECT_TRUE(image.save(path));
        return path;
    }
    QString projectPath() { return project()->path(); }

    OMC::PaletteList palettes = projectPalettes();
    std::shared_ptr<CM_Palette> hero = create(QStringLiteral("Hero"));
    OMC::Palette palette = OMC::Palette(hero, projectCommon());
};
