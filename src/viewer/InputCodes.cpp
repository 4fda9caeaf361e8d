#include "viewer/InputCodes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orbelan::inputcodes {

namespace {

// Keys whose virtual key number is not their character code.
constexpr std::array<std::pair<int, Qt::Key>, 29> kNamedKeys = {{
    {8, Qt::Key_Backspace}, {9, Qt::Key_Tab},      {12, Qt::Key_Clear},   {13, Qt::Key_Return},
    {16, Qt::Key_Shift},    {17, Qt::Key_Control}, {18, Qt::Key_Alt},     {19, Qt::Key_Pause},
    {20, Qt::Key_CapsLock}, {27, Qt::Key_Escape},  {32, Qt::Key_Space},   {33, Qt::Key_PageUp},
    {34, Qt::Key_PageDown}, {35, Qt::Key_End},     {36, Qt::Key_Home},    {37, Qt::Key_Left},
    {38, Qt::Key_Up},       {39, Qt::Key_Right},   {40, Qt::Key_Down},    {44, Qt::Key_Print},
    {45, Qt::Key_Insert},   {46, Qt::Key_Delete},  {47, Qt::Key_Help},    {107, Qt::Key_Plus},
    {109, Qt::Key_Minus},   {144, Qt::Key_NumLock}, {145, Qt::Key_ScrollLock}, {13, Qt::Key_Enter},
    {93, Qt::Key_Menu},
}};

constexpr int kFirstFunctionKey = 112; // F1; F1 to F24 follow one another

bool isLetterOrDigit(int code)
{
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z');
}

} // namespace

int keyCodeOf(Qt::Key key)
{
    if (isLetterOrDigit(key)) {
        return key;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return kFirstFunctionKey + (key - Qt::Key_F1);
    }
    const auto named = std::find_if(kNamedKeys.begin(), kNamedKeys.end(),
                                    [key](const auto& entry) { return entry.second == key; });
    return named == kNamedKeys.end() ? 0 : named->first;
}

Qt::Key keyOf(int keyCode)
{
    if (isLetterOrDigit(keyCode)) {
        return static_cast<Qt::Key>(keyCode);
    }
    if (keyCode >= kFirstFunctionKey && keyCode < kFirstFunctionKey + 24) {
        return static_cast<Qt::Key>(Qt::Key_F1 + (keyCode - kFirstFunctionKey));
    }
    const auto named = std::find_if(kNamedKeys.begin(), kNamedKeys.end(),
                                    [keyCode](const auto& entry) { return entry.first == keyCode; });
    return named == kNamedKeys.end() ? Qt::Key_unknown : named->second;
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
