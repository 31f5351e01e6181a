#pragma once

#include <QDialog>

#include <functional>

namespace app::desk {

/// Says that a script keeps the desk busy, and offers to interrupt it; closing it leaves the script alone.
class InterruptWindow final : public QDialog {
    Q_OBJECT

public:
    explicit InterruptWindow(const std::function<void()>& interrupt);
};

} // namespace app::desk
