#include "viewer/InputCodes.h"

#include <array>

namespace orbelan::inputcodes {

namespace {

// Where on the keyboard a Qt key must come from to have a row's number.
enum class Place {
    anywhere,
    mainRow,   // without Qt::KeypadModifier
    keypad,    // with Qt::KeypadModifier
    unshifted, // main row, Shift up
};

// count keys from first, whose numbers run from code: one key, or a run
// such as A to Z.
struct KeyRow {
    Qt::Key first;
    int code;
    Place place = Place::anywhere;
    int count = 1;
};

// Every key of a standard keyboard. Where two rows give a key, the first
// that fits its place wins; where two give a number, the first names its
// key, so the unshifted symbol of a key comes before the shifted one.
constexpr std::array kKeys = std::to_array<KeyRow>({
    {Qt::Key_A, 65, Place::anywhere, 26},
    {Qt::Key_0, 48, Place::mainRow, 10},
    {Qt::Key_0, 96, Place::keypad, 10},
    {Qt::Key_F1, 112, Place::anywhere, 24},
    {Qt::Key_Left, 37, Place::anywhere, 4}, // left, up, right, down
    {Qt::Key_PageUp, 33, Place::anywhere, 2},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Clear, 12}, // the keypad's 5 without Num Lock
    {Qt::Key_Cancel, 3},
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9}, // Shift and Tab
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},
    {Qt::Key_Select, 41},
    {Qt::Key_Printer, 42},
    {Qt::Key_Execute, 43},
    {Qt::Key_Print, 44},
    {Qt::Key_SysReq, 44}, // Alt and Print Screen
    {Qt::Key_Help, 47},
    {Qt::Key_Super_L, 91},
    {Qt::Key_Meta, 91},
    {Qt::Key_Super_R, 92},
    {Qt::Key_Menu, 93},
    {Qt::Key_Sleep, 95},
    {Qt::Key_Asterisk, 106, Place::keypad},
    {Qt::Key_Plus, 107, Place::keypad},
    {Qt::Key_Minus, 109, Place::keypad},
    {Qt::Key_Period, 110, Place::keypad},
    {Qt::Key_Comma, 110, Place::keypad}, // the decimal key where it types a comma
    {Qt::Key_Slash, 111, Place::keypad},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},
    {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187, Place::mainRow},
    {Qt::Key_Comma, 188, Place::mainRow},
    {Qt::Key_Less, 226, Place::unshifted}, // the extra key beside the left Shift
    {Qt::Key_Less, 188, Place::mainRow},
    {Qt::Key_Minus, 189, Place::mainRow},
    {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190, Place::mainRow},
    {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191, Place::mainRow},
    {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192},
    {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221},
    {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
    // The digits' shifted symbols.
    {Qt::Key_ParenRight, 48},
    {Qt::Key_Exclam, 49},
    {Qt::Key_At, 50},
    {Qt::Key_NumberSign, 51},
    {Qt::Key_Dollar, 52},
    {Qt::Key_Percent, 53},
    {Qt::Key_AsciiCircum, 54},
    {Qt::Key_Ampersand, 55},
    {Qt::Key_Asterisk, 56, Place::mainRow},
    {Qt::Key_ParenLeft, 57},
});

bool fits(Place place, Qt::KeyboardModifiers modifiers)
{
    const bool onKeypad = modifiers.testFlag(Qt::KeypadModifier);
    switch (place) {
    case Place::anywhere: return true;
    case Place::mainRow: return !onKeypad;
    case Place::keypad: return onKeypad;
    case Place::unshifted: return !onKeypad && !modifiers.testFlag(Qt::ShiftModifier);
    }
    return false;
}

} // namespace

int keyCodeOf(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    for (const KeyRow& row : kKeys) {
        const int offset = key - row.first;
        if (offset >= 0 && offset < row.count && fits(row.place, modifiers)) {
            return row.code + offset;
        }
    }
    return 0;
}

QtKey keyOf(int keyCode)
{
    for (const KeyRow& row : kKeys) {
        const int offset = keyCode - row.code;
        if (offset >= 0 && offset < row.count) {
            return {static_cast<Qt::Key>(row.first + offset),
                    row.place == Place::keypad ? Qt::KeypadModifier : Qt::NoModifier};
        }
    }
    return {};
}

int shiftOf(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

Qt::KeyboardModifiers modifiersOf(int shift)
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, shift & 1);
    modifiers.setFlag(Qt::ControlModifier, shift & 2);
    modifiers.setFlag(Qt::AltModifier, shift & 4);
    return modifiers;
}

int buttonOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

Qt::MouseButton mouseButtonOf(int button)
{
    switch (button) {
    case 1: return Qt::LeftButton;
    case 2: return Qt::RightButton;
    case 4: return Qt::MiddleButton;
    default: return Qt::NoButton;
    }
}

} // namespace orbelan::inputcodes
