// A window whose decorations change keeps its place in the stack and the keyboard.
#include "tests/display/windows/decorations_kit.h"

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;

template <class Base>
class Stacked : public Base {
  protected:
    INT shown(INT parent = -1) {
        GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit);
        window.fen_mere = parent;
        const INT n = make(window);
        EXPECT_TRUE(Base::wait_visible(widget_of(n)));
        Base::drain();
        return n;
    }

    // The windows of these numbers, from the lowest to the highest.
    std::vector<INT> order(const std::vector<INT>& numbers) {
        XSync(x11_disp, False);
        std::vector<INT> result;
        for (Window top : children_of(Base::test_display(), DefaultRootWindow(Base::test_display()))) {
            std::vector<Window> inside;
            gather_windows(Base::test_display(), top, inside);
            for (INT n : numbers)
                if (std::ranges::find(inside, XtWindow(shell_of(n))) != inside.end()) result.push_back(n);
        }
        return result;
    }

    // The number of the window, or of none of them, that has the keyboard.
    INT focused(const std::vector<INT>& numbers) {
        Window focus = None;
        int revert = 0;
        XGetInputFocus(Base::test_display(), &focus, &revert);
        for (INT n : numbers) {
            std::vector<Window> inside;
            gather_windows(Base::test_display(), XtWindow(shell_of(n)), inside);
            if (std::ranges::find(inside, focus) != inside.end()) return n;
        }
        return -1;
    }

    // A window manager that has moved a window has done all that was asked before; what it caused itself by that, after
    // the next.
    void let_the_manager_finish() {
        for (int turn = 0; turn < 3; ++turn) {
            const INT left = 500 + 10 * (++moves_ % 20);
            grx_deplace_fenetre(mover_, left, 400);
            ASSERT_TRUE(Base::wait_for([&] {
                INT x = -1, y = -1;
                grx_recup_position_fenetre(mover_, &x, &y);
                return x == left && y == 400;
            }));
            Base::drain();
        }
    }

    void expect_kept_by(std::size_t operation, INT n, const std::vector<INT>& numbers) {
        SCOPED_TRACE(testing::Message() << "window " << n << " operation " << operation);
        const auto before = order(numbers);
        const INT focus = focused(numbers);
        ASSERT_EQ(before.size(), numbers.size());
        decoration_operations[operation](n);
        EXPECT_TRUE(Base::wait_for([&] { return order(numbers) == before && Base::visible(x_window(n)); }));
        let_the_manager_finish();
        EXPECT_EQ(order(numbers), before);
        EXPECT_EQ(focused(numbers), focus);
        EXPECT_TRUE(Base::visible(x_window(n)));
    }

    void expect_the_order_kept(const std::vector<INT>& numbers) {
        let_the_manager_finish();
        for (const INT n : numbers)
            for (std::size_t k = 0; k < decoration_operations.size(); ++k) expect_kept_by(k, n, numbers);
    }

    std::vector<INT> three_windows() {
        mover_ = shown();
        return {shown(), shown(), shown()};
    }

    void expect_all_kept() { expect_the_order_kept(three_windows()); }

    void give_keyboard(INT n, const std::vector<INT>& numbers) {
        XSetInputFocus(x11_disp, XtWindow(shell_of(n)), RevertToParent, CurrentTime);
        ASSERT_TRUE(Base::wait_for([&] { return focused(numbers) == n; }));
        let_the_manager_finish();
    }

    // Whatever window has the keyboard, and wherever that lies.
    void expect_all_kept_with_the_keyboard() {
        const auto numbers = three_windows();
        for (const INT n : numbers) {
            give_keyboard(n, numbers);
            grx_restack_fenetre(numbers[1], n == numbers[1] ? numbers[0] : n);
            expect_the_order_kept(numbers);
        }
    }

    void expect_kept_with_dialogs() {
        mover_ = shown();
        const INT first = shown();
        const std::vector<INT> numbers{first, shown(first), shown()};
        expect_the_order_kept(numbers);
    }

    // Nothing is left of what the window manager was told meanwhile.
    void expect_the_keyboard_by_a_click() {
        const auto numbers = three_windows();
        for (const DecorationOperation operation : decoration_operations) {
            give_keyboard(numbers[1], numbers);
            operation(numbers[0]);
            let_the_manager_finish();
            grx_restack_fenetre(numbers[0], order(numbers).back());
            ASSERT_TRUE(Base::wait_for([&] { return order(numbers).back() == numbers[0]; }));
            Base::pointer().click_in(widget_of(numbers[0]), 30, 40);
            EXPECT_TRUE(Base::wait_for([&] { return focused(numbers) == numbers[0]; }));
            const Atom time = XInternAtom(x11_disp, "_NET_WM_USER_TIME", False);
            EXPECT_FALSE(has_property(XtWindow(shell_of(numbers[0])), time));
        }
    }

  private:
    static bool has_property(Window window, Atom name) {
        Atom type = None;
        int format = 0;
        unsigned long count = 0, left = 0;
        unsigned char* value = nullptr;
        XGetWindowProperty(x11_disp, window, name, 0, 0, False, AnyPropertyType, &type, &format, &count, &left, &value);
        if (value) XFree(value);
        return type != None;
    }

    INT mover_ = 0;
    int moves_ = 0;
};

class StackedDecorating : public Stacked<DisplayTest> {};
class StackedDecoratingWmTest : public Stacked<WmTest> {};
class StackedDecoratingOpenboxWmTest : public Stacked<WmTest> {
    WindowManager::Kind manager_kind() const override { return WindowManager::Kind::openbox; }
};

TEST_F(StackedDecorating, AWindowStaysWhereItLies) {
    expect_all_kept();
}
TEST_F(StackedDecoratingWmTest, AWindowStaysWhereItLies) {
    expect_all_kept();
}
TEST_F(StackedDecoratingOpenboxWmTest, AWindowStaysWhereItLies) {
    expect_all_kept();
}

TEST_F(StackedDecorating, SoDoesTheKeyboard) {
    expect_all_kept_with_the_keyboard();
}
TEST_F(StackedDecoratingWmTest, SoDoesTheKeyboard) {
    expect_all_kept_with_the_keyboard();
}
TEST_F(StackedDecoratingOpenboxWmTest, SoDoesTheKeyboard) {
    expect_all_kept_with_the_keyboard();
}

TEST_F(StackedDecorating, AWindowWithADialogStaysWhereItLies) {
    expect_kept_with_dialogs();
}
TEST_F(StackedDecoratingOpenboxWmTest, AWindowWithADialogStaysWhereItLies) {
    expect_kept_with_dialogs();
}

TEST_F(StackedDecoratingWmTest, AClickStillGivesTheKeyboard) {
    expect_the_keyboard_by_a_click();
}
TEST_F(StackedDecoratingOpenboxWmTest, AClickStillGivesTheKeyboard) {
    expect_the_keyboard_by_a_click();
}

} // namespace
