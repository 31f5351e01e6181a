#pragma once

#include "core/host/cm_palette.h"
#include "engine/palettes/palettefile.h"

#include <unordered_map>

/// The data of one palette of the open engine.
class CM_Palette::Private {
public:
    enum class Content { Unread, Read, Missing, Damaged };

    QString file() const { return path->filename(true); }
    QString textureFolder() const { return path->filename(false) + "_textures"; }
    void setRecord(brindle::engine::PaletteRecord record);
    bool insert(const Entry& entry, std::size_t index);

    UT_Id id = UT_Id::Generate();
    std::unique_ptr<CM_PalettePathFile> path;
    QString name;
    Type type = kColour;
    Content content = Content::Read;
    std::vector<Entry> entries;
    std::unordered_map<UT_Id, Entry> byId;
};
