#pragma once

#include "core/host/tu_texttimedvalues.h"
#include "engine/curves/columnkinds.h"
#include "engine/curves/hostcolumn.h"

#include <map>

namespace brindle::engine {

extern const ColumnKind soundKind;
extern const ColumnKind annotationKind;
extern const ColumnKind fileLibraryKind;

/// The cells of a column of texts: at most one text a frame, from 1 to Exposures::lastFrame. A cell shows its own text
/// and holds it for no other frame; the empty text empties it.
///
/// Cells follow the frames of their scene: those on frames that go are lost with them, new frames have none.
class TextCells {
public:
    virtual ~TextCells() = default;

    /// Null for null and for a column without texts.
    static TextCells* of(TUTimedValue* column) { return dynamic_cast<TextCells*>(column); }

    virtual Column& column() = 0;
    const std::map<int, QString>& cells() const { return m_cells; }
    QString textAt(int frame) const; ///< Null where there is none.

    /// The command that writes a text into `count` cells. Null for cells that the column can't have.
    std::unique_ptr<CO_Command> writeCommand(int frame, int count, const QString& text);

protected:
    /// The new text of each frame that changes; null for none.
    using Change = std::map<int, QString>;
    class Command;

    std::unique_ptr<CO_Command> changeCommand(Change change); ///< Null for a change of nothing.
    std::unique_ptr<CO_Command> shiftCommand(const FrameShift& shift);
    std::unique_ptr<CO_Command> clearCommand(int at, int count); ///< Empties `count` cells behind frame `at`.
    std::unique_ptr<CO_Command> pasteOf(const Column& source, const FramePaste& paste);
    void keep(int first, int count); ///< As Column::keepFrames.
    std::unique_ptr<TUCellMemo> rememberCell(int frame);
    int write(double frame, int count, const QString& text); ///< As Column::setValuesFromXsheet.
    void writeCells(JsonWriter& json) const;
    void readCells(const JsonPlace& place);

    std::map<int, QString> m_cells;

private:
    class Memo;

    void exchange(Change& change);
};

/// A column of texts of the open engine.
///
/// The field of a file: "cells", a list with [frame, "text"] for each cell, by their frames.
template <typename Host>
class TextColumn final : public HostColumn<Host>, public TextCells {
public:
    explicit TextColumn(const QString& name, bool anonymous = false);

    Column& column() override { return *this; }

    void getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                           bool& isLocked) const override;
    int setValuesFromXsheet(double frame, int count, const QString& text, int) override
    {
        return TextCells::write(frame, count, text);
    }
    void scale(double, int, CO_Command** command) override { *command = nullptr; }
    bool takesValues() const override { return true; }
    CO_Command* spliceCommand(double, bool) override { return nullptr; }
    std::unique_ptr<TUCellMemo> remember(double frame) override;

    bool fits(const AttributeMeta&) const override { return false; }
    NumberValues* numbers() override { return nullptr; }
    std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift& shift) override { return shiftCommand(shift); }
    std::unique_ptr<CO_Command> clearFramesCommand(int at, int count) override { return clearCommand(at, count); }
    std::unique_ptr<CO_Command> pasteCommand(const Column& source, const FramePaste& paste) override
    {
        return pasteOf(source, paste);
    }
    void keepFrames(int first, int count) override { keep(first, count); }
    std::unique_ptr<Column> copy(const QString& name, bool anonymous) const override;
    void write(JsonWriter& json) const override { writeCells(json); }
    void read(const JsonPlace& place) override { readCells(place); }
};

extern template class TextColumn<TUSoundTimedValue>;
extern template class TextColumn<AT_AnnotationTimedValue>;
extern template class TextColumn<AT_FileLibraryTimedValue>;

} // namespace brindle::engine
