#pragma once

#include "core/frame/engineview.h"

#include <QString>

class MO_Node;
class QColor;

namespace OMC {

/// The colour of a node in the node view, read and written live. A node without a colour of its own has that of its
/// type.
class BRINDLE_CORE_EXPORT Node_Colour : public EngineView<MO_Node> {
    Q_OBJECT
    BRINDLE_COPYABLE(Node_Colour)
    Q_PROPERTY(int r READ getR WRITE setR)
    Q_PROPERTY(int g READ getG WRITE setG)
    Q_PROPERTY(int b READ getB WRITE setB)
    Q_PROPERTY(QString hex READ getHex WRITE setHex)

public:
    explicit Node_Colour(MO_Node* node);

    std::string __str__() const override;

    virtual void setR(int value);
    virtual int getR() const; ///< Red, from 0 to 255; what is written is held between them.
    virtual void setG(int value);
    virtual int getG() const; ///< Green, likewise.
    virtual void setB(int value);
    virtual int getB() const; ///< Blue, likewise.
    /// The colour as "#rrggbb". Takes that and the names of colours; another text takes the node's own colour away.
    virtual void setHex(const QString& text);
    virtual QString getHex() const;

    void reset(); ///< Takes the node's own colour away.

protected:
    void validate() const override;

private:
    using Setter = void (QColor::*)(int);
    void setChannel(Setter setter, int value);
    void change(const QColor& colour, const QString& label);
};

} // namespace OMC
