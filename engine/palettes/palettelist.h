#pragma once

#include "core/host/cm_palettelist.h"
#include "engine/folder/holderlock.h"
#include "engine/palettes/palettelistfile.h"

#include <optional>
#include <unordered_map>

/// The state of a palette list of the open engine.
class CM_PaletteList::Private {
public:
    using Palette = std::shared_ptr<CM_Palette>;

    Private(const QString& folder, Type kind);

    QString library() const; ///< The folder of the list's file.
    QString file() const;    ///< The list's file.
    /// The list is that of another folder from now on: the project goes on elsewhere.
    void setFolder(const QString& folder);
    brindle::engine::PaletteListRecord record() const;
    QByteArray text(const QString& project) const; ///< Its file in a project of that folder, as it would be saved.
    bool insert(const Palette& palette, std::size_t index);

    UT_Id id = UT_Id::Generate();
    QString path;
    Type type;
    State state = kLive;
    bool isRead = false;
    bool isDamaged = false; ///< The file could not be read.
    bool isModified = false;
    std::vector<Palette> palettes;
    std::unordered_map<UT_Id, CM_Palette*> byId;
    brindle::engine::HolderLock lock;

    std::optional<brindle::engine::Checksum> known; ///< The content of its file; nothing where there was none.
    bool hadFile = false;                           ///< When the project was opened.
    std::vector<brindle::engine::PaletteListRecord::Palette> saved; ///< Those that its file names.
};
