#pragma once

// Keyboard and mouse as hosts see them in events: key codes are the virtual
// key numbers of the host platform (letters and digits are their upper-case
// ASCII codes, 37 to 40 the arrows, 96 to 111 the keypad ...), buttons 1
// left, 2 right, 4 middle, and the shift state a mask of 1 Shift, 2 Ctrl,
// 4 Alt.

#include <Qt>

namespace orbelan::inputcodes {

// A key as Qt reports it: the keypad's keys carry Qt::KeypadModifier.
struct QtKey {
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers;
};

// The number of the physical key, 0 for a key without one. A shifted
// symbol is its key's number on a US keyboard (Key_Plus, shift and =, is
// the number of =).
int keyCodeOf(Qt::Key key, Qt::KeyboardModifiers modifiers);
// The key Qt reports, unshifted, for a number; Qt::Key_unknown for a
// number without a key.
QtKey keyOf(int keyCode);

int shiftOf(Qt::KeyboardModifiers modifiers);
Qt::KeyboardModifiers modifiersOf(int shift);

int buttonOf(Qt::MouseButton button);
Qt::MouseButton mouseButtonOf(int button);

} // namespace orbelan::inputcodes
