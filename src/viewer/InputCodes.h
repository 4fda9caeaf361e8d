#pragma once

// Keyboard and mouse as hosts see them in events: key codes are the virtual
// key numbers of the host platform (letters and digits are their upper-case
// ASCII codes, 37 to 40 the arrows ...), buttons 1 left, 2 right, 4 middle,
// and the shift state a mask of 1 Shift, 2 Ctrl, 4 Alt.

#include <Qt>

namespace orbelan::inputcodes {

// 0 for a key without a virtual key number.
int keyCodeOf(Qt::Key key);
// Qt::Key_unknown for a number without a key.
Qt::Key keyOf(int keyCode);

int shiftOf(Qt::KeyboardModifiers modifiers);
Qt::KeyboardModifiers modifiersOf(int shift);

int buttonOf(Qt::MouseButton button);
Qt::MouseButton mouseButtonOf(int button);

} // namespace orbelan::inputcodes
