#include "app/desk/interruptwindow.h"

#include <gtest/gtest.h>

#include <QPushButton>

namespace {

TEST(InterruptWindowTest, ItsButtonInterruptsAndClosingLeavesTheScriptAlone)
{
    int interrupts = 0;
    app::desk::InterruptWindow window([&] { ++interrupts; });
    window.show();
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (button->text().contains("Interrupt"))
            button->click();
    }
    EXPECT_EQ(interrupts, 1);
    EXPECT_TRUE(window.isVisible()) << "the script may need another one";
    window.close();
    EXPECT_EQ(interrupts, 1);
}

} // namespace
